#include "app/components/CopyableText.h"

#include "app/look/Surface.h"

#include <QPainter>
#include <algorithm>

namespace zelta {

namespace {

constexpr int lineHeight = 25;
constexpr int gap = 9;
constexpr int sidePadding = 4; // room for the focus ring

} // namespace

CopyableText::CopyableText(Clock& clock, const QString& help, QWidget* parent)
    : CopyButton(clock, Theme::FontRole::bodyBold, parent)
{
    setToolTip(help);
}

QSize CopyableText::sizeHint() const
{
    return {2 * sidePadding + textWidth() + gap + symbolSize, lineHeight};
}

QSize CopyableText::minimumSizeHint() const
{
    return {2 * sidePadding + gap + symbolSize, lineHeight};
}

void CopyableText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const int room = width() - 2 * sidePadding - gap - symbolSize;
    const int shownWidth = std::min(room, textWidth());
    painter.setPen(Theme::color(Theme::Token::text));
    drawText(painter, QRect(sidePadding, 0, shownWidth, height()));
    const Theme::Token ink = showsMark() ? Theme::Token::upInk
        : underMouse()                   ? Theme::Token::text
                                         : Theme::Token::textSecondary;
    drawSymbol(painter, QRect(sidePadding + shownWidth + gap, 0, symbolSize, height()), Theme::color(ink));
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, rect(), Metric::tipRadius);
}

} // namespace zelta
