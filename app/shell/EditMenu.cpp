#include "app/shell/EditMenu.h"

#include "app/components/Clipboard.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFocusEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>

namespace zelta {

/// What the focused text can do right now.
struct EditMenu::Target
{
    bool undoable = false;
    bool redoable = false;
    bool cuttable = false;
    bool copyable = false;
    bool pastable = false;
    bool selectable = false;
    std::function<void()> undo {};
    std::function<void()> redo {};
    std::function<void()> cut {};
    std::function<void()> copy {};
    std::function<void()> paste {};
    std::function<void()> remove {};
    std::function<void()> selectAll {};

    static Target of(QWidget* focus);
    static Target of(QLineEdit* edit);
    static Target of(QTextEdit* edit);
    static Target of(QLabel* label);
};

EditMenu::Target EditMenu::Target::of(QWidget* focus)
{
    if (auto* line = qobject_cast<QLineEdit*>(focus))
        return of(line);
    if (auto* text = qobject_cast<QTextEdit*>(focus))
        return of(text);
    if (auto* label = qobject_cast<QLabel*>(focus))
        return of(label);
    return {};
}

EditMenu::Target EditMenu::Target::of(QLineEdit* edit)
{
    const bool writable = !edit->isReadOnly();
    const bool selected = edit->hasSelectedText();
    return {.undoable = edit->isUndoAvailable(),
            .redoable = edit->isRedoAvailable(),
            .cuttable = selected && writable,
            .copyable = selected,
            .pastable = writable,
            .selectable = !edit->text().isEmpty(),
            .undo = [edit] { edit->undo(); },
            .redo = [edit] { edit->redo(); },
            .cut = [edit] { edit->cut(); },
            .copy = [edit] { edit->copy(); },
            .paste = [edit] { edit->paste(); },
            .remove = [edit] { edit->del(); },
            .selectAll = [edit] { edit->selectAll(); }};
}

EditMenu::Target EditMenu::Target::of(QTextEdit* edit)
{
    const bool writable = !edit->isReadOnly();
    const bool selected = edit->textCursor().hasSelection();
    return {.undoable = writable && edit->document()->isUndoAvailable(),
            .redoable = writable && edit->document()->isRedoAvailable(),
            .cuttable = selected && writable,
            .copyable = selected,
            .pastable = writable,
            .selectable = !edit->document()->isEmpty(),
            .undo = [edit] { edit->undo(); },
            .redo = [edit] { edit->redo(); },
            .cut = [edit] { edit->cut(); },
            .copy = [edit] { edit->copy(); },
            .paste = [edit] { edit->paste(); },
            .remove = [edit] { edit->textCursor().removeSelectedText(); },
            .selectAll = [edit] { edit->selectAll(); }};
}

EditMenu::Target EditMenu::Target::of(QLabel* label)
{
    return {.copyable = label->hasSelectedText(),
            .selectable
            = label->textInteractionFlags().testFlag(Qt::TextSelectableByMouse) && !label->text().isEmpty(),
            .copy = [label] { copyText(label->selectedText()); },
            .selectAll = [label] { label->setSelection(0, static_cast<int>(label->text().size())); }};
}

EditMenu::EditMenu(QWidget* parent)
    : QMenu(QStringLiteral("&Edit"), parent)
{
    add(QStringLiteral("&Undo"), QKeySequence::Undo, &Target::undoable, &Target::undo);
    add(QStringLiteral("&Redo"), QKeySequence::Redo, &Target::redoable, &Target::redo);
    addSeparator();
    add(QStringLiteral("Cu&t"), QKeySequence::Cut, &Target::cuttable, &Target::cut);
    add(QStringLiteral("&Copy"), QKeySequence::Copy, &Target::copyable, &Target::copy);
    add(QStringLiteral("&Paste"), QKeySequence::Paste, &Target::pastable, &Target::paste);
    add(QStringLiteral("&Delete"), {}, &Target::cuttable, &Target::remove);
    addSeparator();
    add(QStringLiteral("Select &All"), QKeySequence::SelectAll, &Target::selectable, &Target::selectAll);

    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &EditMenu::hearClipboard);
    connect(this, &QMenu::aboutToShow, this, &EditMenu::readClipboard);
    refresh();
}

void EditMenu::add(const QString& text, const QKeySequence& shortcut, bool Target::*able,
                   std::function<void()> Target::*run)
{
    QAction* action = addAction(text);
    action->setShortcut(shortcut);
    connect(action, &QAction::triggered, this, [this, able, run] {
        const Target target = Target::of(m_focus); // a label does not tell that its selection has gone
        if (target.*able)
            (target.*run)();
    });
    m_entries.push_back({action, able});
}

void EditMenu::follow(QWidget* focus)
{
    // The menu bar takes the focus while it is used by keyboard; its entries still mean the text before.
    if (qobject_cast<QMenuBar*>(focus) || qobject_cast<QMenu*>(focus))
        return;
    if (m_focus) {
        m_focus->removeEventFilter(this);
        m_focus->disconnect(this);
    }
    m_focus = focus;
    if (auto* line = qobject_cast<QLineEdit*>(focus)) {
        line->installEventFilter(this);
        connect(line, &QLineEdit::selectionChanged, this, &EditMenu::refresh);
        connect(line, &QLineEdit::textChanged, this, &EditMenu::refresh);
    } else if (auto* text = qobject_cast<QTextEdit*>(focus)) {
        connect(text, &QTextEdit::textChanged, this, &EditMenu::refresh);
        connect(text, &QTextEdit::copyAvailable, this, &EditMenu::refresh);
        connect(text, &QTextEdit::undoAvailable, this, &EditMenu::refresh);
        connect(text, &QTextEdit::redoAvailable, this, &EditMenu::refresh);
    } else if (qobject_cast<QLabel*>(focus)) {
        focus->installEventFilter(this);
    }
    refresh();
}

/// A field or a label drops its selection when the menu bar takes the focus by key, but not for a menu that
/// opens over it: so that is what it hears, or nothing would be left to cut or copy.
bool EditMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_focus || event->type() != QEvent::FocusOut
        || static_cast<QFocusEvent*>(event)->reason() != Qt::MenuBarFocusReason)
        return QMenu::eventFilter(watched, event);
    QFocusEvent opened(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(watched, &opened);
    return true;
}

/// The owner is asked when somebody looks: one that does not answer would hold up the window for seconds.
void EditMenu::hearClipboard()
{
    m_clipboardFits = true;
    if (isVisible())
        readClipboard();
    else
        refresh();
}

void EditMenu::readClipboard()
{
    if (const auto* text = qobject_cast<QTextEdit*>(m_focus))
        m_clipboardFits = text->canPaste();
    else if (qobject_cast<QLineEdit*>(m_focus))
        m_clipboardFits = offersText(QGuiApplication::clipboard()->mimeData());
    refresh();
}

void EditMenu::refresh()
{
    Target target = Target::of(m_focus);
    target.pastable = target.pastable && m_clipboardFits;
    for (const Entry& entry : std::as_const(m_entries))
        entry.action->setEnabled(target.*entry.able);
}

} // namespace zelta
