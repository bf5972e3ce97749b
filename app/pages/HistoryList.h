#pragma once

#include "core/HistoryEntry.h"

#include <QWidget>
#include <functional>
#include <vector>

namespace zelta {

class HistoryCard;

/// The cards of all entries, one below the other. Those that are seen first are made first; the places of the
/// others are kept free for them, so that the page has its length from the start.
class HistoryList : public QWidget
{
    Q_OBJECT

public:
    using TimeText = std::function<QString(const HistoryEntry&)>;

    using QWidget::QWidget;

    /// Shows these entries, with what `timeText` gives as their line of date and time. The cards of entries
    /// that stay are kept, with their unfolded details and the focus.
    void setEntries(std::vector<HistoryEntry> entries, TimeText timeText);

    /// Makes and shows the next few of the cards that are missing or at rest. False when none was.
    bool makeMore();

    /// Hides all cards outside `seen`, for a page that is left: showing thousands of widgets at once takes
    /// longer than it may when the page is seen again.
    void rest(const QRect& seen);

    /// The card of an entry; null when it is not made yet or there is none.
    [[nodiscard]] HistoryCard* card(std::int64_t id) const;

Q_SIGNALS:
    void copyRequested(const HistoryEntry& entry);
    void deletionRequested(const HistoryEntry& entry);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    HistoryCard* makeCard(const HistoryEntry& entry);
    void orderCards();
    void placeCards();

    TimeText m_timeText;
    std::vector<HistoryEntry> m_entries;
    std::vector<HistoryCard*> m_cards; ///< One for each entry, null until it is made.
};

} // namespace zelta
