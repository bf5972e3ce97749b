#pragma once

#include "core/Note.h"

#include <cstdint>
#include <optional>
#include <unordered_map>

namespace zelta {

class Store;

/// Reads and writes notes for their page. A note that could not be written is kept here, whichever note is
/// open and whatever the list shows, until it can be: nothing typed is lost to a full disk.
class NoteKeeper
{
public:
    explicit NoteKeeper(Store& store);

    /// The note as it was last changed; nothing when there is none.
    [[nodiscard]] std::optional<Note> note(std::int64_t id) const;

    /// Writes the note or keeps it. False when it is kept.
    bool write(const Note& note);

    /// Writes what is kept, as far as that is possible now.
    void retry();

    void forget(std::int64_t id);

    [[nodiscard]] bool isKept(std::int64_t id) const { return m_kept.contains(id); }
    [[nodiscard]] bool isEmpty() const { return m_kept.empty(); }

private:
    Store& m_store;
    std::unordered_map<std::int64_t, Note> m_kept; ///< By id.
};

} // namespace zelta
