#pragma once

#include "app/components/Button.h"
#include "app/components/Flash.h"
#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/model/Text.h"
#include "app/pages/NoteEditorPane.h"
#include "app/pages/NoteListModel.h"
#include "app/pages/NotesListView.h"
#include "app/pages/NotesToolbar.h"
#include "app/pages/NotesView.h"
#include "app/pages/ParagraphColumn.h"
#include "app/pages/SearchField.h"
#include "app/pages/SelectableTextEditor.h"
#include "app/pages/TextBlockEditor.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

namespace zelta::test {

/// The notes page in a window of its own, on a database that a test fills before it opens the page.
struct NotesStage
{
    using Texts = std::vector<std::string>;

    TestModel test;
    std::unique_ptr<NotesView> page;

    Store& store() { return test.model.store(); }

    /// Stores a note that was changed so long ago; its id.
    std::int64_t add(const Texts& texts, std::chrono::seconds ago = {})
    {
        std::vector<NoteBlock> blocks;
        for (const std::string& text : texts)
            blocks.push_back({.text = text});
        const Instant then = test.clock.now() - ago;
        return store().createNote(Note(0, std::move(blocks), then, then))->id;
    }

    void open()
    {
        page = std::make_unique<NotesView>(test.model);
        page->resize(800, 620);
        page->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(page.get()));
        page->activateWindow();
    }

    /// The paragraphs as the database has them.
    Texts stored(std::int64_t id)
    {
        Texts texts;
        if (const auto note = store().note(id)) {
            for (const NoteBlock& block : note->blocks)
                texts.push_back(block.text);
        }
        return texts;
    }

    /// The paragraphs as they are shown.
    [[nodiscard]] Texts shown() const
    {
        Texts texts;
        for (const TextBlockEditor* row : rows())
            texts.push_back(toUtf8(row->editor()->text()));
        return texts;
    }

    [[nodiscard]] std::vector<TextBlockEditor*> rows() const { return page->pane()->paragraphs()->editors(); }

    void type(std::size_t paragraph, const QString& text) const
    {
        SelectableTextEditor* editor = rows().at(paragraph)->editor();
        editor->setFocus();
        editor->moveCursor(QTextCursor::End);
        for (const QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QCoreApplication::sendEvent(editor, &press);
        }
    }

    void search(const QString& text) const { page->toolbar()->search->setText(text); }
    [[nodiscard]] std::string flash() const { return toUtf8(page->pane()->message()->text()); }
    [[nodiscard]] std::string words() const { return toUtf8(page->pane()->words()->text()); }

    /// The list's rows from top to bottom: headings and titles.
    [[nodiscard]] Texts listed() const
    {
        Texts texts;
        const NoteListModel& model = page->list()->model();
        for (int row = 0; row < model.rowCount(); ++row)
            texts.push_back(toUtf8(model.index(row).data().toString()));
        return texts;
    }

    /// A text that is somewhere on the page and visible.
    [[nodiscard]] bool shows(const QString& text) const { return showsText(*page, text); }
};

} // namespace zelta::test
