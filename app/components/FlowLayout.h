#pragma once

#include <QLayout>
#include <QPointF>
#include <QSizeF>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace zelta {

/// Where the children of a flow go, and how much room they take together.
struct Flow
{
    struct Place
    {
        QPointF position;
        QSizeF size;

        friend bool operator==(const Place&, const Place&) = default;
    };

    std::vector<Place> places;
    QSizeF size;
};

/// Places children of these ideal sizes left to right and wraps them onto new lines where the available width
/// (none: unlimited) ends. A child wider than that is cut to it, so a first child never leaves an empty line
/// above it.
///
/// Three children 100 wide, 8 apart: a width of 200 takes three lines, 208 takes two.
Flow measureFlow(std::span<const QSizeF> children, std::optional<double> availableWidth, double spacing,
                 double lineSpacing);

/// A layout that wraps like words do; each child keeps its ideal size, each line's children hang from its
/// top.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    static constexpr int defaultSpacing = 8;

    explicit FlowLayout(QWidget* parent = nullptr, int spacing = defaultSpacing,
                        int lineSpacing = defaultSpacing);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    [[nodiscard]] Flow measure(std::optional<double> width) const;
    [[nodiscard]] std::vector<QLayoutItem*> visibleItems() const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    int m_lineSpacing;
};

} // namespace zelta
