#include "app/look/Surface.h"

#include "app/look/Theme.h"

#include <QAbstractButton>
#include <QPainter>
#include <QWidget>

namespace zelta::Surface {

void draw(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& outline)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    if (outline.alpha() == 0) {
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(rect, radius, radius);
    } else {
        // The middle of the line lies half a pixel inside the edge.
        painter.setPen(QPen(outline, 1));
        painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
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
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
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
