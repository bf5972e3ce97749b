#pragma once

#include "core/HistoryEntry.h"

#include <QWidget>
#include <functional>
#include <vector>

namespace zelta {

class CopyMark;
class HistoryCard;

/// The cards of all entries, one below the other. A card is made when its place comes into view; until then
/// its place is kept free at the usual height, so that the page has its length from the start.
class HistoryList : public QWidget
{
    Q_OBJECT

public:
    using TimeText = std::function<QString(const HistoryEntry&)>;

    using QWidget::QWidget;

    /// Shows these entries, with what `timeText` gives as their line of date and time. The cards of entries
    /// that stay are kept, with their unfolded details and the focus. Gives how far the topmost entry in view
    /// went down; 0 where the view is at the list's start, or that entry has gone.
    int setEntries(std::vector<HistoryEntry> entries, TimeText timeText);

    /// Makes and shows the cards whose places are in the seen part of the list, or so far above or below it.
    /// Gives how far the topmost seen entry went down for that: a card above it may turn out taller than the
    /// usual.
    int fill(const QRect& seen, int around);

    /// Hides all cards outside `seen`, for a page that is left: showing thousands of widgets at once takes
    /// longer than it may when the page is seen again.
    void rest(const QRect& seen);

    /// The card whose entry's id is marked shows a check mark.
    void showCopied(const CopyMark& mark);

    [[nodiscard]] const std::vector<HistoryEntry>& entries() const { return m_entries; }

    /// The card of an entry; null when it is not made yet or there is none.
    [[nodiscard]] HistoryCard* card(std::int64_t id) const;

Q_SIGNALS:
    void copyRequested(const HistoryEntry& entry);
    void deletionRequested(const HistoryEntry& entry);

    /// Entries have other places, at another width or with other details unfolded: some may come into view.
    /// What is at the top of the view went down so far.
    void placesChanged(int moved);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] std::size_t entryAt(int y) const;
    bool makeMissing(int top, int bottom);
    HistoryCard* makeCard(const HistoryEntry& entry);
    void orderCards();
    void fit(HistoryCard& card) const;
    void placeCards();

    TimeText m_timeText;
    std::vector<HistoryEntry> m_entries;
    std::vector<HistoryCard*> m_cards; ///< One for each entry, null until it is made.
    std::vector<int> m_tops; ///< Where each entry has its place.
    int m_seenTop = 0; ///< Where the view began when the list was filled last.
};

} // namespace zelta
