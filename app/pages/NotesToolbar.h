#pragma once

#include <QWidget>

namespace zelta {

class Button;
class IconButton;
class SearchField;

/// "New note", the search, and what can be done with the open note.
struct NotesToolbar final : public QWidget
{
    Q_OBJECT

public:
    explicit NotesToolbar(QWidget* parent = nullptr);

    /// Undo and redo are enabled, and say what they do, as there are steps.
    void setSteps(bool canUndo, bool canRedo);

    /// Whether there is a note to copy and to delete.
    void setHasNote(bool hasNote);

    Button* newNote;
    SearchField* search;
    IconButton* undo;
    IconButton* redo;
    Button* copy;
    Button* remove;
};

} // namespace zelta
