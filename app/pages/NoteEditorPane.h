#pragma once

#include "app/components/Card.h"
#include "app/model/Clock.h"

namespace zelta {

class Button;
class EmptyState;
class Flash;
class Label;
struct Note;
class ParagraphColumn;

/// The card with the open note: its paragraphs, and a footer with its length, short messages and "Add
/// paragraph". Without a note it says so.
class NoteEditorPane final : public Card
{
    Q_OBJECT

public:
    NoteEditorPane(Clock& clock, QWidget* parent = nullptr);

    [[nodiscard]] ParagraphColumn* paragraphs() const { return m_paragraphs; }
    [[nodiscard]] Button* addButton() const { return m_add; }
    [[nodiscard]] Flash* message() const { return m_flash; }
    [[nodiscard]] Label* words() const { return m_words; }

    /// Shows the note with the paragraphs that it has now; nothing for none.
    void showNote(const Note* note);

    /// Counts the note's words anew.
    void showWords(const Note& note);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeFooter(Clock& clock);

    ParagraphColumn* m_paragraphs;
    EmptyState* m_empty;
    Label* m_words = nullptr;
    Flash* m_flash = nullptr;
    Button* m_add = nullptr;
    QWidget* m_footer;
};

} // namespace zelta
