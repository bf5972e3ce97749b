#pragma once

#include "app/components/CopyMark.h"
#include "app/model/Clock.h"
#include "core/HistoryEntry.h"

#include <QWidget>

class QScrollBar;

namespace zelta {

class AppModel;
class Button;
class HistoryList;
class Label;

/// The saved calculations, newest first: read in full, copy, delete one or all. Loads when it is shown and
/// after every write while it is. Stands in a scroll area, whose viewport says which entries need their
/// cards.
class HistoryView : public QWidget
{
    Q_OBJECT

public:
    explicit HistoryView(AppModel& model, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeEmptyState();
    void load();
    void enterArea();
    void fillView();
    void fill(int around);
    void keepPlace(int moved);
    [[nodiscard]] QRect seen() const;
    void copy(const HistoryEntry& entry);
    void remove(const HistoryEntry& entry);
    void confirmClearing();

    AppModel& m_model;
    Label* m_count = nullptr;
    Button* m_clear = nullptr;
    HistoryList* m_list = nullptr;
    // Of the scroll area around the page, known once it is shown. The page is hidden for the last time when
    // the area itself is half gone already.
    QWidget* m_viewport = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    QWidget* m_empty = nullptr;
    CopyMark m_copyMark;
    Clock::Task m_cardsAround;
};

} // namespace zelta
