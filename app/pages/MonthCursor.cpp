#include "app/pages/MonthCursor.h"

#include "core/CalendarGrid.h"
#include "core/CalendarKit.h"
#include "core/CivilTime.h"

namespace zelta {

void MonthCursor::goTo(Instant day)
{
    anchor = day;
    selected = day;
}

void MonthCursor::step(int months, const DateOptions& options)
{
    anchor = CalendarGrid::shift(anchor, months, options);
    const Calendar calendar = options.calendar();
    const CivilDay shown = calendar.civilDay(anchor);
    const CivilDay chosen = calendar.civilDay(selected);
    if (shown.year == chosen.year && shown.month == chosen.month)
        return;
    selected = CalendarKit::makeDate(1, shown.month, shown.year, 0, 0, 0, calendar).value_or(anchor);
}

void MonthCursor::moveSelected(std::int64_t days, const DateOptions& options)
{
    const Calendar calendar = options.calendar();
    // A day that the zone skipped is passed over in the direction of the move.
    const std::int64_t beyond = days < 0 ? -1 : 1;
    const auto moved = calendar.addingDays(selected, days);
    const auto target = moved ? moved : calendar.addingDays(selected, days + beyond);
    if (!target || calendar.civilDay(*target).year < 1)
        return;
    goTo(calendar.startOfDay(*target));
}

} // namespace zelta
