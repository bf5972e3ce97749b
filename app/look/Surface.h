#pragma once

#include <QBrush>
#include <QColor>
#include <QRectF>

class QAbstractButton;
class QPainter;
class QWidget;

namespace zelta {

/// The few shapes that everything is painted from: rounded, with a thin line, flat.
namespace Surface {

/// A rounded area with a 1 px line just inside `rect`; a transparent `outline` leaves the line out.
void draw(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
          const QColor& outline = Qt::transparent);

/// The line alone.
void drawOutline(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width);

/// The 2 px ring of a focused control, inside its edge.
void drawFocusRing(QPainter& painter, const QRectF& rect, double radius);

enum class Press { none, hovered, pressed };

/// Shades what is already painted, so that it works on every fill.
void drawPress(QPainter& painter, const QRectF& rect, double radius, Press press);

/// What the mouse or the keyboard does to a button at the moment; nothing to a disabled one.
Press pressOf(const QAbstractButton& button);

/// Whether the ring is due: the widget has the focus, and the focus came by Tab, Backtab or a shortcut.
bool showsFocus(const QWidget& widget);

} // namespace Surface

} // namespace zelta
