#pragma once

#include "core/Instant.h"

#include <cstdint>
#include <string>

namespace zelta {

/// One saved calculation, as a row of the history table holds it. All texts are UTF-8.
struct HistoryEntry
{
    std::int64_t id = 0; ///< Row id; 0 until the store has assigned one.
    Instant createdAt {};
    /// Stored name of the page that produced it; may be a name that this version does not know.
    std::string module;
    std::string title;
    std::string summary; ///< One line: "Total days: 44".
    std::string detail; ///< All result lines, separated by line feeds.

    friend bool operator==(const HistoryEntry&, const HistoryEntry&) = default;
};

} // namespace zelta
