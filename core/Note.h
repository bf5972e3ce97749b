#pragma once

#include "core/Instant.h"
#include "core/Uuid.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelta {

/// One paragraph of a note. It may hold line breaks of its own; its direction is `directionOf(text)`.
struct NoteBlock
{
    Uuid id = Uuid::random(); ///< Names the paragraph for as long as it lives, across saves.
    std::string text; ///< UTF-8.

    /// Nothing but white space and line breaks.
    [[nodiscard]] bool isEmpty() const;

    friend bool operator==(const NoteBlock&, const NoteBlock&) = default;
};

/// A plain-text note: a list of paragraphs that is never empty, so that there is always one to type into.
///
///     Note note(0, {{.text = "  \n  Groceries  "}, {.text = "milk"}}, now, now);
///     note.title()    // "Groceries"
///     note.preview()  // "milk"
struct Note
{
    /// An empty list of blocks becomes one new empty block.
    Note(std::int64_t rowId, std::vector<NoteBlock> paragraphs, Instant created, Instant updated);

    /// The first line that is not blank, trimmed; "New Note" where there is none.
    [[nodiscard]] std::string title() const;

    /// The second line that is not blank, in the same block or a later one, trimmed; "No additional text"
    /// where there is none.
    [[nodiscard]] std::string preview() const;

    /// The blocks' texts as they are, with a blank line between two.
    [[nodiscard]] std::string plainText() const;

    /// Number of words: runs of anything but white space in the plain text.
    [[nodiscard]] std::int64_t wordCount() const;

    /// What a search looks through: title, line feed, plain text, in lower case.
    [[nodiscard]] std::string searchText() const;

    /// The blocks as they are stored: compact JSON, `[{"id":"6F1C…","text":"milk\nbread"}]`. Ill-formed UTF-8
    /// comes out as U+FFFD, since JSON cannot carry it.
    [[nodiscard]] std::string encodedBlocks() const;

    /// Reads what `encodedBlocks` wrote, or any RFC 8259 array of at least one object with a string "id" that
    /// is a UUID and a string "text", in any order and beside any other members. Every other text, and one
    /// beyond the parser's limits (an integer or double out of range, half a surrogate pair, 1,024 levels),
    /// becomes one new block holding it unchanged, so that nothing is lost.
    static std::vector<NoteBlock> decodeBlocks(std::string_view text);

    friend bool operator==(const Note&, const Note&) = default;

    std::int64_t id = 0; ///< Row id; 0 until the store has assigned one.
    std::vector<NoteBlock> blocks;
    Instant createdAt;
    Instant updatedAt; ///< When the text last changed.
};

/// What finds a note and its place in a list, without its text.
struct NoteStamp
{
    std::int64_t id = 0;
    Instant updatedAt;

    friend bool operator==(const NoteStamp&, const NoteStamp&) = default;
};

} // namespace zelta
