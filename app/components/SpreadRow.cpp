#include "app/components/SpreadRow.h"

#include <QBoxLayout>
#include <QEvent>
#include <algorithm>

namespace zelta {

SpreadRow::SpreadRow(QWidget* first, QWidget* second, QWidget* parent)
    : QWidget(parent)
    , m_first(first)
    , m_second(second)
    , m_layout(new QBoxLayout(QBoxLayout::LeftToRight, this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(gap);
    m_layout->addWidget(first, 0, Qt::AlignLeft | Qt::AlignVCenter);
    m_layout->addWidget(second, 0, Qt::AlignRight | Qt::AlignVCenter);
}

QSize SpreadRow::minimumSizeHint() const
{
    const int width = std::max(m_first->minimumSizeHint().width(), m_second->minimumSizeHint().width());
    return {width, m_layout->minimumSize().height()};
}

bool SpreadRow::event(QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void SpreadRow::arrange()
{
    const bool fits = width() >= m_first->sizeHint().width() + gap + m_second->sizeHint().width();
    const auto direction = fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    // Each change of the layout asks for another arrangement: without this check it would never come to rest.
    if (m_layout->direction() == direction)
        return;
    m_layout->setDirection(direction);
    m_layout->setAlignment(m_second, (fits ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

} // namespace zelta
