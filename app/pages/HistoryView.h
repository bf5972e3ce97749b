#pragma once

#include "app/components/CopyMark.h"
#include "app/model/Clock.h"
#include "core/HistoryEntry.h"

#include <QWidget>
#include <optional>
#include <vector>

namespace zelta {

class AppModel;
class Button;
class HistoryList;
class Label;

/// The saved calculations, newest first: read in full, copy, delete one or all. Loads when it is shown and
/// after every write while it is.
class HistoryView : public QWidget
{
    Q_OBJECT

public:
    explicit HistoryView(AppModel& model, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeEmptyState();
    void load();
    void makeMoreCards();
    void copy(const HistoryEntry& entry);
    void showCopied();
    void remove(const HistoryEntry& entry);
    void confirmClearing();

    AppModel& m_model;
    std::vector<std::int64_t> m_ids; ///< Of the entries shown, in their order.
    Label* m_count = nullptr;
    Button* m_clear = nullptr;
    HistoryList* m_list = nullptr;
    QWidget* m_empty = nullptr;
    CopyMark m_copyMark;
    std::optional<std::int64_t> m_marked; ///< Whose card shows the check mark.
    Clock::Task m_nextCards;
};

} // namespace zelta
