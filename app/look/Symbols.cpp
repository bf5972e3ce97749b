#include "app/look/Symbols.h"

#include "app/look/RecordedPoint.h"
#include "app/model/Text.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPicture>
#include <QPixmapCache>
#include <QRectF>
#include <QResource>
#include <QtMath>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <utility>

namespace zelta::Symbols {

namespace {

constexpr auto files = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"arrow.left.arrow.right", "swap-arrows"},
    {"arrow.left.arrow.right.circle.fill", "swap-circle-filled"},
    {"calendar.badge.checkmark", "calendar-check"},
    {"calendar.badge.clock", "calendar-clock"},
    {"checkmark", "check-mark"},
    {"clock.arrow.circlepath", "clock-back-arrow"},
    {"clock.fill", "clock-filled"},
    {"doc.on.doc", "copy-sheets"},
    {"exclamationmark.circle.fill", "exclamation-circle-filled"},
    {"exclamationmark.triangle.fill", "exclamation-triangle-filled"},
    {"flag.checkered", "flag-checkered"},
    {"flag.fill", "flag-filled"},
    {"gearshape.fill", "gear-filled"},
    {"hand.tap.fill", "hand-tap-filled"},
    {"lightbulb.fill", "light-bulb-filled"},
    {"note.text", "note-lines"},
    {"number", "number-sign"},
    {"plus.forwardslash.minus", "plus-slash-minus"},
    {"slider.horizontal.3", "three-sliders"},
    {"trash", "trash-can"},
    {"tray.and.arrow.down", "tray-arrow-down"},
});

/// "swap-arrows" for "arrow.left.arrow.right"; other names are a file's already.
std::string_view fileName(std::string_view name)
{
    for (const auto& [symbol, file] : files) {
        if (symbol == name)
            return file;
    }
    return name;
}

/// What the build has recorded of a drawing, with the line width that suits the size. Empty when there is
/// none.
QPainterPath shape(std::string_view name, int size, Stroke stroke)
{
    constexpr int small = 16;
    const auto* const line = stroke == Stroke::bold ? ".bold" : size <= small ? ".small" : "";
    const QResource file(
        QStringLiteral(":/drawings/%1%2.shape").arg(toQt(fileName(name)), QLatin1String(line)));
    const std::span bytes(file.data(), static_cast<std::size_t>(file.size()));
    QPainterPath shape;
    bool isFirst = false;
    for (std::size_t at = 0; at < bytes.size(); at += sizeof(RecordedPoint)) {
        RecordedPoint point {};
        std::memcpy(&point, &bytes[at], sizeof point);
        const QPointF place = QPointF(point.x, point.y) / RecordedPoint::scale;
        if (point == outlineBegins)
            isFirst = true;
        else if (std::exchange(isFirst, false))
            shape.moveTo(place);
        else
            shape.lineTo(place);
    }
    return shape;
}

/// A square picture with what `paint` paints in a drawing's units.
template <typename Paint> QPixmap rendered(int side, const Paint& paint)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const double scale = static_cast<double>(side) / drawingUnits;
    painter.scale(scale, scale);
    paint(painter);
    return pixmap;
}

/// Renders the size that is asked for, and keeps none: a window manager asks once.
class AppIconEngine final : public QIconEngine
{
public:
    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(area, pixmap(area.size(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QPicture picture;
        picture.load(QStringLiteral(":/drawings/app-icon.pic"));
        return rendered(std::min(size.width(), size.height()),
                        [&picture](QPainter& painter) { picture.play(&painter); });
    }

    [[nodiscard]] QIconEngine* clone() const override { return new AppIconEngine; }
};

} // namespace

QPixmap pixmap(std::string_view name, int size, const QColor& color, double devicePixelRatio, Stroke stroke)
{
    const QString key = QStringLiteral("zelta/%1/%2/%3/%4/%5")
                            .arg(toQt(fileName(name)))
                            .arg(size)
                            .arg(color.rgba())
                            .arg(devicePixelRatio)
                            .arg(static_cast<int>(stroke));
    QPixmap found;
    if (QPixmapCache::find(key, &found))
        return found;
    const QPainterPath drawing = shape(name, size, stroke);
    if (drawing.isEmpty())
        return {};
    found = rendered(qCeil(size * devicePixelRatio), [&drawing, &color](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(drawing, color);
    });
    found.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, found);
    return found;
}

void draw(QPainter& painter, const QRectF& area, std::string_view name, int size, const QColor& color,
          Stroke stroke)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const QPixmap drawing = pixmap(name, size, color, ratio, stroke);
    const QPointF corner(area.center().x() - size / 2.0, area.center().y() - size / 2.0);
    const auto snap = [ratio](double position) { return qRound(position * ratio) / ratio; };
    painter.drawPixmap(QPointF(snap(corner.x()), snap(corner.y())), drawing);
}

QIcon appIcon()
{
    return QIcon(new AppIconEngine);
}

} // namespace zelta::Symbols
