#include "app/model/Text.h"

#include <QStringView>
#include <QTextBoundaryFinder>

namespace zelta {

QString leadingCharacters(const QString& text, qsizetype atMost)
{
    if (text.size() <= atMost)
        return text;
    constexpr qsizetype oneCodePoint = 2;
    const QStringView start = QStringView(text).left(atMost + oneCodePoint);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, start.data(), start.size());
    finder.setPosition(atMost);
    if (!finder.isAtBoundary())
        finder.toPreviousBoundary();
    // A character longer than that is only a letter under a heap of marks.
    const qsizetype end = finder.position() > 0 ? finder.position() : atMost;
    return text.left(end);
}

QString closersFor(const QString& text)
{
    constexpr char16_t endOfEmbedding = u'\u202C';
    constexpr char16_t endOfIsolate = u'\u2069';
    QString closers; // of what is open, the innermost first
    for (const QChar character : text) {
        switch (character.unicode()) {
        case u'\u202A':
        case u'\u202B':
        case u'\u202D':
        case u'\u202E':
            closers.prepend(QChar(endOfEmbedding));
            break;
        case u'\u2066':
        case u'\u2067':
        case u'\u2068':
            closers.prepend(QChar(endOfIsolate));
            break;
        case endOfEmbedding:
            if (closers.startsWith(QChar(endOfEmbedding)))
                closers.remove(0, 1);
            break;
        case endOfIsolate: // ends the embeddings inside it, too
            closers.remove(0, closers.indexOf(QChar(endOfIsolate)) + 1);
            break;
        default:
            break;
        }
    }
    return closers;
}

} // namespace zelta
