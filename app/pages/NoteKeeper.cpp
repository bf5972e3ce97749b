#include "app/pages/NoteKeeper.h"

#include "core/Store.h"

namespace zelta {

NoteKeeper::NoteKeeper(Store& store)
    : m_store(store)
{ }

std::optional<Note> NoteKeeper::note(std::int64_t id) const
{
    const auto kept = m_kept.find(id);
    return kept != m_kept.end() ? kept->second : m_store.note(id);
}

bool NoteKeeper::write(const Note& note)
{
    if (!m_store.updateNote(note)) {
        m_kept.insert_or_assign(note.id, note);
        return false;
    }
    m_kept.erase(note.id);
    return true;
}

void NoteKeeper::retry()
{
    std::erase_if(m_kept, [this](const auto& kept) { return m_store.updateNote(kept.second); });
}

void NoteKeeper::forget(std::int64_t id)
{
    m_kept.erase(id);
}

} // namespace zelta
