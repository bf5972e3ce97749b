#pragma once

#include "app/model/Module.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <algorithm>
#include <limits>

namespace zelta {

/// The look in one place: every colour, font and measure that a widget paints with.
///
/// Callers ask for a colour in `paintEvent` instead of keeping it, so that a desktop that turns dark needs no
/// more than a repaint.
///
///     painter.setPen(Theme::color(Theme::Token::textSecondary));
///     painter.setFont(Theme::font(Theme::FontRole::caption));
///
/// Tint, ink, fill: the pure tint of a page is for badges, strokes and 14 % selections, *ink* is the same hue
/// dark (or light) enough for text, *fill* the same hue deep enough below white text.
namespace Theme {

enum class Appearance { light, dark };

enum class Token {
    page, ///< page background
    chrome, ///< menu bar and sidebar
    card, ///< cards, menus, dialogs, popovers
    raised, ///< selected sidebar row
    inset, ///< history detail, key caps, copy chip
    outline, ///< line around a card
    divider, ///< line between rows
    field,
    fieldOutline, ///< text fields, pickers, a switch that is off
    button,
    buttonOutline,
    text,
    textSecondary, ///< also placeholders
    textOff, ///< disabled
    accent,
    accentFill, ///< below white text
    accentInk, ///< as text
    onAccent, ///< text on any fill
    up,
    upInk,
    down,
    downInk,
    dangerFill, ///< destructive button of a dialog, below white text
    weekendFill,
    weekendInk,
    workdayFill,
    workdayInk,
    warnInk,
    hover, ///< painted over whatever is below
    pressed, ///< painted over whatever is below
    focus, ///< ring of the focused control
    selection, ///< behind selected text, whose colour stays
    tip,
    tipText,
    pillBack, ///< backing of pill tabs
    scrollHandle,
    keyDigit,
    keyUtility,
    keyOperator,
    keyOperatorInk,
    keyEquals,
    keyEqualsInk,
    tileWorkday,
    tileWeekend,
};

/// What a text is for, which decides its size (in device-independent pixels) and weight.
enum class FontRole {
    headline, ///< also the month title
    title,
    field,
    value,
    body,
    bodyBold,
    sectionLabel, ///< card titles, groups
    caption,
    captionMedium, ///< small buttons, field labels, messages
    captionBold, ///< tags, key caps
    calculatorNumber, ///< at its largest; the display shrinks it
    keyDigit,
    keyOperator,
    keyEquals,
    keyUtility,
    dayNumber,
    dayNumberToday,
    sidebarHeader,
    rowTitle, ///< sidebar rows, note titles
    control, ///< buttons
    menu, ///< menus, page subtitles, note previews
    note, ///< sidebar subtitles, InfoNote, week numbers, note dates
    chip, ///< day chips
};

/// Which of the two the application's palette is now.
Appearance appearance();

QColor color(Token token);
QColor color(Token token, Appearance appearance);

/// The page's own colour, the same in both appearances.
QColor tint(Module module);
QColor ink(Module module);
QColor ink(Module module, Appearance appearance);
QColor fill(Module module);

/// The desktop's interface font (see `baseFont`) in the size and weight of the role.
QFont font(FontRole role);

/// The font that the desktop names, or a chosen family where it names none, at body size.
QFont baseFont(const QFont& desktopFont);

/// Every role that Qt's own widgets paint with.
QPalette palette(Appearance appearance);

} // namespace Theme

/// Measures in device-independent pixels.
namespace Metric {

constexpr int pagePadding = 22;
constexpr int partSpacing = 18;
constexpr int cardPadding = 18;
constexpr int maximumPageWidth = 1240;

constexpr double cardRadius = 14; ///< dialogs and popovers too
constexpr double keyRadius = 12;
constexpr double rowRadius = 10; ///< sidebar rows, tiles, menus
constexpr double controlRadius = 8; ///< fields, buttons, result lines
constexpr double smallRadius = 7; ///< small buttons, day chips
constexpr double tipRadius = 6;
constexpr double badgeRadius = 0.27; ///< of the badge's side

constexpr int smallestWindowHeight = 620;
constexpr int windowHeight = 760; ///< the first time

/// A measure that grows with the window: `low` at `smallestWindowHeight`, `high` from `windowHeight` on.
constexpr int forWindow(int height, int low, int high)
{
    return std::clamp(
        low + (height - smallestWindowHeight) * (high - low) / (windowHeight - smallestWindowHeight), low,
        high);
}

constexpr int menuBarHeight = 32;
constexpr int fieldHeight = 36; ///< text fields and pickers
constexpr int buttonHeight = 32;
constexpr int smallButtonHeight = 28;
constexpr int pillHeight = 28;
constexpr int menuItemHeight = 28;
constexpr int scrollBarWidth = 12; ///< an 8 px handle and 4 px to the edge

/// Milliseconds for a tool tip that alone shows a text in full: it stays until the pointer leaves.
constexpr int lastingTip = std::numeric_limits<int>::max();

} // namespace Metric

} // namespace zelta
