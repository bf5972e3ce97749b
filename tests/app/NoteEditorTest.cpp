#include "app/components/IconButton.h"
#include "tests/app/support/ParagraphStage.h"
#include "tests/app/support/StandInInputMethod.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextBlock>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using test::longLine;
using Stage = test::ParagraphStage;

TEST(ParagraphEditor, TurnsWithTheMajorityOfItsLetters)
{
    Stage stage;
    stage.type(QStringLiteral("م"));
    EXPECT_EQ(stage.editor.direction(), TextDirection::rightToLeft);
    stage.type(QStringLiteral("a"));
    EXPECT_EQ(stage.editor.direction(), TextDirection::leftToRight) << "a tie";
    stage.type(QStringLiteral("רב"));
    EXPECT_EQ(stage.editor.direction(), TextDirection::rightToLeft);
    EXPECT_EQ(stage.editor.document()->defaultTextOption().textDirection(), Qt::RightToLeft);
}

TEST(ParagraphEditor, ATurnIsNoUndoStep)
{
    Stage stage;
    stage.type(QStringLiteral("مab"));
    stage.undo();
    EXPECT_EQ(stage.editor.text(), QString()) << "one run of typing, whatever turned on the way";
    EXPECT_EQ(stage.editor.direction(), TextDirection::leftToRight);
    EXPECT_FALSE(stage.editor.document()->isUndoAvailable());
    stage.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(stage.editor.text(), QStringLiteral("مab"));
}

TEST(ParagraphEditor, UndoRightAfterOpeningChangesNothing)
{
    for (const char* text : {"plain", "مرحبا بالعالم", "two\nlines"}) {
        Stage stage(text);
        stage.undo();
        EXPECT_EQ(stage.editor.text().toStdString(), text);
        EXPECT_FALSE(stage.editor.document()->isUndoAvailable());
        stage.clock.advance(1s);
        EXPECT_TRUE(stage.published.empty());
    }
}

TEST(ParagraphEditor, ATextSetFromOutsideCannotBeUndone)
{
    Stage stage("first");
    stage.type(QStringLiteral("x"));
    stage.row.publishNow();
    stage.row.setValue("second");
    stage.undo();
    EXPECT_EQ(stage.editor.text(), QStringLiteral("second"));
}

TEST(ParagraphEditor, UndoesOnlyItsOwnTyping)
{
    Stage one("one");
    Stage two("two");
    one.type(QStringLiteral("1"));
    two.type(QStringLiteral("2"));
    one.undo();
    EXPECT_EQ(one.editor.text(), QStringLiteral("one"));
    EXPECT_EQ(two.editor.text(), QStringLiteral("2two"));
}

TEST(ParagraphEditor, KeepsItsSelectionForAMenuAndAnotherWindowOnly)
{
    for (const auto& [reason, isKept] : {std::pair(Qt::PopupFocusReason, true),
                                         {Qt::MenuBarFocusReason, true},
                                         {Qt::ActiveWindowFocusReason, true},
                                         {Qt::MouseFocusReason, false},
                                         {Qt::TabFocusReason, false}}) {
        Stage stage("text");
        stage.editor.selectAll();
        QFocusEvent out(QEvent::FocusOut, reason);
        QCoreApplication::sendEvent(&stage.editor, &out);
        EXPECT_EQ(stage.editor.textCursor().hasSelection(), isKept) << reason;
    }
}

TEST(ParagraphEditor, RightToLeftLinesStandAtTheRight)
{
    Stage stage("שלום");
    stage.key(Qt::Key_Home);
    EXPECT_GT(stage.editor.cursorRect().x(), stage.editor.width() - 30);
    stage.editor.setText(QStringLiteral("left"));
    stage.key(Qt::Key_Home);
    EXPECT_LT(stage.editor.cursorRect().x(), 30);
}

TEST(ParagraphEditor, RareCharactersSurviveTyping)
{
    const std::string text = "a\u00A0b\u2028c\r\nd\re\u2029f \u200Fg";
    Stage stage(text);
    stage.key(Qt::Key_End, Qt::ControlModifier);
    stage.type(QStringLiteral("!"));
    stage.row.publishNow();
    ASSERT_EQ(stage.published.size(), 1U);
    EXPECT_EQ(stage.published[0], text + "!");
}

TEST(ParagraphEditor, KeepsTheCaretInsideAShorterText)
{
    Stage stage("a longer text");
    stage.setCaret(10);
    stage.row.setValue("a longer one");
    EXPECT_EQ(stage.caret(), 10);
    stage.row.setValue("short");
    EXPECT_EQ(stage.caret(), 5);
    stage.row.setValue("");
    EXPECT_EQ(stage.caret(), 0);
    stage.row.setValue("abc");
    stage.setCaret(3);
    stage.row.setValue("ab😀");
    EXPECT_EQ(stage.caret(), 2) << "not in the middle of a character";
}

TEST(ParagraphEditor, StyledTextArrivesPlain)
{
    const auto paste = [](Stage& stage, bool withText) {
        auto* styled = new QMimeData;
        styled->setHtml(QStringLiteral("<h1 style='color:red'>Big</h1>"));
        if (withText)
            styled->setText(QStringLiteral("Big"));
        QGuiApplication::clipboard()->setMimeData(styled);
        stage.editor.paste();
    };
    for (const bool withText : {true, false}) {
        Stage stage;
        paste(stage, withText);
        EXPECT_EQ(stage.editor.text(), QStringLiteral("Big"));
        const QTextCharFormat format = stage.editor.document()->begin().begin().fragment().charFormat();
        EXPECT_EQ(format.properties().size(), 0);
        EXPECT_EQ(stage.editor.document()->defaultFont().pixelSize(), 15);
        stage.undo();
        EXPECT_EQ(stage.editor.text(), QString());
    }
}

TEST(ParagraphEditor, APasteIsAnUndoStepOfItsOwn)
{
    Stage stage;
    QGuiApplication::clipboard()->setText(QStringLiteral("pasted "));
    stage.type(QStringLiteral("one "));
    stage.editor.paste();
    stage.type(QStringLiteral("two"));
    const auto undone = [&stage] {
        stage.undo();
        return stage.editor.text();
    };
    EXPECT_EQ(undone(), QStringLiteral("one pasted "));
    EXPECT_EQ(undone(), QStringLiteral("one "));
    EXPECT_EQ(undone(), QString());
}

TEST(ParagraphEditor, StyledTextKeepsItsCharacters)
{
    Stage stage;
    auto* styled = new QMimeData;
    styled->setHtml(QStringLiteral("a&nbsp;b<br>c<img src='x.png'>d<p>e</p>"));
    QGuiApplication::clipboard()->setMimeData(styled);
    stage.editor.paste();
    EXPECT_EQ(stage.editor.text(), QStringLiteral("a\u00A0b\ncd\ne"));
}

TEST(ParagraphEditor, TakesTextThatIsOfferedInOneEncodingOnly)
{
    Stage stage;
    auto* data = new QMimeData;
    data->setData(QStringLiteral("text/plain;charset=utf-8"), "1é2");
    QGuiApplication::clipboard()->setMimeData(data);
    EXPECT_TRUE(stage.editor.canPaste());
    stage.editor.paste();
    EXPECT_EQ(stage.editor.text(), QStringLiteral("1é2"));
}

TEST(ParagraphEditor, TabLeavesIt)
{
    Stage stage("text");
    stage.key(Qt::Key_Tab);
    EXPECT_TRUE(stage.row.removeButton()->hasFocus());
    EXPECT_EQ(stage.editor.text(), QStringLiteral("text"));
    EXPECT_EQ(stage.row.removeButton()->accessibleName(), QStringLiteral("Remove this paragraph"));
}

TEST(ParagraphEditor, IsAsHighAsItsText)
{
    Stage stage("one");
    EXPECT_EQ(stage.editor.textHeight(), 8 + 21 + 8);
    stage.key(Qt::Key_End);
    stage.key(Qt::Key_Return);
    stage.key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(stage.editor.text(), QStringLiteral("one\n\n"));
    EXPECT_EQ(stage.editor.textHeight(), 8 + 3 * 21 + 8);
    stage.undo();
    stage.undo();
    EXPECT_EQ(stage.editor.textHeight(), 8 + 21 + 8);
    stage.row.setMinHeight(440);
    EXPECT_EQ(stage.row.preferredHeight(), 440);
    stage.row.setMinHeight(34);
    EXPECT_EQ(stage.row.preferredHeight(), 37);
}

TEST(ParagraphEditor, GrowsWhenItGetsNarrower)
{
    Stage stage(longLine(300).toStdString());
    const int wide = stage.editor.textHeight();
    stage.row.resize(250, 400);
    EXPECT_GT(stage.editor.textHeight(), wide);
}

TEST(ParagraphRow, HandsOnAfterAPause)
{
    Stage stage("a");
    stage.type(QStringLiteral("b"));
    stage.clock.advance(349ms);
    EXPECT_TRUE(stage.published.empty());
    EXPECT_TRUE(stage.clock.hasPendingSaves());
    stage.clock.advance(1ms);
    EXPECT_EQ(stage.published, std::vector<std::string> {"ba"});
    stage.clock.advance(10s);
    EXPECT_EQ(stage.published.size(), 1U);
}

TEST(ParagraphRow, FastTypingIsHandedOnOnce)
{
    Stage stage;
    for (int i = 0; i < 20; ++i) {
        stage.type(QStringLiteral("x"));
        stage.clock.advance(100ms);
    }
    EXPECT_TRUE(stage.published.empty());
    stage.clock.advance(249ms);
    EXPECT_TRUE(stage.published.empty());
    stage.clock.advance(1ms);
    EXPECT_EQ(stage.published, std::vector<std::string> {std::string(20, 'x')});
}

TEST(ParagraphRow, HandsOnAtOnceWhenItLeavesTheScreen)
{
    Stage stage;
    stage.type(QStringLiteral("typed"));
    stage.row.hide();
    EXPECT_EQ(stage.published, std::vector<std::string> {"typed"});
    EXPECT_FALSE(stage.clock.hasPendingSaves());
}

TEST(ParagraphRow, APauseLeavesACompositionOpen)
{
    using namespace test::StandInInputMethod;
    Stage stage;
    stage.type(QStringLiteral("x"));
    compose(stage.editor, QStringLiteral("ni"));
    stage.clock.advance(1s);
    EXPECT_EQ(composed(), QStringLiteral("ni"));
    EXPECT_EQ(stage.published, std::vector<std::string> {"x"});
    stage.row.publishNow();
    EXPECT_EQ(composed(), QString());
    EXPECT_EQ(stage.published.back(), "xni") << "whoever asks gets all of it";
}

TEST(ParagraphRow, HandsOnNothingThatWasNotTyped)
{
    Stage stage("as\u00A0it\r\nwas");
    stage.row.hide();
    stage.row.publishNow();
    EXPECT_TRUE(stage.published.empty());
    stage.row.show();
    stage.type(QStringLiteral("x"));
    stage.key(Qt::Key_Backspace);
    stage.clock.advance(1s);
    EXPECT_TRUE(stage.published.empty()) << "the same text again";
}

TEST(LongLine, IsEditedAsOneLine)
{
    const QString text = longLine(100'000);
    Stage stage(text.toStdString());
    const int piece = stage.editor.document()->begin().length() - 1;
    ASSERT_GT(stage.editor.document()->blockCount(), 1);

    stage.setCaret(piece);
    stage.key(Qt::Key_Right);
    EXPECT_EQ(stage.caret(), piece + 2) << "over the break and one character";
    stage.key(Qt::Key_Left);
    stage.key(Qt::Key_Left);
    EXPECT_EQ(stage.caret(), piece - 1);

    stage.setCaret(piece + 1);
    stage.key(Qt::Key_Backspace);
    EXPECT_EQ(stage.editor.text(), QString(text).remove(piece - 1, 1));
    stage.undo();
    EXPECT_EQ(stage.editor.text(), text);
    stage.setCaret(piece);
    stage.key(Qt::Key_Delete);
    EXPECT_EQ(stage.editor.text(), QString(text).remove(piece, 1));
    stage.undo();
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
        stage.setCaret(key == Qt::Key_Delete ? piece - 2 : piece + 3);
        QTextCursor selected = stage.editor.textCursor();
        selected.setPosition(key == Qt::Key_Delete ? piece : piece + 1, QTextCursor::KeepAnchor);
        stage.editor.setTextCursor(selected);
        stage.key(key);
        EXPECT_EQ(stage.editor.text(), QString(text).remove(key == Qt::Key_Delete ? piece - 2 : piece, 2));
        stage.undo();
    }
    stage.setCaret(piece + 1);
    stage.key(Qt::Key_Return);
    EXPECT_EQ(stage.editor.text(), QString(text).insert(piece, u'\n'));
    stage.undo();
    EXPECT_EQ(stage.editor.text(), text);
}

TEST(LongLine, IsCopiedAndPastedAsOneLine)
{
    const QString text = longLine(100'000);
    Stage stage(text.toStdString());
    stage.editor.selectAll();
    stage.editor.copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    stage.editor.cut();
    EXPECT_EQ(stage.editor.text(), QString());
    stage.editor.paste();
    EXPECT_EQ(stage.editor.text(), text);
    EXPECT_GT(stage.editor.document()->blockCount(), 1);
    stage.undo();
    stage.undo();
    EXPECT_EQ(stage.editor.text(), text);
}

} // namespace
} // namespace zelta
