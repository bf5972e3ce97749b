#include "app/components/SymbolIcon.h"

#include "app/look/Symbols.h"

#include <QPainter>

namespace zelta {

SymbolIcon::SymbolIcon(std::string_view symbol, int size, Theme::Token token, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_token(token)
{
    setFixedSize(size, size);
}

void SymbolIcon::setOpacity(double opacity)
{
    m_opacity = opacity;
    update();
}

void SymbolIcon::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setOpacity(m_opacity);
    Symbols::draw(painter, rect(), m_symbol, width(), Theme::color(m_token));
}

} // namespace zelta
