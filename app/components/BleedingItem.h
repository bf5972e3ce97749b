#pragma once

#include <QLayout>
#include <QMargins>

namespace zelta {

/// Lets a widget reach beyond the room that its layout gives it. The layout's margins align texts; the shade
/// of a hovered line extends past its text, and a layout's own margins cannot be negative.
class BleedingItem final : public QWidgetItem
{
public:
    /// How far the widget reaches beyond its place on each side.
    BleedingItem(QWidget* widget, const QMargins& reach)
        : QWidgetItem(widget)
        , m_reach(reach)
    { }

    void setGeometry(const QRect& rect) override { widget()->setGeometry(rect.marginsAdded(m_reach)); }
    [[nodiscard]] QSize sizeHint() const override { return lowered(QWidgetItem::sizeHint()); }
    [[nodiscard]] QSize minimumSize() const override { return lowered(QWidgetItem::minimumSize()); }
    [[nodiscard]] int heightForWidth(int width) const override
    {
        return QWidgetItem::heightForWidth(width + m_reach.left() + m_reach.right()) - m_reach.top()
            - m_reach.bottom();
    }

private:
    [[nodiscard]] QSize lowered(const QSize& size) const
    {
        return isEmpty() ? size : size - QSize(0, m_reach.top() + m_reach.bottom());
    }

    QMargins m_reach;
};

} // namespace zelta
