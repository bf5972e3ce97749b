#include "app/components/Columns.h"

#include <QLayout>
#include <algorithm>
#include <array>
#include <memory>

namespace zelta {

namespace {

/// Two items whose arrangement depends on the width, so that the height for a width is known beforehand.
class ColumnsLayout : public QLayout
{
public:
    ColumnsLayout(int minimumWidth, QWidget* parent)
        : QLayout(parent)
        , m_minimumWidth(minimumWidth)
    {
        setContentsMargins(0, 0, 0, 0);
    }

    void addItem(QLayoutItem* item) override { m_items.at(m_items[0] ? 1 : 0).reset(item); }

    [[nodiscard]] int count() const override
    {
        return static_cast<int>(
            std::ranges::count_if(m_items, [](const auto& item) { return item != nullptr; }));
    }

    [[nodiscard]] QLayoutItem* itemAt(int index) const override
    {
        return index >= 0 && index < count() ? m_items.at(static_cast<std::size_t>(index)).get() : nullptr;
    }

    QLayoutItem* takeAt(int index) override
    {
        if (index < 0 || index >= count())
            return nullptr;
        QLayoutItem* taken = m_items.at(static_cast<std::size_t>(index)).release();
        if (!m_items[0])
            m_items[0].swap(m_items[1]);
        return taken;
    }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override
    {
        if (fits(width)) {
            const int column = (width - Columns::gap) / 2;
            return std::max(height(0, column), height(1, width - Columns::gap - column));
        }
        return height(0, width) + Columns::gap + height(1, width);
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        const QSize left = m_items[0]->sizeHint();
        const QSize right = m_items[1]->sizeHint();
        const int column = std::max({left.width(), right.width(), m_minimumWidth});
        return {2 * column + Columns::gap, std::max(left.height(), right.height())};
    }

    [[nodiscard]] QSize minimumSize() const override
    {
        return m_items[0]->minimumSize().expandedTo(m_items[1]->minimumSize());
    }

    void setGeometry(const QRect& rect) override
    {
        QLayout::setGeometry(rect);
        if (fits(rect.width())) {
            const int column = (rect.width() - Columns::gap) / 2;
            const int second = rect.left() + column + Columns::gap;
            m_items[0]->setGeometry(QRect(rect.left(), rect.top(), column, rect.height()));
            m_items[1]->setGeometry(QRect(second, rect.top(), rect.right() + 1 - second, rect.height()));
            return;
        }
        const int above = height(0, rect.width());
        const int below = rect.top() + above + Columns::gap;
        m_items[0]->setGeometry(QRect(rect.left(), rect.top(), rect.width(), above));
        m_items[1]->setGeometry(QRect(rect.left(), below, rect.width(), rect.bottom() + 1 - below));
    }

private:
    [[nodiscard]] bool fits(int width) const { return width >= 2 * m_minimumWidth + Columns::gap; }

    [[nodiscard]] int height(std::size_t index, int width) const
    {
        QLayoutItem& item = *m_items.at(index);
        return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
    }

    int m_minimumWidth;
    std::array<std::unique_ptr<QLayoutItem>, 2> m_items;
};

} // namespace

Columns::Columns(int minimumWidth, QWidget* left, QWidget* right, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new ColumnsLayout(minimumWidth, this);
    layout->addWidget(left);
    layout->addWidget(right);
}

} // namespace zelta
