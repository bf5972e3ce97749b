#include "app/components/SpreadRow.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

namespace zelta {
namespace {

/// Two boxes 100 and 150 wide, 20 high, in a row of a given width.
struct Stage
{
    QWidget window;
    QLabel* first = new QLabel(&window);
    QLabel* second = new QLabel(&window);
    SpreadRow* row = nullptr;

    explicit Stage(int width)
    {
        first->setFixedSize(100, 20);
        second->setFixedSize(150, 20);
        row = new SpreadRow(first, second, &window);
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(row);
        column->addStretch(1);
        window.show();
        resize(width);
    }

    void resize(int width)
    {
        window.resize(width, 200);
        EXPECT_TRUE(QTest::qWaitFor([this, width] { return row->width() == width; }));
        // The row asks its column for another height, the column then lays the row out again: a few turns.
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::sendPostedEvents();
    }
};

TEST(SpreadRow, StandsAtBothEndsWhereThereIsRoom)
{
    const Stage stage(400);
    EXPECT_EQ(stage.first->x(), 0);
    EXPECT_EQ(stage.second->pos(), QPoint(250, 0));
}

TEST(SpreadRow, WrapsWhereThereIsNone)
{
    Stage stage(100 + SpreadRow::gap + 150);
    EXPECT_EQ(stage.second->y(), 0);
    stage.resize(100 + SpreadRow::gap + 149);
    EXPECT_EQ(stage.second->pos(), QPoint(0, 20 + SpreadRow::gap));
    EXPECT_EQ(stage.row->height(), 40 + SpreadRow::gap);
    stage.resize(400);
    EXPECT_EQ(stage.second->pos(), QPoint(250, 0));
    EXPECT_EQ(stage.row->height(), 20);
}

} // namespace
} // namespace zelta
