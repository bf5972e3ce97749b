// Records the drawings when the program is built: it reads no SVG, and widens no line.
//
//     compile_drawings FOLDER FILE.svg...
//
// Writes for each line drawing NAME.shape, what its surfaces and lines cover (see RecordedPoint.h), and with
// heavier lines NAME.small.shape and NAME.bold.shape; and the program's own icon, which has colours, as
// painter commands in app-icon.pic.
#include "app/look/RecordedPoint.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QPicture>
#include <QSvgRenderer>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace {

using zelta::drawingUnits;
using zelta::RecordedPoint;

constexpr auto usualWidth = "stroke-width=\"1.8\"";
constexpr auto heavierWidths = std::to_array<std::pair<const char*, const char*>>({
    {".small", "stroke-width=\"2.1\""},
    {".bold", "stroke-width=\"2.2\""},
});

/// Takes what is painted on it, as one shape.
class ShapeRecorder final : public QPaintDevice, public QPaintEngine
{
public:
    ShapeRecorder()
        : QPaintEngine(AllFeatures)
    { }
    [[nodiscard]] QByteArray points() const
    {
        QByteArray points;
        const auto add = [&points](RecordedPoint point) {
            points.append(reinterpret_cast<const char*>(&point), sizeof point);
        };
        const auto fixed = [](double units) {
            return static_cast<std::int16_t>(std::lround(units * RecordedPoint::scale));
        };
        for (const QPolygonF& outline : m_shape.toSubpathPolygons()) {
            add(zelta::outlineBegins);
            for (const QPointF& place : outline)
                add({fixed(place.x() / fineness), fixed(place.y() / fineness)});
        }
        return points;
    }

    [[nodiscard]] QPaintEngine* paintEngine() const override { return const_cast<ShapeRecorder*>(this); }
    [[nodiscard]] Type type() const override { return User; }
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override { }
    void drawPixmap(const QRectF& /*area*/, const QPixmap& /*pixmap*/, const QRectF& /*part*/) override { }

    void drawPath(const QPainterPath& path) override
    {
        if (state->brush().style() != Qt::NoBrush)
            add(path);
        if (state->pen().style() != Qt::NoPen) {
            QPainterPathStroker stroker(state->pen());
            stroker.setCurveThreshold(1 / fineness);
            add(stroker.createStroke(path));
        }
    }

private:
    static constexpr double fineness = 16; // lines that stand for curves stay closer than a part of a unit

    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return drawingUnits;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96; // dots per inch
        }
    }

    /// Crossing outlines would show: where two edges share a pixel it comes out too dark.
    void add(const QPainterPath& path)
    {
        QPainterPath shape;
        shape.setFillRule(path.fillRule());
        for (const QPolygonF& outline :
             path.toSubpathPolygons(state->transform() * QTransform::fromScale(fineness, fineness)))
            shape.addPolygon(outline);
        m_shape = m_shape.united(shape.simplified());
    }

    QPainterPath m_shape; // `fineness` times enlarged
};

bool paint(const QByteArray& drawing, QPaintDevice& device)
{
    QSvgRenderer renderer(drawing);
    QPainter painter(&device);
    renderer.render(&painter, QRectF(0, 0, drawingUnits, drawingUnits));
    return renderer.isValid() && painter.end();
}

bool recordShape(const QByteArray& drawing, const QString& path)
{
    ShapeRecorder recorder;
    QFile file(path + QStringLiteral(".shape"));
    return paint(drawing, recorder) && file.open(QIODevice::WriteOnly)
        && file.write(recorder.points()) == recorder.points().size();
}

bool recordCommands(const QByteArray& drawing, const QString& path)
{
    QPicture picture;
    return paint(drawing, picture) && picture.save(path + QStringLiteral(".pic"));
}

bool compile(const QString& source, const QDir& folder)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray drawing = file.readAll();
    const QString name = QFileInfo(source).completeBaseName();
    const QString path = folder.filePath(name);
    if (name == QLatin1String("app-icon"))
        return recordCommands(drawing, path);
    bool isWritten = recordShape(drawing, path);
    for (const auto& [suffix, width] : heavierWidths)
        isWritten = recordShape(QByteArray(drawing).replace(usualWidth, width), path + QLatin1String(suffix))
            && isWritten;
    return isWritten;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    for (const QString& source : arguments.mid(2)) {
        if (!compile(source, QDir(arguments[1]))) {
            std::fprintf(stderr, "compile_drawings: %s: not recorded\n", qUtf8Printable(source));
            return 1;
        }
    }
    return 0;
}
