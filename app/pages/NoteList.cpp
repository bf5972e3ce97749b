#include "app/pages/NoteList.h"

#include "core/CalendarKit.h"

#include <algorithm>

namespace zelta {

std::string groupTitle(Instant updatedAt, Instant now, const Calendar& calendar)
{
    const std::int64_t days = CalendarKit::dayCount(updatedAt, now, calendar);
    if (days <= 0)
        return "Today";
    if (days == 1)
        return "Yesterday";
    if (days <= 7)
        return "Previous 7 Days";
    if (days <= 30)
        return "Previous 30 Days";

    const CivilDay changed = calendar.civilDay(updatedAt);
    std::string title(CalendarKit::monthLong[static_cast<std::size_t>(changed.month)]);
    if (changed.year != calendar.civilDay(now).year)
        title += ' ' + std::to_string(changed.year);
    return title;
}

std::vector<NoteGroup> groupNotes(const std::vector<NoteStamp>& notes, Instant now, const Calendar& calendar)
{
    std::vector<NoteGroup> groups;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        std::string title = groupTitle(notes[i].updatedAt, now, calendar);
        auto group = std::ranges::find(groups, title, &NoteGroup::title);
        if (group == groups.end())
            group = groups.insert(group, {.title = std::move(title), .notes = {}});
        group->notes.push_back(i);
    }
    return groups;
}

bool selectionStays(const std::vector<NoteStamp>& notes, std::optional<std::int64_t> selected,
                    OnReload onReload)
{
    return onReload == OnReload::keepSelection && selected
        && std::ranges::find(notes, *selected, &NoteStamp::id) != notes.end();
}

} // namespace zelta
