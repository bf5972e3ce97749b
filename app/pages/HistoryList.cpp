#include "app/pages/HistoryList.h"

#include "app/components/CopyMark.h"
#include "app/pages/HistoryCard.h"

#include <QResizeEvent>
#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace zelta {

namespace {

constexpr int gap = 10;

} // namespace

int HistoryList::setEntries(std::vector<HistoryEntry> entries, TimeText timeText)
{
    std::optional<std::int64_t> topmost;
    int before = 0;
    if (m_seenTop > 0 && !m_entries.empty()) {
        const std::size_t at = entryAt(m_seenTop);
        topmost = m_entries[at].id;
        before = m_tops[at];
    }
    m_timeText = std::move(timeText);
    std::unordered_multimap<std::int64_t, HistoryCard*> kept; // a foreign file may have an id twice
    for (HistoryCard* card : m_cards) {
        if (card != nullptr)
            kept.emplace(card->entry().id, card);
    }
    m_entries = std::move(entries);
    m_cards.assign(m_entries.size(), nullptr);
    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const auto found = kept.find(m_entries[i].id);
        if (found == kept.end() || found->second->entry() != m_entries[i])
            continue;
        m_cards[i] = found->second;
        m_cards[i]->setTime(m_timeText(m_entries[i]));
        kept.erase(found);
    }
    for (const auto& [id, card] : kept) {
        card->hide();
        card->deleteLater(); // its own button may be what asked for this
    }
    placeCards();
    const auto now = std::ranges::find(m_entries, topmost, &HistoryEntry::id);
    return now == m_entries.end() ? 0 : m_tops[static_cast<std::size_t>(now - m_entries.begin())] - before;
}

int HistoryList::fill(const QRect& seen, int around)
{
    m_seenTop = seen.top();
    if (m_entries.empty())
        return 0;
    const std::size_t topmost = entryAt(seen.top());
    const int before = m_tops[topmost];
    // Cards shorter than the usual let others come in.
    while (makeMissing(seen.top() - around, seen.bottom() + around)) { }
    return m_tops[topmost] - before;
}

/// The entry whose place, or the gap below it, is at this height; the first or last one beyond them.
std::size_t HistoryList::entryAt(int y) const
{
    const auto below = std::upper_bound(m_tops.begin() + 1, m_tops.end(), y);
    return static_cast<std::size_t>(below - m_tops.begin()) - 1;
}

bool HistoryList::makeMissing(int top, int bottom)
{
    std::vector<HistoryCard*> shown;
    bool insideList = false;
    for (std::size_t i = entryAt(top); i < m_entries.size() && m_tops[i] <= bottom; ++i) {
        if (m_cards[i] == nullptr) {
            m_cards[i] = makeCard(m_entries[i]);
            const auto isMade = [](const HistoryCard* later) { return later != nullptr; };
            insideList = insideList
                || std::any_of(m_cards.begin() + static_cast<std::ptrdiff_t>(i) + 1, m_cards.end(), isMade);
        } else if (!m_cards[i]->isHidden() && m_cards[i]->width() == width()) {
            continue;
        }
        fit(*m_cards[i]);
        shown.push_back(m_cards[i]);
    }
    if (shown.empty())
        return false;
    if (insideList)
        orderCards();
    placeCards();
    for (HistoryCard* card : shown)
        card->show();
    return true;
}

void HistoryList::rest(const QRect& seen)
{
    for (HistoryCard* card : m_cards) {
        if (card != nullptr && !card->geometry().intersects(seen))
            card->hide();
    }
}

void HistoryList::showCopied(const CopyMark& mark)
{
    for (HistoryCard* card : m_cards) {
        if (card != nullptr)
            card->setCopied(mark.isOn(std::to_string(card->entry().id)));
    }
}

HistoryCard* HistoryList::card(std::int64_t id) const
{
    const auto found = std::find_if(m_cards.begin(), m_cards.end(), [id](const HistoryCard* card) {
        return card != nullptr && card->entry().id == id;
    });
    return found == m_cards.end() ? nullptr : *found;
}

void HistoryList::resizeEvent(QResizeEvent* event)
{
    // Its height follows from the cards themselves.
    if (event->size().width() == event->oldSize().width() || m_entries.empty())
        return;
    // The point of a card that is at the top of the view stays there, though the card gets other lines.
    const std::size_t topmost = entryAt(m_seenTop);
    HistoryCard* card = m_cards[topmost];
    int top = m_seenTop;
    if (card != nullptr && m_seenTop > m_tops[topmost]) {
        const double share = static_cast<double>(m_seenTop - m_tops[topmost]) / card->height();
        fit(*card);
        placeCards();
        top = m_tops[topmost] + qRound(share * card->height());
    }
    Q_EMIT placesChanged(top - m_seenTop);
}

HistoryCard* HistoryList::makeCard(const HistoryEntry& entry)
{
    auto* card = new HistoryCard(entry, m_timeText(entry), this);
    connect(card, &HistoryCard::copyRequested, this, [this, card] { Q_EMIT copyRequested(card->entry()); });
    connect(card, &HistoryCard::deletionRequested, this,
            [this, card] { Q_EMIT deletionRequested(card->entry()); });
    connect(card, &HistoryCard::heightChanged, this, [this, card] {
        fit(*card);
        placeCards();
        Q_EMIT placesChanged(0);
    });
    return card;
}

/// Tab key and screen readers follow the order in which widgets were made, unless told.
void HistoryList::orderCards()
{
    QWidget* before = nullptr;
    for (HistoryCard* card : m_cards) {
        if (card == nullptr)
            continue;
        card->raise();
        for (QWidget* control : card->controls()) {
            if (before != nullptr)
                QWidget::setTabOrder(before, control);
            before = control;
        }
    }
}

/// Gives a card the size that it takes now. One that is out of view keeps the size of another width until it
/// comes into view: finding it breaks all the card's lines.
void HistoryList::fit(HistoryCard& card) const
{
    card.resize(width(), card.heightForWidth(width()));
}

void HistoryList::placeCards()
{
    const int usualHeight = HistoryCard::usualHeight();
    int y = 0;
    m_tops.clear();
    for (HistoryCard* card : m_cards) {
        m_tops.push_back(y);
        if (card != nullptr)
            card->move(0, y);
        y += (card != nullptr ? card->height() : usualHeight) + gap;
    }
    setFixedHeight(std::max(0, y - gap));
}

} // namespace zelta
