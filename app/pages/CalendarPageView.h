#pragma once

#include "app/model/Clock.h"
#include "app/pages/MonthCursor.h"
#include "core/Calendar.h"

#include <QWidget>
#include <functional>

class QKeyEvent;

namespace zelta {

class Announcement;
class AppModel;
class CopyChip;
class Label;
class MonthGrid;
class Tag;

/// A month at a glance with the weekend shaded, turned over with buttons or keys; a day's date can be copied.
/// Begins with today each time it is shown, and keeps nothing.
class CalendarPageView final : public QWidget
{
    Q_OBJECT

public:
    explicit CalendarPageView(AppModel& model, QWidget* parent = nullptr);

    [[nodiscard]] const MonthCursor& cursor() const { return m_cursor; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeMonthCard();
    QWidget* makeSelectedDayCard();
    std::function<void()> actionForKey(const QKeyEvent& event);

    void step(int months);
    void goToToday();
    void select(Instant day);
    void moveSelected(int days);

    void followZone();
    void refresh();
    void showSelectedDay();
    void waitForMidnight();
    void fitTiles();

    AppModel& m_model;
    Calendar m_calendar; ///< In which the cursor's dates are the days that are shown.
    MonthCursor m_cursor;
    Clock::Task m_midnight;
    Announcement* m_title = nullptr;
    Label* m_summary = nullptr;
    MonthGrid* m_grid = nullptr;
    Label* m_selectedDate = nullptr;
    Tag* m_dayKind = nullptr;
    CopyChip* m_chip = nullptr;
};

} // namespace zelta
