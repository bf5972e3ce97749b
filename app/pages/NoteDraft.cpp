#include "app/pages/NoteDraft.h"

#include <unordered_map>
#include <utility>

namespace zelta {

std::vector<ParagraphKey> paragraphKeys(const Note& note)
{
    std::vector<ParagraphKey> keys;
    keys.reserve(note.blocks.size());
    std::unordered_map<Uuid, int> seen;
    for (const NoteBlock& block : note.blocks)
        keys.push_back({.id = block.id, .occurrence = seen[block.id]++});
    return keys;
}

bool replaceText(Note& note, const ParagraphKey& key, std::string_view text, Instant now)
{
    int before = key.occurrence;
    for (NoteBlock& block : note.blocks) {
        if (block.id != key.id || before-- > 0)
            continue;
        if (block.text == text)
            return false;
        block.text = text;
        note.updatedAt = now;
        return true;
    }
    return false;
}

NoteDraft::NoteDraft(Note note)
    : m_note(std::move(note))
{ }

bool NoteDraft::update(const ParagraphKey& key, std::string_view text, Instant now)
{
    return replaceText(m_note, key, text, now);
}

void NoteDraft::append(Instant now)
{
    recordStep();
    m_note.blocks.emplace_back();
    m_note.updatedAt = now;
}

bool NoteDraft::remove(std::size_t at, Instant now)
{
    if (at >= m_note.blocks.size())
        return false;
    recordStep();
    m_note.blocks.erase(m_note.blocks.begin() + static_cast<std::ptrdiff_t>(at));
    if (m_note.blocks.empty())
        m_note.blocks.emplace_back();
    m_note.updatedAt = now;
    return true;
}

bool NoteDraft::undo()
{
    if (m_past.empty())
        return false;
    m_future.push_back(std::exchange(m_note, std::move(m_past.back())));
    m_past.pop_back();
    return true;
}

bool NoteDraft::redo()
{
    if (m_future.empty())
        return false;
    m_past.push_back(std::exchange(m_note, std::move(m_future.back())));
    m_future.pop_back();
    return true;
}

void NoteDraft::recordStep()
{
    m_past.push_back(m_note);
    if (m_past.size() > maxSteps)
        m_past.pop_front();
    m_future.clear();
}

} // namespace zelta
