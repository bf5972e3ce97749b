#include "app/look/Surface.h"

#include "app/look/Theme.h"

#include <QAbstractButton>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace zelta::Surface {

namespace {

bool isOpaque(const QPainter& painter)
{
    const QBrush& brush = painter.brush();
    const QPen& pen = painter.pen();
    return painter.opacity() == 1 && (brush.style() == Qt::NoBrush || brush.isOpaque())
        && (pen.style() == Qt::NoPen || pen.color().alpha() == 255);
}

/// Draws with the painter's pen and brush. Qt hands a translucent shape of 96 spans or more to other threads
/// and waits for them, several times as long as drawing it takes. So it is drawn a few lines at a time: one
/// of a corner has up to seven spans, one of the sides up to three.
void drawRounded(QPainter& painter, const QRectF& rect, double radius)
{
    if (isOpaque(painter)) {
        painter.drawRoundedRect(rect, radius, radius);
        return;
    }
    const QRectF area = rect.adjusted(-1, -1, 1, 1); // with half of the pen
    const double corner = std::ceil(radius) + 1;
    const double line = 1 / painter.device()->devicePixelRatioF();
    const auto drawPart = [&](double from, double to, int linesAtOnce, bool isPlain) {
        for (double top = from, bottom = 0; top < to; top = bottom) {
            bottom = std::min(top + linesAtOnce * line, to);
            painter.save();
            painter.setClipRect(QRectF(area.left(), top, area.width(), bottom - top), Qt::IntersectClip);
            if (isPlain)
                painter.fillRect(rect, painter.brush());
            else
                painter.drawRoundedRect(rect, radius, radius);
            painter.restore();
        }
    };
    const double sides = std::min(area.top() + corner, area.bottom());
    const double end = std::max(area.bottom() - corner, sides);
    drawPart(area.top(), sides, 12, false);
    drawPart(sides, end, 30, painter.pen().style() == Qt::NoPen);
    drawPart(end, area.bottom(), 12, false);
}

} // namespace

void draw(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill, const QColor& outline)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    if (outline.alpha() == 0) {
        painter.setPen(Qt::NoPen);
        drawRounded(painter, rect, radius);
    } else {
        // The middle of the line lies half a pixel inside the edge.
        painter.setPen(QPen(outline, 1));
        drawRounded(painter, rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5);
    }
    painter.restore();
}

void drawOutline(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width)
{
    const double half = width / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    drawRounded(painter, rect.adjusted(half, half, -half, -half), radius - half);
    painter.restore();
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius)
{
    constexpr double width = 2;
    drawOutline(painter, rect, radius, Theme::color(Theme::Token::focus), width);
}

void drawPress(QPainter& painter, const QRectF& rect, double radius, Press press)
{
    if (press == Press::none)
        return;
    draw(painter, rect, radius,
         Theme::color(press == Press::pressed ? Theme::Token::pressed : Theme::Token::hover));
}

Press pressOf(const QAbstractButton& button)
{
    if (!button.isEnabled())
        return Press::none;
    if (button.isDown())
        return Press::pressed;
    return button.underMouse() ? Press::hovered : Press::none;
}

bool showsFocus(const QWidget& widget)
{
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

} // namespace zelta::Surface
