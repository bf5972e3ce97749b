#include "tests/app/support/Accessible.h"
#include "tests/app/support/ParagraphStage.h"
#include "tests/app/support/StandInInputMethod.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QInputMethod>
#include <QTextBlock>
#include <QTextLayout>
#include <set>

namespace zelta {
namespace {

using test::longLine;
using Stage = test::ParagraphStage;

TEST(ParagraphCaret, TheCaretMovesAsItIsSeen)
{
    Stage hebrew("שלום");
    hebrew.setCaret(2);
    hebrew.key(Qt::Key_Right);
    EXPECT_EQ(hebrew.caret(), 1) << "to the right is towards the beginning";
    hebrew.key(Qt::Key_Left);
    hebrew.key(Qt::Key_Left);
    EXPECT_EQ(hebrew.caret(), 3);
    hebrew.key(Qt::Key_Home);
    EXPECT_EQ(hebrew.caret(), 0);
    const QRect start = hebrew.editor.cursorRect();
    hebrew.key(Qt::Key_End);
    EXPECT_LT(hebrew.editor.cursorRect().x(), start.x());

    Stage english("word");
    english.setCaret(2);
    english.key(Qt::Key_Right);
    EXPECT_EQ(english.caret(), 3);
}

TEST(ParagraphCaret, TheCaretMovesRightThroughMixedText)
{
    Stage stage("שלום abc עולם ודי");
    ASSERT_EQ(stage.editor.direction(), TextDirection::rightToLeft);
    stage.key(Qt::Key_End);
    int x = stage.editor.cursorRect().x();
    const int text = int(stage.editor.text().size());
    for (int i = 0; i < text; ++i) {
        stage.key(Qt::Key_Right);
        EXPECT_GE(stage.editor.cursorRect().x(), x) << "step " << i;
        x = stage.editor.cursorRect().x();
    }
    EXPECT_EQ(stage.caret(), 0);
}

/// Where an arrow takes the caret on its way through the text from where another key has put it.
std::set<int> stops(Stage& stage, Qt::Key start, Qt::Key step, Qt::KeyboardModifiers modifiers = {})
{
    stage.key(start);
    std::set<int> found {stage.caret()};
    for (int i = 0; i < stage.editor.document()->characterCount(); ++i) {
        stage.key(step, modifiers);
        found.insert(stage.caret());
    }
    return found;
}

/// Between the characters as a person counts them.
std::set<int> characterBoundaries(const Stage& stage)
{
    const QTextBlock block = stage.editor.document()->firstBlock();
    std::set<int> found;
    for (int position = 0; position < block.length(); ++position) {
        if (block.layout()->isValidCursorPosition(position))
            found.insert(position);
    }
    return found;
}

TEST(ParagraphCaret, TheCaretStopsBetweenCharactersAndNowhereElse)
{
    // An emoji of two code units, flags of four, vowel marks.
    for (const char* text : {"שלום 😀 עולם", "מַיִם", "مَرْحَبًا", "a 🇩🇪🇫🇷 e\u0301 z"}) {
        Stage stage(text);
        const std::set<int> boundaries = characterBoundaries(stage);
        ASSERT_LT(boundaries.size(), static_cast<std::size_t>(stage.editor.document()->characterCount()))
            << text;
        const bool isRightToLeft = stage.editor.direction() == TextDirection::rightToLeft;
        const Qt::Key forward = isRightToLeft ? Qt::Key_Left : Qt::Key_Right;
        const Qt::Key back = isRightToLeft ? Qt::Key_Right : Qt::Key_Left;
        for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
            EXPECT_EQ(stops(stage, Qt::Key_Home, forward, modifier), boundaries) << text;
            EXPECT_EQ(stops(stage, Qt::Key_End, back, modifier), boundaries) << text;
        }
    }
}

TEST(ParagraphCaret, TheCaretStopsBetweenCharactersWhereDirectionsMeet)
{
    for (const char* text : {"abc שלום😀עולם def", "שלום 🇩🇪 e\u0301", "a שָׁלוֹם b"}) {
        Stage stage(text);
        const std::set<int> boundaries = characterBoundaries(stage);
        for (const Qt::Key start : {Qt::Key_Home, Qt::Key_End}) {
            for (const Qt::Key step : {Qt::Key_Left, Qt::Key_Right}) {
                for (const int stop : stops(stage, start, step))
                    EXPECT_TRUE(boundaries.contains(stop)) << text << " at " << stop;
            }
        }
    }
}

TEST(ParagraphCaret, ArrowsThatAnInputMethodPassesOnStayInTheText)
{
    for (const char* text : {"ש", "", "a", "שלום", "a שלום"}) {
        for (const Qt::Key step : {Qt::Key_Left, Qt::Key_Right}) {
            Stage stage(text);
            stage.key(Qt::Key_End);
            test::StandInInputMethod::compose(stage.editor, QStringLiteral("ni"));
            for (int i = 0; i < 12; ++i) {
                stage.key(step, i % 2 == 0 ? Qt::NoModifier : Qt::ShiftModifier);
                ASSERT_LT(stage.caret(), stage.editor.document()->characterCount()) << text;
            }
            QGuiApplication::inputMethod()->commit();
        }
    }
}

TEST(ParagraphCaret, DeletesWholeCharactersFromRightToLeft)
{
    Stage stage("שלום 😀 עולם");
    stage.key(Qt::Key_Home);
    for (int i = 0; i < 6; ++i)
        stage.key(Qt::Key_Left);
    stage.key(Qt::Key_Backspace);
    EXPECT_EQ(stage.editor.text(), QStringLiteral("שלום  עולם"));
}

TEST(ParagraphCaret, BackspaceTakesAPictureAsAWholeAndMarksOneByOne)
{
    struct Case
    {
        const char16_t* text;
        int caret;
        const char16_t* rest;
    };
    for (const Case& each : {Case {u"🇩🇪🇫🇷🇯🇵", 4, u"🇫🇷🇯🇵"},
                             {u"a👨‍👩‍👧‍👦", 12, u"a"},
                             {u"1️⃣", 3, u""},
                             {u"1\u20E3", 2, u""},
                             {u"❤\uFE0F", 2, u""},
                             {u"👍🏻👍🏿!", 8, u"👍🏻!"},
                             {u"👍🏻!", 4, u"!"},
                             {u"🏴\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F", 14, u""},
                             {u"x😀", 3, u"x"},
                             {u"e\u0301", 2, u"e"},
                             {u"שָ", 2, u"ש"}}) {
        const QString text = QString::fromUtf16(each.text);
        Stage stage(text.toStdString());
        for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
            stage.setCaret(each.caret);
            stage.key(Qt::Key_Backspace, modifier);
            EXPECT_EQ(stage.editor.text(), QString::fromUtf16(each.rest)) << qPrintable(text) << modifier;
            stage.undo();
            EXPECT_EQ(stage.editor.text(), text);
        }
    }
}

TEST(ParagraphCaret, BackspaceBehindAPictureStillTakesASelectionOrAWord)
{
    Stage selected("ab👍🏿");
    selected.setCaret(1);
    selected.key(Qt::Key_End, Qt::ShiftModifier);
    selected.key(Qt::Key_Backspace);
    EXPECT_EQ(selected.editor.text(), QStringLiteral("a"));

    Stage words("one 🇩🇪🇫🇷");
    words.key(Qt::Key_End);
    words.key(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(words.editor.text(), QStringLiteral("one "));
}

TEST(ParagraphCaret, AClickPutsTheCaretBetweenCharacters)
{
    for (const char* text : {"क्षत्रिय स्त्री", "می‌خواهم", "ی‌خ", "👨‍👩‍👧‍👦 a"}) {
        Stage stage(text);
        const std::set<int> boundaries = characterBoundaries(stage);
        for (int x = 0; x < stage.editor.width(); ++x) {
            const int hit = stage.editor.document()->documentLayout()->hitTest(QPointF(x, 8), Qt::FuzzyHit);
            ASSERT_TRUE(boundaries.contains(hit)) << text << " at " << x;
        }
    }
}

TEST(ParagraphCaret, TheCaretGoesOnInTheNextLine)
{
    Stage english("ab\ncd");
    english.setCaret(2);
    english.key(Qt::Key_Right);
    EXPECT_EQ(english.caret(), 3);
    english.key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(english.editor.textCursor().selectedText(), QStringLiteral("\u2029"));

    Stage hebrew("שלום\nעולם");
    hebrew.setCaret(4);
    hebrew.key(Qt::Key_Left);
    EXPECT_EQ(hebrew.caret(), 5);
    hebrew.key(Qt::Key_Right);
    EXPECT_EQ(hebrew.caret(), 4);
}

TEST(ParagraphCaret, AnArrowThatMeansSomethingElseLeavesTheCaret)
{
    Stage stage("one line\nsecond");
    for (const Qt::KeyboardModifier modifier : {Qt::AltModifier, Qt::MetaModifier}) {
        stage.setCaret(3);
        stage.key(Qt::Key_Right, modifier);
        stage.key(Qt::Key_Left, modifier);
        EXPECT_EQ(stage.caret(), 3) << modifier;
    }
}

TEST(ParagraphCaret, AClickPutsTheCaretWhereItIs)
{
    for (const std::string& text :
         {"one\ntwo\n\n" + longLine(300).toStdString(), std::string("שלום\nעולם ודי")}) {
        Stage stage(text);
        const int end = stage.editor.document()->characterCount() - 1;
        for (int position = 0; position <= end; ++position) {
            stage.setCaret(position);
            const QRect caret = stage.editor.cursorRect();
            for (const int y : {caret.top() + 1, caret.bottom() - 1})
                EXPECT_EQ(stage.editor.cursorForPosition({caret.x(), y}).position(), position) << y;
        }
    }
}

TEST(ParagraphCaret, TellsWhereACharacterIs)
{
    Stage stage("first\nsecond\nthird");
    QAccessibleTextInterface& text = *test::accessible(stage.editor).textInterface();
    for (const int typed : {0, 4}) { // lines that come before move what follows
        for (const int offset : {0, 6 + typed, 13 + typed}) {
            stage.setCaret(offset);
            const QRect caret(stage.editor.viewport()->mapToGlobal(stage.editor.cursorRect().topLeft()),
                              QSize(1, 1));
            const QRect character = text.characterRect(offset);
            EXPECT_NEAR(character.left(), caret.left(), 2) << offset;
            EXPECT_NEAR(character.top(), caret.top(), 4) << offset;
            EXPECT_EQ(text.offsetAtPoint(character.center()), offset);
        }
        stage.setCaret(0);
        stage.type(QStringLiteral("a"));
        stage.key(Qt::Key_Return);
        stage.type(QStringLiteral("b"));
        stage.key(Qt::Key_Return);
    }
}

} // namespace
} // namespace zelta
