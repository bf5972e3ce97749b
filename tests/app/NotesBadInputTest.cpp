#include "app/components/ConfirmDialog.h"
#include "app/pages/SearchPace.h"
#include "core/Sqlite.h"
#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QSignalSpy>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using Texts = test::NotesStage::Texts;

struct NotesBadInput : testing::Test, test::NotesStage
{
    /// Writes a blocks column as another program might.
    void setColumn(std::int64_t id, std::string_view blocks)
    {
        auto file = sqlite::Connection::open(store().url().string());
        auto statement = file.prepare("UPDATE notes SET blocks = ? WHERE id = ?");
        statement.bind(1, blocks);
        statement.bind(2, id);
        EXPECT_EQ(statement.step(), sqlite::Step::done);
    }
};

TEST_F(NotesBadInput, AColumnThatIsNoJsonIsOneParagraph)
{
    const std::int64_t id = add({"x"});
    for (const char* column : {"hello", "[]", R"([{"id":"bad","text":"x"}])", R"([{"text":"\ud800"}])", ""}) {
        setColumn(id, column);
        open();
        EXPECT_EQ(shown(), Texts {column});
        page->hide();
        EXPECT_FALSE(test.clock.hasPendingSaves()) << "looking at it changes nothing";
    }
}

TEST_F(NotesBadInput, TwoParagraphsOfOneIdAreBothKept)
{
    const std::int64_t id = add({"x"});
    const std::string uuid = Uuid::random().text();
    setColumn(id, R"([{"id":")" + uuid + R"(","text":"first"},{"id":")" + uuid + R"(","text":"second"}])");
    open();
    EXPECT_EQ(shown(), (Texts {"first", "second"}));
    type(1, QStringLiteral("!"));
    page->appendBlock();
    type(0, QStringLiteral("?"));
    page->undo();
    EXPECT_EQ(shown(), (Texts {"first", "second!"})) << "the step back takes the later typing along";
    test.clock.advance(1s);
    EXPECT_EQ(stored(id), (Texts {"first", "second!"}));
}

TEST_F(NotesBadInput, ANulAndRareCharactersStay)
{
    const std::string text = std::string("nul\0here", 8) + "\u00A0\u2028\r\n\uFDD0\uFFFE🙂";
    const std::int64_t id = add({text});
    open();
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    EXPECT_EQ(stored(id), Texts {text + "!"});
}

TEST_F(NotesBadInput, ANoteDeletedElsewhereWhileItIsOpen)
{
    const std::int64_t other = add({"other"}, 1h);
    const std::int64_t id = add({"open"});
    open();
    store().deleteNote(id);
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    EXPECT_FALSE(store().note(id).has_value()) << "a note that is gone stays gone";
    EXPECT_EQ(shown(), Texts {"open!"});
    page->appendBlock();
    page->undo();
    page->copyNote();
    page->open(other);
    EXPECT_EQ(shown(), Texts {"other"});
    page->load(OnReload::keepSelection);
    EXPECT_EQ(listed(), (Texts {"Today", "other"}));
    EXPECT_EQ(stored(other), Texts {"other"});
}

TEST_F(NotesBadInput, ANoteDeletedElsewhereLeavesTheListWhenItIsChosen)
{
    const std::int64_t gone = add({"gone"}, 1h);
    add({"open"});
    open();
    ASSERT_EQ(listed(), (Texts {"Today", "open", "gone"}));
    store().deleteNote(gone);
    page->open(gone);
    EXPECT_EQ(listed(), (Texts {"Today", "open"}));
    EXPECT_EQ(shown(), Texts {"open"});
}

TEST_F(NotesBadInput, WordsThatCouldNotBeWrittenAreThereWhenTheNoteIsOpenedAgain)
{
    const std::int64_t other = add({"other"}, 1h);
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER full BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'full'); END;");
    type(0, QStringLiteral("!"));
    page->open(other);
    EXPECT_EQ(stored(id), Texts {"kept"});
    EXPECT_EQ(listed(), (Texts {"Today", "kept!", "other"}));
    page->open(id);
    EXPECT_EQ(shown(), Texts {"kept!"});

    search(QStringLiteral("other"));
    EXPECT_EQ(shown(), Texts {"other"});
    search({});
    page->open(id);
    EXPECT_EQ(shown(), Texts {"kept!"}) << "also after the list was loaded anew";
    file.execute("DROP TRIGGER full;");
    page->flushSave();
    EXPECT_EQ(stored(id), Texts {"kept!"}) << "written as soon as that works again";
}

TEST_F(NotesBadInput, ATableThatIsAwayForAMomentTakesNoWordsWithIt)
{
    const std::int64_t other = add({"other"}, 1h);
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("ALTER TABLE notes RENAME TO away;");
    type(0, QStringLiteral("!"));
    page->open(other);
    file.execute("ALTER TABLE away RENAME TO notes;");
    page->load(OnReload::keepSelection);
    page->open(id);
    EXPECT_EQ(shown(), Texts {"kept!"});
    page->flushSave();
    EXPECT_EQ(stored(id), Texts {"kept!"});
    EXPECT_EQ(stored(other), Texts {"other"});
}

TEST_F(NotesBadInput, LateWordsThatCouldNotBeWrittenAreThereWhenTheNoteIsOpenedAgain)
{
    add({"open"});
    const std::int64_t id = add({"closed"}, 1h);
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER full BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'full'); END;");
    page->updateBlock(paragraphKeys(*store().note(id)).front(), id, "closed, late");
    page->updateBlock(paragraphKeys(*store().note(id)).front(), id, "closed, later");
    EXPECT_EQ(stored(id), Texts {"closed"});
    page->open(id);
    EXPECT_EQ(shown(), Texts {"closed, later"});
}

TEST_F(NotesBadInput, AWriteThatFailedIsTriedAgainByItself)
{
    const std::int64_t other = add({"other"}, 1h);
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    for (const bool isStillOpen : {true, false}) {
        file.execute("CREATE TRIGGER busy BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
        page->open(id);
        type(0, QStringLiteral("!"));
        test.clock.advance(950ms);
        if (!isStillOpen)
            page->open(other);
        test.clock.advance(3s);
        file.execute("DROP TRIGGER busy;");
        test.clock.advance(NotesView::longestRetryDelay);
        EXPECT_EQ(stored(id), Texts {isStillOpen ? "kept!" : "kept!!"});
        EXPECT_FALSE(test.clock.hasPendingSaves());
    }
}

TEST_F(NotesBadInput, WordsTypedAfterAFailedWriteAreNotOverwrittenByIt)
{
    const std::int64_t other = add({"other"}, 1h);
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER busy BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    file.execute("DROP TRIGGER busy;");
    type(0, QStringLiteral("?"));
    test.clock.advance(950ms);
    EXPECT_EQ(stored(id), Texts {"kept!?"});
    page->open(other);
    page->open(id);
    EXPECT_EQ(shown(), Texts {"kept!?"});
    test.clock.advance(NotesView::longestRetryDelay);
    EXPECT_EQ(stored(id), Texts {"kept!?"});
}

TEST_F(NotesBadInput, TriesBecomeRare)
{
    add({"kept"});
    open();
    sqlite::Connection::open(store().url().string())
        .execute("CREATE TRIGGER full BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'full'); END;");
    type(0, QStringLiteral("!"));
    const QSignalSpy tries(&page->list()->model(), &QAbstractItemModel::dataChanged);
    test.clock.advance(10min);
    EXPECT_GT(tries.count(), 10);
    EXPECT_LT(tries.count(), 30) << "each may wait a second for another program";
}

TEST_F(NotesBadInput, ANoteThatCannotBeDeletedStays)
{
    const std::int64_t id = add({"kept"});
    open();
    sqlite::Connection::open(store().url().string())
        .execute("CREATE TRIGGER busy BEFORE DELETE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
    page->carryOutDelete(id);
    EXPECT_EQ(listed(), (Texts {"Today", "kept"}));
    EXPECT_EQ(page->selectedID(), id);
    EXPECT_EQ(flash(), "");
}

TEST_F(NotesBadInput, TheEndWaitsForAFileThatIsBusyButNotForAFullDisk)
{
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER busy BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
    type(0, QStringLiteral("!"));
    test.clock.advance(10min);
    EXPECT_FALSE(test.clock.hasPendingSaves());
    page->hide();
    EXPECT_TRUE(test.clock.hasPendingSaves());
    test.clock.advance(NotesView::retryDelay);
    EXPECT_TRUE(test.clock.hasPendingSaves());
    file.execute("DROP TRIGGER busy;");
    test.clock.advance(2 * NotesView::retryDelay);
    EXPECT_EQ(stored(id), Texts {"kept!"});

    page->show();
    file.execute("CREATE TRIGGER full BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'full'); END;");
    type(0, QStringLiteral("!"));
    page->hide();
    test.clock.advance(3s);
    EXPECT_FALSE(test.clock.hasPendingSaves()) << "a closed program would end";
}

TEST_F(NotesBadInput, TheEndWaitsAlsoWhileAnotherPageIsShown)
{
    const std::int64_t id = add({"kept"});
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER busy BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
    type(0, QStringLiteral("!"));
    page->hide();
    test.clock.advance(10min);
    file.execute("DROP TRIGGER busy;");
    QCloseEvent close;
    QCoreApplication::sendEvent(page->window(), &close);
    EXPECT_TRUE(test.clock.hasPendingSaves());
    test.clock.advance(NotesView::retryDelay);
    EXPECT_EQ(stored(id), Texts {"kept!"});
    EXPECT_FALSE(test.clock.hasPendingSaves());
}

TEST_F(NotesBadInput, LateWordsThatCouldNotBeWrittenAreTriedAgain)
{
    add({"open"});
    const std::int64_t id = add({"closed"}, 1h);
    open();
    auto file = sqlite::Connection::open(store().url().string());
    file.execute("CREATE TRIGGER busy BEFORE UPDATE ON notes BEGIN SELECT RAISE(ABORT, 'busy'); END;");
    page->updateBlock(paragraphKeys(*store().note(id)).front(), id, "closed, late");
    file.execute("DROP TRIGGER busy;");
    test.clock.advance(NotesView::retryDelay);
    EXPECT_EQ(stored(id), Texts {"closed, late"});
}

TEST_F(NotesBadInput, SearchesForPatternsAndForAVeryLongText)
{
    add({"100 percent"}, 2h);
    add({"a_b"}, 1h);
    add({"plain"});
    open();
    search(QStringLiteral("%"));
    EXPECT_EQ(page->notes().size(), 3U);
    search(QStringLiteral("100%"));
    EXPECT_EQ(page->notes().size(), 1U);
    search(QStringLiteral("_"));
    EXPECT_EQ(page->notes().size(), 3U);
    search(QString(10'000, u'x'));
    EXPECT_TRUE(shows(QStringLiteral("No matches")));
    search(QString(10'000, u'%'));
    search(QStringLiteral(" \n "));
    EXPECT_EQ(page->notes().size(), 3U);
}

TEST_F(NotesBadInput, TenMegabytesInOneParagraph)
{
    std::string text;
    while (text.size() < 10'000'000)
        text += "ten million characters without a line break ";
    const std::int64_t id = add({text});
    open();
    ASSERT_EQ(rows().size(), 1U);
    EXPECT_EQ(toUtf8(rows()[0]->editor()->text()), text);
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    EXPECT_EQ(stored(id), Texts {text + "!"});
    page->askToDelete();
    for (const QLabel* label : page->findChild<ConfirmDialog*>()->findChildren<QLabel*>())
        EXPECT_LT(label->text().size(), 400);
    page->copyNote();
    EXPECT_EQ(toUtf8(QGuiApplication::clipboard()->text()), text + "!");
}

TEST_F(NotesBadInput, TheQuestionEndsATitleThatIsCutOrTurned)
{
    const auto asked = [this](const std::string& title) {
        add({title});
        open();
        page->askToDelete();
        for (const QLabel* label : page->findChild<ConfirmDialog*>()->findChildren<QLabel*>()) {
            if (const QString text = label->text(); text.startsWith(QChar(0x201C)))
                return text.left(text.indexOf(QChar(0x201D)));
        }
        return QString();
    };
    EXPECT_EQ(asked(std::string(200, 'a')), QChar(0x201C) + QString(200, u'a'));
    test.clock.advance(1s);
    EXPECT_EQ(asked(std::string(201, 'a')), QChar(0x201C) + QString(200, u'a') + QChar(0x2026));
    test.clock.advance(1s);
    EXPECT_EQ(asked("\u202Eabc"), QStringLiteral(u"\u201C\u202Eabc\u202C"))
        << "the rest of the question is read in its own direction";
}

TEST_F(NotesBadInput, AThousandParagraphsMakeOnlyTheirVisibleRows)
{
    const std::int64_t id = add(Texts(1000, "one of a thousand paragraphs"));
    open();
    EXPECT_LT(rows().size(), 100U);
    page->pane()->paragraphs()->focusParagraph(999);
    rows().back()->editor()->insertPlainText(QStringLiteral("last: "));
    test.clock.advance(950ms);
    EXPECT_EQ(stored(id).back(), "last: one of a thousand paragraphs");
    EXPECT_EQ(stored(id).size(), 1000U);
    EXPECT_TRUE(rows().back()->visibleRegion().boundingRect().height() > 30) << "scrolled into sight";
}

TEST(SearchPace, WaitsAsLongAsASlowSearchTook)
{
    SearchPace pace;
    EXPECT_EQ(pace.wait(), 0ms) << "the first search runs at once";
    pace.took(16ms);
    EXPECT_EQ(pace.wait(), 0ms);
    pace.took(16'001us);
    EXPECT_EQ(pace.wait(), 17ms);
    pace.took(10min);
    EXPECT_EQ(pace.wait(), 500ms) << "the wall clock was set meanwhile";
    pace.took(-1s);
    EXPECT_EQ(pace.wait(), 0ms);
}

} // namespace
} // namespace zelta
