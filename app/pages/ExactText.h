#pragma once

#include <QString>
#include <QStringView>
#include <cstdint>
#include <deque>
#include <vector>

namespace zelta {

/// The exact text behind a text document that a person edits.
///
/// A text document turns every CR, CR LF and U+2029 into a plain break between its blocks, so a text read
/// back from it is not the text that was put in. And it lays out a block as a whole at each key, so a line of
/// a million characters has to be shown in pieces. This class follows the document edit by edit and knows
/// what each of its breaks stands for:
///
///     ExactText text;
///     document.setPlainText(text.set(u"one\r\ntwo"));   // shows two lines
///     text.replace(0, 1, u"O");                         // as QTextDocument::contentsChange tells it
///     text.text();                                      // "One\r\ntwo"
///
/// Positions are those of the document, whose last character is a break of its own.
class ExactText
{
public:
    /// A line longer than this is shown in pieces of about `pieceLength` characters.
    static constexpr qsizetype longLine = 8192;
    static constexpr qsizetype pieceLength = 4096;

    /// Takes over a new text; the result is what to put into the document.
    QString set(QStringView text);

    /// Gets ready for a text that is about to be inserted into a line of `lineLength` characters; the result
    /// is what to insert into the document, in one edit.
    QString prepare(QStringView text, qsizetype lineLength);

    /// Follows an edit: `inserted` is what stands in the document now, with U+2029 for each break.
    void replace(qsizetype from, qsizetype removed, QStringView inserted);

    /// Follows an edit of unknown extent by comparing: `shown` is the whole document, without its last break.
    void replaceAll(QStringView shown);

    /// The whole text, or the part between two positions of the document.
    [[nodiscard]] QString text() const { return text(0, size() - 1); }
    [[nodiscard]] QString text(qsizetype from, qsizetype to) const;

    /// As many characters as the document has, with its last break.
    [[nodiscard]] qsizetype size() const { return m_shown.size(); }

    /// Whether the break at this position is there for show only, between two pieces of one line.
    [[nodiscard]] bool isBetweenPieces(qsizetype position) const;

    /// Sum of the letters' votes on the direction.
    [[nodiscard]] std::int64_t directionVotes() const { return m_votes; }

private:
    /// What a break stands for, where that is not a line feed.
    enum class Kind {
        carriageReturn,
        carriageReturnLineFeed,
        paragraphSeparator,
        frameBegin,
        frameEnd,
        piece
    };
    struct Break
    {
        qsizetype position = 0;
        Kind kind = Kind::piece;
    };
    /// A stretch of the document, with what its breaks stand for.
    struct Stretch
    {
        QString shown;
        std::vector<Break> breaks;
    };

    static Stretch stretchOf(QStringView text, qsizetype lineLength);
    static QString forDocument(const QString& shown);
    static std::int64_t votesOf(QStringView shown);
    static QStringView written(Kind kind);
    [[nodiscard]] const Stretch* remembered(QStringView shown) const;
    void remember(Stretch stretch);
    void partFromLineFeeds(qsizetype from, qsizetype to);
    std::vector<Break>::iterator breakFrom(qsizetype position);

    QString m_shown {QChar(QChar::ParagraphSeparator)};
    std::vector<Break> m_breaks; // by position
    std::deque<Stretch> m_memory; // newest first: undo and redo bring back what was removed
    std::int64_t m_votes = 0;
};

} // namespace zelta
