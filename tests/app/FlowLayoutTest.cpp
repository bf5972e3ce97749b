#include "app/components/FlowLayout.h"

#include "app/components/WrappingRow.h"

#include <gtest/gtest.h>

#include <limits>

using namespace zelta;

namespace {

Flow flow(const std::vector<QSizeF>& children, std::optional<double> width, double spacing = 8,
          double lineSpacing = 8)
{
    return measureFlow(children, width, spacing, lineSpacing);
}

std::vector<QSizeF> hundreds(std::size_t count)
{
    return std::vector<QSizeF>(count, QSizeF(100, 20));
}

} // namespace

TEST(FlowLayout, MeasuresNothingWithoutChildren)
{
    EXPECT_EQ(flow({}, 300).size, QSizeF(0, 0));
    EXPECT_EQ(flow({}, std::nullopt).size, QSizeF(0, 0));
}

TEST(FlowLayout, KeepsEverythingOnOneLineWhenTheWidthIsUnlimited)
{
    const Flow result = flow(hundreds(3), std::nullopt);
    EXPECT_EQ(result.size, QSizeF(316, 20));
    EXPECT_EQ(result.places[2].position, QPointF(216, 0));
}

TEST(FlowLayout, CountsTheSpacingWhenItWraps)
{
    const Flow three = flow(hundreds(3), 200);
    EXPECT_EQ(three.places[1].position, QPointF(0, 28));
    EXPECT_EQ(three.places[2].position, QPointF(0, 56));
    EXPECT_EQ(three.size, QSizeF(100, 76));

    const Flow two = flow(hundreds(3), 208);
    EXPECT_EQ(two.places[1].position, QPointF(108, 0));
    EXPECT_EQ(two.places[2].position, QPointF(0, 28));
    EXPECT_EQ(two.size, QSizeF(208, 48));
}

TEST(FlowLayout, CutsAChildThatIsWiderThanTheLine)
{
    const Flow result = flow({QSizeF(500, 20), QSizeF(50, 20)}, 200);
    EXPECT_EQ(result.places[0].position, QPointF(0, 0));
    EXPECT_EQ(result.places[0].size, QSizeF(200, 20));
    EXPECT_EQ(result.places[1].position, QPointF(0, 28));
    EXPECT_EQ(result.size, QSizeF(200, 48));
}

TEST(FlowLayout, LeavesNoEmptyFirstLine)
{
    const Flow result = flow({QSizeF(500, 20)}, 0);
    EXPECT_EQ(result.places[0].position, QPointF(0, 0));
    EXPECT_EQ(result.size, QSizeF(0, 20));
}

TEST(FlowLayout, GivesEachLineTheHeightOfItsTallestChild)
{
    const Flow result = flow({QSizeF(50, 10), QSizeF(50, 40), QSizeF(150, 20)}, 120, 5, 3);
    EXPECT_EQ(result.places[2].position, QPointF(0, 43));
    EXPECT_EQ(result.size, QSizeF(120, 63));
}

TEST(FlowLayout, CountsAnEndlessHeightAsNone)
{
    const Flow result = flow({QSizeF(50, std::numeric_limits<double>::infinity()), QSizeF(80, 20)}, 100);
    EXPECT_EQ(result.places[1].position, QPointF(0, 8));
    EXPECT_EQ(result.size, QSizeF(80, 28));
}

TEST(FlowLayout, WrapsWidgetsAndTellsTheHeightForAWidth)
{
    WrappingRow row(nullptr, 8, 6);
    std::vector<QWidget*> children;
    for (int i = 0; i < 3; ++i) {
        children.push_back(new QWidget);
        children.back()->setFixedSize(100, 20);
        row.add(children.back());
    }
    EXPECT_EQ(row.sizeHint(), QSize(316, 20));
    EXPECT_EQ(row.minimumSizeHint(), QSize(100, 20));
    EXPECT_EQ(row.heightForWidth(208), 46);
    EXPECT_EQ(row.heightForWidth(200), 72);

    row.resize(208, 46);
    row.show();
    EXPECT_EQ(children[1]->pos(), QPoint(108, 0));
    EXPECT_EQ(children[2]->pos(), QPoint(0, 26));
}

TEST(FlowLayout, LeavesOutHiddenWidgets)
{
    WrappingRow row;
    for (int i = 0; i < 3; ++i) {
        auto* child = new QWidget;
        child->setFixedSize(100, 20);
        row.add(child);
        child->setVisible(i != 1);
    }
    EXPECT_EQ(row.sizeHint(), QSize(208, 20));
}
