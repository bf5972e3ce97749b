#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QImage>
#include <QListView>
#include <algorithm>
#include <string>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

/// How the rows of the list look.
struct NotesListViewTest : testing::Test, test::NotesStage
{
    void openWith(const std::vector<std::string>& titles)
    {
        for (std::size_t i = 0; i < titles.size(); ++i)
            add({titles[i]}, std::chrono::minutes(i));
        open();
    }

    QListView& list() const { return *page->list()->list(); }

    QRect place(int row) const { return list().visualRect(list().model()->index(row, 0)); }

    QImage picture() const { return list().viewport()->grab().toImage(); }

    /// The first and the last column of the row's title that has ink, from the left edge of the texts, and
    /// their width.
    struct Ink
    {
        int first;
        int last;
        int width;
    };
    Ink titleInk(int row) const
    {
        constexpr int margin = 11;
        const QImage title = picture().copy(place(row).adjusted(1, 9, -1, -44));
        Ink ink {title.width(), -1, title.width() + 2 - 2 * margin};
        for (int x = 0; x < title.width(); ++x) {
            if (!isBlank(title.copy(x, 0, 1, title.height()))) {
                ink.first = std::min(ink.first, x + 1 - margin);
                ink.last = x + 1 - margin;
            }
        }
        return ink;
    }

    static bool isBlank(const QImage& part)
    {
        QImage plain(part.size(), part.format());
        plain.fill(part.pixelColor(0, 0));
        return part == plain;
    }
};

TEST_F(NotesListViewTest, ARowStandsOnTheSideWhereItsTitleBegins)
{
    add({"left"}, 1min);
    add({"ימין"});
    open();
    const QImage shown = picture();
    for (const int row : {1, 2}) {
        const QRect title(place(row).topLeft() + QPoint(12, 10),
                          QSize(60, 16)); // inside of what marks the selection
        EXPECT_EQ(isBlank(shown.copy(title)), row == 1) << row;
    }
}

TEST_F(NotesListViewTest, ARowShowsTallLettersWhole)
{
    add({"latin"}, 1min);
    add({"e\u0302\u0301\u0303\u0304"});
    open();
    const QImage shown = picture();
    const auto hasInkAboveTheTitle = [&](int row) {
        const QRect area = place(row);
        return !isBlank(shown.copy(QRect(area.left() + 12, area.top() + 4, area.width() - 24, 5)));
    };
    EXPECT_TRUE(hasInkAboveTheTitle(1)) << "marks above marks";
    EXPECT_FALSE(hasInkAboveTheTitle(2));
}

TEST_F(NotesListViewTest, APreviewIsReadInItsOwnDirection)
{
    add({"تقرير", "Done by 5 p.m. (really)!"});
    open();
    const QModelIndex row = list().model()->index(1, 0);
    EXPECT_TRUE(row.data(NoteListModel::isRightToLeftRole).toBool());
    EXPECT_FALSE(row.data(NoteListModel::isPreviewRightToLeftRole).toBool());
}

TEST_F(NotesListViewTest, APreviewIsDrawnInItsOwnDirection)
{
    add({"تقرير", "m............"});
    open();
    const QImage shown = picture();
    const QRect area = place(1);
    const QRect end(area.right() - 30, area.top() + 30, 18, 9); // above the line that dots stand on
    EXPECT_TRUE(isBlank(shown.copy(end))) << "the dots follow their letter";
}

TEST_F(NotesListViewTest, ALongTitleFillsItsLineAndEndsInAnEllipsis)
{
    const std::vector<std::string> titles {
        "The quick brown fox jumps over the lazy dog and on and on",
        std::string(400, 'i'),
        std::string(400, 'W'),
        "שלום עולם זה כותרת ארוכה מאוד שלא נכנסת בשורה אחת",
        "مرحبا بالعالم هذا عنوان طويل جدا لا يتسع في سطر واحد",
        "mixed שלום and עולם with numbers 123 456 and more words",
    };
    openWith(titles);
    page->resize(800, 900);
    constexpr int widestLetter = 20;
    for (int row = 1; row <= static_cast<int>(titles.size()); ++row) {
        const Ink ink = titleInk(row);
        EXPECT_GE(ink.first, -1) << row;
        EXPECT_LE(ink.last, ink.width) << row;
        EXPECT_GT(ink.last - ink.first, ink.width - widestLetter) << row;
    }
}

TEST_F(NotesListViewTest, AnEllipsisStandsForWhatIsCutAndForNothingElse)
{
    const std::string start = "A title that is longer than the list is wide by far";
    add({start + " and goes on"}, 0min);
    add({start + ", whatever follows"}, 1min);
    add({"A title that fits"}, 2min);
    add({"A title\tthat fits"}, 3min);
    open();
    page->list()->select(std::nullopt);
    const QImage whole = picture();
    const auto part = [&whole, this](int row) { return whole.copy(place(row).adjusted(8, 9, -8, -44)); };
    EXPECT_EQ(part(1), part(2));
    EXPECT_EQ(part(3), part(4)) << "a tab is a blank";
    constexpr int aboveDots = 9;
    const auto end = [&](int row) { return part(row).copy(titleInk(row).last - 2, 0, 6, aboveDots); };
    EXPECT_TRUE(isBlank(end(1)));
    EXPECT_FALSE(isBlank(end(3)));
}

TEST_F(NotesListViewTest, WhatFitsIsShownWhole)
{
    // More characters than usual letters have room, in less room than they have.
    const std::vector<std::string> titles {
        std::string(46, 'i'),
        "السَّلَامُ عَلَيْكُمْ وَرَحْمَةُ اللّٰهِ وَبَرَكَ",
        "בְּרֵאשִׁית בָּרָא אֱלֹהִים אֵת הַשָּׁמַיִם",
        "1) ill, 2) fill, 3) till, 4) ill - still, 5)",
    };
    openWith(titles);
    page->list()->select(std::nullopt);
    for (int row = 1; row <= static_cast<int>(titles.size()); ++row) {
        const QFontMetricsF metrics(Theme::font(Theme::FontRole::rowTitle));
        const double whole = metrics.horizontalAdvance(toQt(titles[static_cast<std::size_t>(row - 1)]));
        const Ink ink = titleInk(row);
        EXPECT_NEAR(ink.last - ink.first, whole, 5) << row;
        EXPECT_LT(whole, ink.width) << row;
    }
}

TEST_F(NotesListViewTest, RowsAreAsWideAsTheList)
{
    add({"title"});
    open();
    for (const int width : {700, 1000, 800}) {
        page->resize(width, 620);
        QCoreApplication::processEvents();
        EXPECT_EQ(place(1).width(), list().viewport()->width()) << width;
    }
}

} // namespace
} // namespace zelta
