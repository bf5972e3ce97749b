#include "app/components/FlowLayout.h"

#include <QWidget>
#include <QtMath>
#include <algorithm>
#include <cmath>
#include <limits>

namespace zelta {

Flow measureFlow(std::span<const QSizeF> children, std::optional<double> availableWidth, double spacing,
                 double lineSpacing)
{
    const double available = availableWidth.value_or(std::numeric_limits<double>::infinity());
    Flow flow;
    double x = 0;
    double y = 0;
    double lineHeight = 0;
    double widest = 0;
    for (const QSizeF& ideal : children) {
        const double width = std::min(ideal.width(), available);
        if (x > 0 && x + width > available) {
            y += lineHeight + lineSpacing;
            x = 0;
            lineHeight = 0;
        }
        flow.places.push_back({QPointF(x, y), QSizeF(width, ideal.height())});
        x += width + spacing;
        lineHeight = std::max(lineHeight, std::isfinite(ideal.height()) ? ideal.height() : 0.0);
        widest = std::max(widest, x - spacing);
    }
    flow.size = QSizeF(std::min(available, widest), y + lineHeight);
    return flow;
}

FlowLayout::FlowLayout(QWidget* parent, int spacing, int lineSpacing)
    : QLayout(parent)
    , m_lineSpacing(lineSpacing)
{
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

void FlowLayout::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* taken = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return taken;
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    const double inner = std::max(0, width - margins.left() - margins.right());
    return qCeil(measure(inner).size.height()) + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const
{
    const QMargins margins = contentsMargins();
    const QSizeF size = measure(std::nullopt).size;
    return {qCeil(size.width()) + margins.left() + margins.right(),
            qCeil(size.height()) + margins.top() + margins.bottom()};
}

/// Any child alone on its line: narrower than that, children are cut.
QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : visibleItems())
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect inner = contentsRect();
    const Flow flow = measure(inner.width());
    const std::vector<QLayoutItem*> items = visibleItems();
    for (std::size_t i = 0; i < items.size(); ++i) {
        const Flow::Place& place = flow.places.at(i);
        items[i]->setGeometry(QRect(inner.topLeft() + place.position.toPoint(), place.size.toSize()));
    }
}

Flow FlowLayout::measure(std::optional<double> width) const
{
    std::vector<QSizeF> sizes;
    for (QLayoutItem* item : visibleItems()) {
        QSize size = item->sizeHint().expandedTo(item->minimumSize());
        // A child that wraps its own text grows taller when it is cut to the line.
        if (width && size.width() > *width && item->hasHeightForWidth())
            size.setHeight(item->heightForWidth(qFloor(*width)));
        sizes.emplace_back(size);
    }
    return measureFlow(sizes, width, spacing(), m_lineSpacing);
}

std::vector<QLayoutItem*> FlowLayout::visibleItems() const
{
    std::vector<QLayoutItem*> items;
    for (const auto& item : m_items) {
        if (!item->isEmpty())
            items.push_back(item.get());
    }
    return items;
}

} // namespace zelta
