#include "app/components/Tag.h"

#include "app/look/Surface.h"

#include <QPainter>
#include <algorithm>

namespace zelta {

Tag::Tag(const Shape& shape, QWidget* parent)
    : Label({}, shape.role, Theme::Token::text, parent)
    , m_shape(shape)
{
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Tag::setColors(Theme::Token ink, Theme::Token fill, double opacity)
{
    setToken(ink);
    if (fill == m_fill && opacity == m_opacity)
        return;
    m_fill = fill;
    m_opacity = opacity;
    update();
}

QSize Tag::sizeHint() const
{
    const int text = Label::sizeHint().width();
    return {std::max(m_shape.minimumWidth, text + 2 * m_shape.sidePadding), m_shape.height};
}

QSize Tag::minimumSizeHint() const
{
    return sizeHint();
}

void Tag::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    QColor fill = Theme::color(m_fill);
    fill.setAlphaF(static_cast<float>(fill.alphaF() * m_opacity));
    Surface::draw(painter, rect(), m_shape.radius, fill);
    painter.end();
    Label::paintEvent(event);
}

} // namespace zelta
