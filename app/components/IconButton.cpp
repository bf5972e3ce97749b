#include "app/components/IconButton.h"

#include "app/look/Symbols.h"

#include <QPainter>
#include <algorithm>

namespace zelta {

IconButton::IconButton(std::string_view symbol, const QString& help, QWidget* parent)
    : Button({}, symbol, parent)
{
    setLook(Look::borderless);
    setHelp(help);
    setInk([this] {
        const bool prominent = underMouse() || this->look() == Look::bordered;
        return Theme::color(prominent ? Theme::Token::text : Theme::Token::textSecondary);
    });
}

void IconButton::setHelp(const QString& help)
{
    setToolTip(help);
    setAccessibleName(help);
}

void IconButton::setSide(int pixels)
{
    m_side = pixels;
    setSize(pixels < Metric::buttonHeight ? Size::small : Size::regular);
}

void IconButton::setSymbolSize(int pixels)
{
    m_symbolSize = pixels;
    update();
}

void IconButton::setConfirming(bool confirming)
{
    if (confirming)
        showConfirmation({});
    else
        clearConfirmation();
}

QSize IconButton::sizeHint() const
{
    return {m_side, m_side};
}

void IconButton::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int checkMark = 16;
    QPainter painter(this);
    paintSurface(painter);
    const int size = isConfirming() ? std::min(checkMark, m_symbolSize) : m_symbolSize;
    Symbols::draw(painter, rect(), shownSymbol(), size, inkColor());
}

} // namespace zelta
