#pragma once

#include <QRect>
#include <QRegion>

class QPainter;
class QStyleOptionMenuItem;
class QStyleOptionSlider;

namespace zelta {

/// How Style draws its larger pieces.
namespace StyleParts {

constexpr int menuWidth = 220; // at least
constexpr int menuPadding = 5;
constexpr int menuItemPadding = 10;
constexpr int menuBarItemPadding = 8;
constexpr int shortcutGap = 24;

/// A pop-up's area: where it is cut, and what is painted there.
QRegion popupMask(const QRect& rect, double radius);
void drawPopup(QPainter& painter, const QRect& rect);

void drawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option);
void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option);
void drawTip(QPainter& painter, const QRect& rect);
void drawField(QPainter& painter, const QRect& rect, bool focused);

/// The handle of a scroll bar, and where it lies: as long as its share of the track, at least a thumb's
/// length.
QRect scrollHandle(const QStyleOptionSlider& option);
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option);

} // namespace StyleParts

} // namespace zelta
