#include "app/components/Line.h"

#include "app/look/Theme.h"

#include <QPainter>

namespace zelta {

Line::Line(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(1);
}

void Line::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme::color(Theme::Token::divider));
}

} // namespace zelta
