#pragma once

#include "core/Calendar.h"
#include "core/Instant.h"
#include "core/Note.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zelta {

/// Notes under one heading: "Today", "Previous 7 Days", "March 2024".
struct NoteGroup
{
    std::string title;
    std::vector<std::size_t> notes; ///< Places in the list that was grouped, in its order.

    friend bool operator==(const NoteGroup&, const NoteGroup&) = default;
};

/// The heading for a note changed then, as seen now, by calendar days: 23:59 is "Yesterday" two minutes
/// later. Beyond 30 days it is the month, with the year when that is not the current one.
std::string groupTitle(Instant updatedAt, Instant now, const Calendar& calendar);

/// Groups in the order of their first notes; a note joins the group of its title wherever that stands.
std::vector<NoteGroup> groupNotes(const std::vector<NoteStamp>& notes, Instant now, const Calendar& calendar);

/// What a reload does with a selection that it need not drop.
enum class OnReload { keepSelection, selectFirst };

/// Whether the selected note and its draft stay as they are after a reload gave these notes. Otherwise the
/// first note is opened, or none of an empty list.
bool selectionStays(const std::vector<NoteStamp>& notes, std::optional<std::int64_t> selected,
                    OnReload onReload);

} // namespace zelta
