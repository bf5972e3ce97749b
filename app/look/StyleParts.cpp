#include "app/look/StyleParts.h"

#include "app/look/Surface.h"
#include "app/look/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

namespace zelta::StyleParts {

using Theme::Token;

namespace {

constexpr int textFlags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic;

} // namespace

/// Cut rather than translucent: without a compositor a translucent window has black corners.
QRegion popupMask(const QRect& rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return QRegion(path.toFillPolygon().toPolygon());
}

void drawPopup(QPainter& painter, const QRect& rect)
{
    // The line's colour below the rounded corners, so that nothing foreign shows in their blended pixels.
    painter.fillRect(rect, Theme::color(Token::outline));
    Surface::draw(painter, rect, Metric::rowRadius, Theme::color(Token::card), Theme::color(Token::outline));
}

void drawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& option)
{
    const bool open = option.state.testFlag(QStyle::State_Sunken);
    painter.fillRect(option.rect, Theme::color(Token::chrome));
    if (open || option.state.testFlag(QStyle::State_Selected))
        Surface::drawPress(painter, option.rect, Metric::tipRadius,
                           open ? Surface::Press::pressed : Surface::Press::hovered);
    painter.setPen(Theme::color(option.state.testFlag(QStyle::State_Enabled) ? Token::text : Token::textOff));
    painter.drawText(option.rect, Qt::AlignHCenter | textFlags, option.text);
}

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& option)
{
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        const double y = option.rect.center().y();
        painter.fillRect(
            QRectF(option.rect.left() + menuItemPadding, y, option.rect.width() - 2 * menuItemPadding, 1),
            Theme::color(Token::divider));
        return;
    }
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool chosen = enabled && option.state.testFlag(QStyle::State_Selected);
    if (chosen)
        Surface::draw(painter, option.rect, Metric::tipRadius, Theme::color(Token::accentFill));
    const QRect line = option.rect.adjusted(menuItemPadding, 0, -menuItemPadding, 0);
    const qsizetype tab = option.text.indexOf(QLatin1Char('\t'));
    painter.setFont(option.font);
    painter.setPen(Theme::color(chosen ? Token::onAccent : enabled ? Token::text : Token::textOff));
    painter.drawText(line, Qt::AlignLeft | textFlags, option.text.left(tab));
    if (tab < 0)
        return;
    painter.setFont(Theme::font(Theme::FontRole::caption));
    painter.setPen(Theme::color(chosen ? Token::onAccent : enabled ? Token::textSecondary : Token::textOff));
    painter.drawText(line, Qt::AlignRight | textFlags, option.text.mid(tab + 1));
}

void drawTip(QPainter& painter, const QRect& rect)
{
    painter.fillRect(rect, Theme::color(Token::tip));
}

void drawField(QPainter& painter, const QRect& rect, bool focused)
{
    Surface::draw(painter, rect, Metric::controlRadius, Theme::color(Token::field),
                  Theme::color(Token::fieldOutline));
    if (focused)
        Surface::drawFocusRing(painter, rect, Metric::controlRadius);
}

QRect scrollHandle(const QStyleOptionSlider& option)
{
    constexpr int shortest = 32;
    const bool vertical = option.orientation == Qt::Vertical;
    const int track = vertical ? option.rect.height() : option.rect.width();
    const int range = option.maximum - option.minimum;
    int length = track;
    if (range > 0) {
        const double share = static_cast<double>(option.pageStep) / (range + option.pageStep);
        length = std::clamp(static_cast<int>(share * track), std::min(shortest, track), track);
    }
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      track - length, option.upsideDown);
    return vertical ? QRect(option.rect.left(), option.rect.top() + start, option.rect.width(), length)
                    : QRect(option.rect.left() + start, option.rect.top(), length, option.rect.height());
}

/// 8 px wide, 4 px off the edges of its area.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option)
{
    constexpr int off = 4;
    constexpr double radius = 4;
    if (option.minimum == option.maximum)
        return;
    const bool vertical = option.orientation == Qt::Vertical;
    const QRectF handle
        = QRectF(scrollHandle(option)).adjusted(vertical ? 0 : off, vertical ? off : 0, -off, -off);
    Surface::draw(painter, handle, radius, Theme::color(Token::scrollHandle));
}

} // namespace zelta::StyleParts
