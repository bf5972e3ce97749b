#pragma once

#include "app/components/Card.h"
#include "app/pages/NoteListModel.h"

#include <QListView>
#include <cstdint>
#include <optional>

namespace zelta {

class EmptyState;

/// The card with the list of notes, or with what it says when there are none.
class NotesListView final : public Card
{
    Q_OBJECT

public:
    enum class WhenEmpty { noNotesYet, noMatches };

    NotesListView(NoteListModel::Reader readNote, QWidget* parent);

    [[nodiscard]] NoteListModel& model() const { return *m_model; }
    [[nodiscard]] QListView* list() const { return m_list; }

    /// Selects a note's row, without opening the note.
    void select(std::optional<std::int64_t> noteId);

    void setWhenEmpty(WhenEmpty whenEmpty);

Q_SIGNALS:
    /// A person has chosen this note, by a click or with the arrow keys.
    void noteChosen(std::int64_t noteId);

private:
    void markSelection();
    void showSelection();
    void showContent();

    NoteListModel* m_model;
    QListView* m_list;
    EmptyState* m_noNotes;
    EmptyState* m_noMatches;
    WhenEmpty m_whenEmpty = WhenEmpty::noNotesYet;
    std::optional<std::int64_t> m_selected;
    bool m_isSelecting = false;
};

} // namespace zelta
