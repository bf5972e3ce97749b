#include "app/components/Line.h"

#include <QPainter>

namespace zelta {

Line::Line(QWidget* parent, Theme::Token token)
    : QWidget(parent)
    , m_token(token)
{
    setFixedHeight(1);
}

void Line::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme::color(m_token));
}

} // namespace zelta
