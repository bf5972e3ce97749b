#pragma once

#include "core/Instant.h"
#include "core/Note.h"
#include "core/Uuid.h"

#include <compare>
#include <cstddef>
#include <deque>
#include <string_view>
#include <vector>

namespace zelta {

/// Names a paragraph of one note for its editor. Only a damaged note has two paragraphs of one id; both are
/// kept, and told apart by their order.
struct ParagraphKey
{
    Uuid id;
    int occurrence = 0; ///< How many paragraphs of the same id stand before this one.

    friend auto operator<=>(const ParagraphKey&, const ParagraphKey&) = default;
};

/// The keys of a note's paragraphs, in their order.
std::vector<ParagraphKey> paragraphKeys(const Note& note);

/// Replaces a paragraph's text and dates the note now. False, and nothing changes, when the paragraph is not
/// there or has that text already.
bool replaceText(Note& note, const ParagraphKey& key, std::string_view text, Instant now);

/// The working copy of the open note, with the steps that lead back. Adding and removing paragraphs are
/// steps, typing is none: the text editors undo keystrokes themselves.
///
///     NoteDraft draft(note);
///     draft.append(now);   // canUndo()
///     draft.undo();        // the note as it was, with the time of its last change
class NoteDraft
{
public:
    /// Steps that can be taken back; older ones are forgotten.
    static constexpr std::size_t maxSteps = 60;

    explicit NoteDraft(Note note);

    [[nodiscard]] const Note& note() const { return m_note; }
    [[nodiscard]] bool canUndo() const { return !m_past.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_future.empty(); }

    /// Takes over what was typed into a paragraph; true when that changes the note.
    bool update(const ParagraphKey& key, std::string_view text, Instant now);

    /// Adds an empty paragraph at the end.
    void append(Instant now);

    /// Removes the paragraph at this place; an empty one takes the place of the last one left. False, and
    /// nothing changes, for a place outside the note.
    bool remove(std::size_t at, Instant now);

    /// Steps back and forth. False where there is no such step.
    bool undo();
    bool redo();

private:
    void recordStep();

    Note m_note;
    std::deque<Note> m_past; // oldest first
    std::vector<Note> m_future; // next redo last
};

} // namespace zelta
