#include "app/pages/ExactText.h"

#include "core/TextDirection.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <random>
#include <string>

namespace zelta {
namespace {

/// A document and the text that follows its edits, as an editor has them.
struct Edited
{
    explicit Edited(const QString& text)
    {
        document.documentLayout(); // without a layout, a document tells of its changes late
        document.setPlainText(exact.set(text));
        QObject::connect(&document, &QTextDocument::contentsChange, &document,
                         [this](int from, int removed, int added) {
                             QTextCursor changed(&document);
                             const int last = document.characterCount() - 1;
                             changed.setPosition(std::min(from, last));
                             changed.setPosition(std::min(from + added, last), QTextCursor::KeepAnchor);
                             QString inserted = changed.selectedText();
                             if (from + added > last)
                                 inserted += QChar(QChar::ParagraphSeparator);
                             exact.replace(from, removed, inserted);
                         });
    }

    QTextCursor cursor(int from, int to)
    {
        QTextCursor result(&document);
        result.setPosition(from);
        result.setPosition(to, QTextCursor::KeepAnchor);
        return result;
    }

    ExactText exact;
    QTextDocument document;
};

QString repeated(const char* piece, qsizetype length)
{
    QString text;
    while (text.size() < length)
        text += QString::fromUtf8(piece);
    return text;
}

TEST(ExactText, GivesBackWhatWasPutIn)
{
    const QString texts[] = {QString(),
                             QStringLiteral("a"),
                             QStringLiteral("\n"),
                             QStringLiteral("a\n\nb\n"),
                             QStringLiteral("a\r\nb\rc\nd\n\r"),
                             QStringLiteral("no\u00A0break \u2028line\u2029paragraph\uFDD0\uFDD1\uFDD2"),
                             QStringLiteral("nul") + QChar(0) + QStringLiteral("s 🙂 שלום"),
                             repeated("words of a long line ", 100'000),
                             repeated("withoutblanks", 50'000),
                             repeated("👩‍👩‍👧", 50'000)};
    for (const QString& text : texts) {
        const Edited edited(text);
        EXPECT_EQ(edited.exact.text(), text);
        EXPECT_EQ(edited.exact.size(), edited.document.characterCount());
    }
}

TEST(ExactText, KeepsForeignBreaksWhileTheRestIsEdited)
{
    Edited edited(QStringLiteral("one\r\ntwo\rthree\u2029four\u2028five\u00A0six"));
    edited.cursor(0, 0).insertText(QStringLiteral("new\n"));
    EXPECT_EQ(edited.exact.text(), QStringLiteral("new\none\r\ntwo\rthree\u2029four\u2028five\u00A0six"));
    edited.cursor(4, 7).insertText(QStringLiteral("1"));
    EXPECT_EQ(edited.exact.text(), QStringLiteral("new\n1\r\ntwo\rthree\u2029four\u2028five\u00A0six"));
}

TEST(ExactText, UndoBringsBackForeignBreaks)
{
    const QString text = QStringLiteral("one\r\ntwo\rthree\u2029four");
    Edited edited(text);
    edited.cursor(1, 12).removeSelectedText();
    EXPECT_EQ(edited.exact.text(), QStringLiteral("oe\u2029four"));
    edited.document.undo();
    EXPECT_EQ(edited.exact.text(), text);
    edited.document.redo();
    EXPECT_EQ(edited.exact.text(), QStringLiteral("oe\u2029four"));
}

TEST(ExactText, ABareReturnMakesNoOneBreakWithALineFeedBehindIt)
{
    Edited edited(QStringLiteral("one\rtwo\nthree"));
    edited.cursor(4, 4).insertBlock();
    EXPECT_EQ(edited.exact.text(), QStringLiteral("one\n\ntwo\nthree"));
    Edited joined(QStringLiteral("one\rtwo\nthree\r"));
    joined.cursor(4, 7).removeSelectedText();
    EXPECT_EQ(joined.exact.text(), QStringLiteral("one\n\nthree\r"));
}

TEST(ExactText, AnEditThatChangesNothingChangesNoBreak)
{
    ExactText exact;
    exact.set(u"ab\r\nxx");
    exact.replace(0, 3, u"");
    exact.replace(0, 0, u"ab");
    exact.replace(2, 0, u"\u2029");
    exact.replace(0, 3, u"ab\u2029"); // as an input method tells of its line
    EXPECT_EQ(exact.text(), QStringLiteral("ab\nxx"));
}

TEST(ExactText, ShowsALongLineInPieces)
{
    const QString text = repeated("words of a long line ", 100'000);
    const Edited edited(text);
    EXPECT_GT(edited.document.blockCount(), 10);
    qsizetype longest = 0;
    for (QTextBlock block = edited.document.begin(); block.isValid(); block = block.next()) {
        longest = std::max<qsizetype>(longest, block.length());
        const bool isLast = !block.next().isValid();
        EXPECT_EQ(edited.exact.isBetweenPieces(block.position() + block.length() - 1), !isLast);
    }
    EXPECT_LE(longest, ExactText::longLine);
    EXPECT_EQ(edited.exact.text(10, 20), text.mid(10, 10));
}

TEST(ExactText, APastedLongLineIsStillOneLineAfterUndoAndRedo)
{
    Edited edited(QStringLiteral("[]"));
    const QString pasted = repeated("words of a long line ", 100'000);
    edited.cursor(1, 1).insertText(edited.exact.prepare(pasted, 2));
    const QString whole = QStringLiteral("[") + pasted + QStringLiteral("]");
    EXPECT_EQ(edited.exact.text(), whole);
    edited.document.undo();
    EXPECT_EQ(edited.exact.text(), QStringLiteral("[]"));
    edited.document.redo();
    EXPECT_EQ(edited.exact.text(), whole);
    edited.cursor(100, 90'000).removeSelectedText();
    edited.document.undo();
    EXPECT_EQ(edited.exact.text(), whole);
}

TEST(ExactText, PastedLineEndsBecomeLineFeeds)
{
    Edited edited(QStringLiteral("x"));
    edited.cursor(0, 1).insertText(edited.exact.prepare(QStringLiteral("a\r\nb\rc"), 1));
    EXPECT_EQ(edited.exact.text(), QStringLiteral("a\nb\nc"));
}

TEST(ExactText, FollowsAnEditOfUnknownExtent)
{
    ExactText exact;
    exact.set(u"one\r\ntwo");
    exact.replaceAll(u"one\u2029twenty");
    EXPECT_EQ(exact.text(), QStringLiteral("one\r\ntwenty"));
}

// A thousand edits, undone and redone, against a text that is edited beside it as a plain string.
TEST(ExactText, FollowsRandomEdits)
{
    const unsigned seed = std::random_device {}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return int(random() % unsigned(limit)); };
    const QString pieces[] = {QStringLiteral("a"), QStringLiteral("\n"), QStringLiteral("שלום"),
                              QStringLiteral("b\nc\n"), QStringLiteral("🙂")};

    Edited edited(QStringLiteral("start\nof\nit"));
    for (int i = 0; i < 1'000; ++i) {
        const int size = int(edited.exact.size()) - 1;
        const int from = below(size + 1);
        const int to = std::min(size, from + below(4));
        QString expected = edited.exact.text();
        const QString piece = pieces[below(5)];
        expected.replace(from, to - from, piece);
        edited.cursor(from, to).insertText(piece);
        ASSERT_EQ(edited.exact.text(), expected);
        ASSERT_EQ(directionOfVotes(edited.exact.directionVotes()), directionOf(expected.toStdString()));
        ASSERT_EQ(edited.exact.size(), edited.document.characterCount());
    }
    while (edited.document.isUndoAvailable()) {
        edited.document.undo();
        ASSERT_EQ(edited.exact.text(), edited.document.toPlainText());
    }
    EXPECT_EQ(edited.exact.text(), QStringLiteral("start\nof\nit"));
}

} // namespace
} // namespace zelta
