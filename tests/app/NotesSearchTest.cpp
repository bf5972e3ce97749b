#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QListView>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using Texts = test::NotesStage::Texts;

/// A database in which each search takes a tenth of a second.
struct NotesSearch : testing::Test, test::NotesStage
{
    const Texts all {"Today", "apple", "pear", "peach"};

    void openSlowly()
    {
        add({"peach"}, 2min);
        add({"pear"}, 1min);
        add({"apple"});
        open();
        QObject::connect(&page->list()->model(), &QAbstractItemModel::modelReset, page.get(),
                         [this] { test.clock.setWallClock(test.clock.now() + 100ms); });
        search(QStringLiteral("p"));
        ASSERT_EQ(listed(), all) << "the first search runs at once";
    }
};

TEST_F(NotesSearch, ASlowOneLeavesTheTypingItsTime)
{
    openSlowly();
    search(QStringLiteral("pe"));
    search(QStringLiteral("pea"));
    test.clock.advance(50ms);
    search(QStringLiteral("pear"));
    test.clock.advance(49ms);
    EXPECT_EQ(listed(), all);
    test.clock.advance(1ms);
    EXPECT_EQ(listed(), (Texts {"Today", "pear"})) << "one search for all that was typed";
    EXPECT_EQ(shown(), Texts {"pear"});
}

TEST_F(NotesSearch, IsCarriedOutWhenItsFieldIsLeft)
{
    openSlowly();
    page->toolbar()->search->setFocus();
    search(QStringLiteral("peach"));
    EXPECT_EQ(listed(), all);
    page->list()->list()->setFocus();
    EXPECT_EQ(listed(), (Texts {"Today", "peach"}));
    EXPECT_EQ(shown(), Texts {"peach"});
}

TEST_F(NotesSearch, DownAndReturnGoOnToWhatWasFound)
{
    openSlowly();
    SearchField* field = page->toolbar()->search;
    QListView* list = page->list()->list();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter}) {
        search(QStringLiteral("p"));
        field->setFocus();
        search(QStringLiteral("peach"));
        QTest::keyClick(field, key);
        EXPECT_TRUE(list->hasFocus()) << key;
        EXPECT_EQ(list->currentIndex().data().toString(), QStringLiteral("peach"));
        EXPECT_EQ(shown(), Texts {"peach"});
    }
    field->setFocus();
    search(QStringLiteral("nowhere"));
    QTest::keyClick(field, Qt::Key_Down);
    EXPECT_TRUE(field->hasFocus()) << "nothing was found";
}

TEST_F(NotesSearch, EscapeAndTheCrossEmptyTheField)
{
    add({"apple"});
    open();
    SearchField* field = page->toolbar()->search;
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Search notes"));
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("pear"));
    EXPECT_TRUE(shows(QStringLiteral("No matches")));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(listed(), (Texts {"Today", "apple"}));
    QTest::keyClicks(field, QStringLiteral("pear"));
    field->clearButton()->setFocus();
    QTest::keyClick(field->clearButton(), Qt::Key_Space);
    EXPECT_EQ(field->text(), QString());
    EXPECT_TRUE(field->hasFocus());
}

} // namespace
} // namespace zelta
