#include "app/pages/NotesToolbar.h"

#include "app/components/Button.h"
#include "app/components/IconButton.h"
#include "app/pages/SearchField.h"

#include <QHBoxLayout>

namespace zelta {

NotesToolbar::NotesToolbar(QWidget* parent)
    : QWidget(parent)
    , newNote(new Button(QStringLiteral("New note"), "plus", this))
    , search(new SearchField(QStringLiteral("Search notes"), this))
    , undo(new IconButton("undo-arrow", {}, this))
    , redo(new IconButton("redo-arrow", {}, this))
    , copy(new Button(QStringLiteral("Copy note"), "doc.on.doc", this))
    , remove(new Button(QStringLiteral("Delete"), "trash", this))
{
    constexpr int gap = 6;
    constexpr int beforeSearch = 12;
    constexpr int afterSearch = 10;
    constexpr int symbolSize = 16;
    for (IconButton* button : {undo, redo}) {
        button->setLook(Button::Look::bordered);
        button->setSymbolSize(symbolSize);
    }
    copy->setToolTip(QStringLiteral("Copy the whole note as plain text — tables come as aligned columns"));
    remove->setToolTip(QStringLiteral("Delete this note for good"));
    remove->setInk(Theme::Token::downInk);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(newNote);
    row->addSpacing(beforeSearch);
    row->addWidget(search, 1);
    row->addSpacing(afterSearch);
    row->addWidget(undo);
    row->addSpacing(gap);
    row->addWidget(redo);
    row->addSpacing(gap);
    row->addWidget(copy);
    row->addSpacing(gap);
    row->addWidget(remove);
    setSteps(false, false);
    setHasNote(false);
}

void NotesToolbar::setSteps(bool canUndo, bool canRedo)
{
    undo->setEnabled(canUndo);
    undo->setHelp(canUndo ? QStringLiteral("Undo the last change to this note")
                          : QStringLiteral("Nothing to undo"));
    redo->setEnabled(canRedo);
    redo->setHelp(canRedo ? QStringLiteral("Redo") : QStringLiteral("Nothing to redo"));
}

void NotesToolbar::setHasNote(bool hasNote)
{
    copy->setEnabled(hasNote);
    remove->setEnabled(hasNote);
}

} // namespace zelta
