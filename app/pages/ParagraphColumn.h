#pragma once

#include "app/components/ScrollArea.h"
#include "app/model/Clock.h"
#include "app/pages/NoteDraft.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zelta {

class SelectableTextEditor;
class TextBlockEditor;

/// A note's paragraphs one below the other. A row keeps its editor, with caret and typing history, while
/// paragraphs come and go around it. Editors are made when their rows come near the visible part, so that a
/// note of a thousand paragraphs opens like one of ten.
class ParagraphColumn final : public ScrollArea
{
    Q_OBJECT

public:
    explicit ParagraphColumn(Clock& clock, QWidget* parent = nullptr);

    /// Shows the note's paragraphs as they are now; nothing for none.
    void showNote(const Note* note);

    /// Every row hands on what was typed.
    void publishNow();

    /// Puts the caret into the paragraph at this place and brings it into sight.
    void focusParagraph(std::size_t at);

    /// The place of the paragraph that has the focus, its remove control included.
    [[nodiscard]] std::optional<std::size_t> focusedParagraph() const;

    /// The widget after which Tab goes to the first paragraph.
    void setTabPredecessor(QWidget* widget) { m_tabPredecessor = widget; }

    /// Editors in the order of their rows; those that have not been made yet are left out.
    [[nodiscard]] std::vector<TextBlockEditor*> editors() const;

Q_SIGNALS:
    void published(std::int64_t noteId, const zelta::ParagraphKey& key, const std::string& text);
    void removeRequested(std::size_t at);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Row
    {
        ParagraphKey key;
        std::string text; // until there is an editor
        TextBlockEditor* editor = nullptr;
        int top = 0;
        int height = 0;
    };

    /// Where a row was.
    struct Place
    {
        ParagraphKey key;
        int top = 0;
    };

    [[nodiscard]] std::vector<Place> placesInSight() const;
    void keepInSight(const std::vector<Place>& places);
    void reuseRows(std::vector<Row>& rows);
    void dropRows(const std::vector<Row>& rows);
    void makeEditor(Row& row);
    void placeRows();
    void measureRows();
    bool makeEditorsInSight();
    void chainTabs();
    SelectableTextEditor& editorAt(std::size_t at);
    void moveCaret(const TextBlockEditor& from, const QPoint& place);
    void moveCaretPast(const TextBlockEditor& from, bool last);
    void bringIntoSight(const SelectableTextEditor& editor, const QRect& caret);
    [[nodiscard]] int rowWidth() const;
    [[nodiscard]] int estimatedHeight(const std::string& text) const;
    std::optional<std::size_t> placeOf(const TextBlockEditor* editor) const;
    [[nodiscard]] std::optional<std::size_t> firstInSight() const;

    Clock& m_clock;
    QWidget* m_content;
    QWidget* m_tabPredecessor = nullptr;
    std::optional<std::int64_t> m_noteId;
    std::vector<Row> m_rows;
    int m_estimatedWidth = 0;
    bool m_isPlacing = false;
};

} // namespace zelta
