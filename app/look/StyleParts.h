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

/// The shape that a pop-up's window is cut to, and what is painted in it.
QRegion popupMask(const QRect& rect, double radius);
void drawPopup(QPainter& painter, const QRect& rect);

void drawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option);
void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option);
void drawTip(QPainter& painter, const QRect& rect);
void drawField(QPainter& painter, const QRect& rect, bool focused);

/// Where a scroll bar's handle lies: as long as the visible share of the content, at least 32 px.
QRect scrollHandle(const QStyleOptionSlider& option);
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option);

} // namespace StyleParts

} // namespace zelta
