#include "app/pages/ExactText.h"

#include "core/TextDirection.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <iterator>
#include <utility>

namespace zelta {

namespace {

constexpr QChar shownBreak = QChar::ParagraphSeparator;
constexpr char16_t frameBeginMark = 0xFDD0; // a text document reads these two noncharacters as breaks
constexpr char16_t frameEndMark = 0xFDD1;
constexpr std::size_t memoryLimit = 100;

/// Where to end the piece of a long line that begins at `from`: after a blank where there is one near the
/// wanted length, and never inside of what a person sees as one character.
qsizetype pieceEnd(QStringView text, qsizetype from)
{
    constexpr qsizetype reach = 256;
    const qsizetype wanted = from + ExactText::pieceLength;
    for (qsizetype end = wanted; end > wanted - reach; --end) {
        if (text[end - 1] == u' ')
            return end;
    }
    const qsizetype start = wanted - reach;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data() + start, reach + 1);
    finder.setPosition(reach);
    if (!finder.isAtBoundary() && finder.toPreviousBoundary() <= 0)
        return wanted;
    return start + finder.position();
}

} // namespace

QString ExactText::set(QStringView text)
{
    Stretch whole = stretchOf(text, 0);
    m_votes = votesOf(whole.shown);
    m_breaks = std::move(whole.breaks);
    m_memory.clear();
    m_shown = std::move(whole.shown);
    QString result = forDocument(m_shown);
    m_shown += shownBreak;
    return result;
}

QString ExactText::prepare(QStringView text, qsizetype lineLength)
{
    Stretch stretch = stretchOf(text, lineLength);
    QString result = forDocument(stretch.shown);
    // Pasted line ends become this program's own; only the breaks between pieces have to be known again.
    std::erase_if(stretch.breaks, [](const Break& b) { return b.kind != Kind::piece; });
    if (!stretch.breaks.empty())
        remember(std::move(stretch));
    return result;
}

void ExactText::replace(qsizetype from, qsizetype removed, QStringView inserted)
{
    QStringView before = QStringView(m_shown).mid(from, removed);
    if (before == inserted)
        return; // an input method tells of a whole line when nothing in it has changed
    const Stretch* known = remembered(inserted);
    if (known == nullptr) {
        // The document may tell of more than what has changed: what stayed keeps its meaning.
        const auto [a, b] = std::ranges::mismatch(before, inserted);
        const qsizetype head = a - before.begin();
        before = before.mid(head);
        inserted = inserted.mid(head);
        from += head;
        while (!before.empty() && !inserted.empty() && before.back() == inserted.back()) {
            before.chop(1);
            inserted.chop(1);
        }
        removed = before.size();
        known = remembered(inserted);
    }
    std::vector<Break> returning = known != nullptr ? known->breaks : std::vector<Break> {};
    for (Break& b : returning)
        b.position += from;

    Stretch gone {.shown = before.toString(), .breaks = {}};
    const auto first = breakFrom(from);
    const auto last = breakFrom(from + removed);
    std::transform(first, last, std::back_inserter(gone.breaks), [from](const Break& b) {
        return Break {b.position - from, b.kind};
    });
    const qsizetype shift = inserted.size() - removed;
    std::for_each(last, m_breaks.end(), [shift](Break& b) { b.position += shift; });
    m_breaks.insert(m_breaks.erase(first, last), returning.begin(), returning.end());

    m_votes += votesOf(inserted) - votesOf(before);
    m_shown.replace(from, removed, inserted.data(), inserted.size());
    if (!gone.breaks.empty())
        remember(std::move(gone));
    partFromLineFeeds(from - 1, from + inserted.size());
}

/// A bare CR with a line feed behind it would be read as one break: it becomes a line feed itself.
void ExactText::partFromLineFeeds(qsizetype from, qsizetype to)
{
    const qsizetype last = m_shown.size() - 1; // the document's own break
    for (auto b = breakFrom(from); b != m_breaks.end() && b->position <= to;) {
        const qsizetype next = b->position + 1;
        const bool isBeforeLineFeed = next < last && m_shown[next] == shownBreak
            && (std::next(b) == m_breaks.end() || std::next(b)->position != next);
        b = b->kind == Kind::carriageReturn && isBeforeLineFeed ? m_breaks.erase(b) : std::next(b);
    }
}

void ExactText::replaceAll(QStringView shown)
{
    replace(0, size() - 1, shown);
}

QString ExactText::text(qsizetype from, qsizetype to) const
{
    QString result;
    result.reserve(to - from);
    auto next = std::ranges::lower_bound(m_breaks, from, {}, &Break::position);
    for (qsizetype start = from; start < to;) {
        const qsizetype end = next != m_breaks.end() ? std::min(next->position, to) : to;
        const qsizetype length = result.size();
        result += QStringView(m_shown).mid(start, end - start);
        std::replace(result.begin() + length, result.end(), shownBreak, QChar(u'\n'));
        if (end < to)
            result += written((next++)->kind);
        start = end + 1;
    }
    return result;
}

bool ExactText::isBetweenPieces(qsizetype position) const
{
    const auto found = std::ranges::lower_bound(m_breaks, position, {}, &Break::position);
    return found != m_breaks.end() && found->position == position && found->kind == Kind::piece;
}

ExactText::Stretch ExactText::stretchOf(QStringView text, qsizetype lineLength)
{
    Stretch result;
    result.shown.reserve(text.size() + 1);
    const auto breakHere = [&result](Kind kind) {
        result.breaks.push_back({result.shown.size(), kind});
        result.shown += shownBreak;
    };
    for (qsizetype start = 0; start <= text.size();) {
        const auto isBreak = [](QChar c) {
            return c == u'\n' || c == u'\r' || c == shownBreak || c == QChar(frameBeginMark)
                || c == QChar(frameEndMark);
        };
        const qsizetype end = std::find_if(text.begin() + start, text.end(), isBreak) - text.begin();
        if (end - start + std::exchange(lineLength, 0) > longLine) {
            while (end - start > pieceLength + pieceLength / 2) {
                const qsizetype cut = pieceEnd(text, start);
                result.shown += text.mid(start, cut - start);
                breakHere(Kind::piece);
                start = cut;
            }
        }
        result.shown += text.mid(start, end - start);
        start = end + 1;
        if (end == text.size())
            break;
        const char16_t c = text[end].unicode();
        if (c == u'\r' && start < text.size() && text[start] == u'\n') {
            breakHere(Kind::carriageReturnLineFeed);
            ++start;
        } else if (c == u'\n') {
            result.shown += shownBreak;
        } else {
            breakHere(c == u'\r'                ? Kind::carriageReturn
                          : c == frameBeginMark ? Kind::frameBegin
                          : c == frameEndMark   ? Kind::frameEnd
                                                : Kind::paragraphSeparator);
        }
    }
    return result;
}

QString ExactText::forDocument(const QString& shown)
{
    return QString(shown).replace(shownBreak, u'\n');
}

std::int64_t ExactText::votesOf(QStringView shown)
{
    // Nothing beyond the BMP has a vote, so the halves of a surrogate pair may be asked one by one.
    std::int64_t votes = 0;
    for (const QChar c : shown)
        votes += directionVote(c.unicode());
    return votes;
}

QStringView ExactText::written(Kind kind)
{
    switch (kind) {
    case Kind::carriageReturn:
        return u"\r";
    case Kind::carriageReturnLineFeed:
        return u"\r\n";
    case Kind::paragraphSeparator:
        return u"\u2029";
    case Kind::frameBegin:
        return u"\uFDD0";
    case Kind::frameEnd:
        return u"\uFDD1";
    case Kind::piece:
        break;
    }
    return {};
}

const ExactText::Stretch* ExactText::remembered(QStringView shown) const
{
    // A break alone is one that was typed.
    if (shown.size() < 2 || !shown.contains(shownBreak))
        return nullptr;
    const auto found = std::ranges::find_if(m_memory, [shown](const Stretch& s) { return s.shown == shown; });
    return found != m_memory.end() ? &*found : nullptr;
}

void ExactText::remember(Stretch stretch)
{
    m_memory.push_front(std::move(stretch));
    if (m_memory.size() > memoryLimit)
        m_memory.pop_back();
}

std::vector<ExactText::Break>::iterator ExactText::breakFrom(qsizetype position)
{
    return std::ranges::lower_bound(m_breaks, position, {}, &Break::position);
}

} // namespace zelta
