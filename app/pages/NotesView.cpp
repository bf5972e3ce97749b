#include "app/pages/NotesView.h"

#include "app/components/Clipboard.h"
#include "app/components/ConfirmDialog.h"
#include "app/components/Flash.h"
#include "app/components/IconButton.h"
#include "app/components/InfoNote.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/NoteEditorPane.h"
#include "app/pages/NoteKeeper.h"
#include "app/pages/NoteListModel.h"
#include "app/pages/NotesListView.h"
#include "app/pages/NotesToolbar.h"
#include "app/pages/ParagraphColumn.h"
#include "app/pages/PlainColumn.h"
#include "app/pages/SearchField.h"
#include "core/Unicode.h"

#include <QHBoxLayout>
#include <QListView>
#include <QShowEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace zelta {

NotesView::NotesView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_keeper(std::make_shared<NoteKeeper>(model.store()))
    , m_toolbar(new NotesToolbar(this))
    , m_list(new NotesListView([keeper = m_keeper](std::int64_t id) { return keeper->note(id); }, this))
    , m_pane(new NoteEditorPane(model.clock(), this))
{
    constexpr int belowHelp = 18;
    constexpr int belowToolbar = 14;
    constexpr int split = 14;
    auto* help = new InfoNote(
        QStringLiteral("Notes are plain text. Each paragraph decides its own direction from its script, so "
                       "an Arabic paragraph runs right to left and an English one left to right, side by "
                       "side. Search looks through every note."),
        this);
    auto* halves = new QHBoxLayout;
    halves->setSpacing(split);
    halves->addWidget(m_list);
    halves->addWidget(m_pane, 1);
    QVBoxLayout* column = plainColumn(this, 0);
    column->addWidget(help);
    column->addSpacing(belowHelp);
    column->addWidget(m_toolbar);
    column->addSpacing(belowToolbar);
    column->addLayout(halves, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connectParts();
    setTabOrders();
}

/// The parts hide and lose the focus after the page itself is gone: they must not tell it.
NotesView::~NotesView()
{
    for (QObject* part : findChildren<QObject*>())
        part->disconnect(this);
}

void NotesView::connectParts()
{
    connect(m_toolbar->newNote, &QPushButton::clicked, this, &NotesView::newNote);
    connect(m_toolbar->search, &QLineEdit::textChanged, this, &NotesView::searchChanged);
    connect(m_toolbar->search, &QLineEdit::editingFinished, this, &NotesView::runDueSearch);
    connect(m_toolbar->search, &SearchField::resultsWanted, this, [this] {
        runDueSearch();
        if (!notes().empty())
            m_list->list()->setFocus(Qt::TabFocusReason);
    });
    connect(m_toolbar->undo, &QPushButton::clicked, this, &NotesView::undo);
    connect(m_toolbar->redo, &QPushButton::clicked, this, &NotesView::redo);
    connect(m_toolbar->copy, &QPushButton::clicked, this, &NotesView::copyNote);
    connect(m_toolbar->remove, &QPushButton::clicked, this, &NotesView::askToDelete);
    connect(m_list, &NotesListView::noteChosen, this, &NotesView::open);
    connect(m_pane->addButton(), &QPushButton::clicked, this, &NotesView::appendBlock);
    connect(m_pane->paragraphs(), &ParagraphColumn::removeRequested, this, &NotesView::removeBlock);
    connect(m_pane->paragraphs(), &ParagraphColumn::published, this,
            [this](std::int64_t noteId, const ParagraphKey& key, const std::string& text) {
                updateBlock(key, noteId, text);
            });
}

void NotesView::setTabOrders()
{
    const std::initializer_list<QWidget*> order
        = {m_toolbar->newNote, m_toolbar->search, m_toolbar->search->clearButton(),
           m_list->list(),     m_toolbar->undo,   m_toolbar->redo,
           m_toolbar->copy,    m_toolbar->remove, m_pane->addButton()};
    QWidget* before = nullptr;
    for (QWidget* widget : order) {
        if (before != nullptr)
            setTabOrder(before, widget);
        before = widget;
    }
    m_pane->paragraphs()->setTabPredecessor(m_toolbar->remove);
}

const std::vector<NoteStamp>& NotesView::notes() const
{
    return m_list->model().notes();
}

std::optional<std::int64_t> NotesView::selectedID() const
{
    return m_draft ? std::optional(m_draft->note().id) : std::nullopt;
}

Instant NotesView::now() const
{
    return m_model.clock().now();
}

void NotesView::load(OnReload onReload)
{
    handOn();
    flushSave();
    reload(onReload);
}

void NotesView::reload(OnReload onReload)
{
    readList();
    if (!selectionStays(notes(), selectedID(), onReload))
        openFirst();
}

void NotesView::readList()
{
    m_searchTask.cancel();
    m_reloadTask.cancel();
    const std::string search = toUtf8(m_toolbar->search->text());
    m_list->setWhenEmpty(Unicode::trim(search).empty() ? NotesListView::WhenEmpty::noNotesYet
                                                       : NotesListView::WhenEmpty::noMatches);
    m_list->model().setNotes(m_model.store().noteStamps(search, listLimit), now(), m_model.calendar());
}

void NotesView::openFirst()
{
    openDraft(notes().empty() ? std::nullopt : m_keeper->note(notes().front().id));
}

void NotesView::newNote()
{
    handOn();
    flushSave();
    const Instant time = now();
    const std::optional<Note> made = m_model.store().createNote(Note(0, {}, time, time));
    if (!made)
        return;
    {
        // An emptied search would load the list by itself, and keep the selection.
        const QSignalBlocker quiet(m_toolbar->search);
        m_toolbar->search->clear();
    }
    m_toolbar->search->clearButton()->hide();
    reload(OnReload::keepSelection);
    openDraft(made);
    m_pane->paragraphs()->focusParagraph(0);
}

void NotesView::open(std::int64_t noteId)
{
    handOn();
    flushSave();
    if (std::optional<Note> note = m_keeper->note(noteId))
        openDraft(std::move(note));
    else
        reload(OnReload::keepSelection); // another copy of the program has deleted it
}

void NotesView::openDraft(std::optional<Note> note)
{
    m_isUnsaved = note && m_keeper->isKept(note->id);
    if (note)
        m_draft.emplace(*std::move(note));
    else
        m_draft.reset();
    m_list->select(selectedID());
    const bool hadFocus = m_pane->isAncestorOf(window()->focusWidget());
    showDraft();
    // The paragraph that had the focus is gone, and Qt would go on to another part of the window.
    if (hadFocus)
        (notes().empty() ? static_cast<QWidget*>(m_toolbar->newNote) : m_list->list())->setFocus();
}

void NotesView::updateBlock(const ParagraphKey& key, std::int64_t inNote, std::string_view text)
{
    if (m_draft && m_draft->note().id == inNote) {
        if (m_draft->update(key, text, now())) {
            m_pane->showWords(m_draft->note());
            scheduleSave();
        }
        return;
    }
    std::optional<Note> late = m_keeper->note(inNote);
    if (late && replaceText(*late, key, text, now()) && !write(*late))
        scheduleRetry();
}

void NotesView::appendBlock()
{
    handOn();
    if (!m_draft)
        return;
    m_draft->append(now());
    draftChanged();
    m_pane->paragraphs()->focusParagraph(m_draft->note().blocks.size() - 1);
}

void NotesView::removeBlock(std::size_t at)
{
    handOn();
    ParagraphColumn& paragraphs = *m_pane->paragraphs();
    const bool hadFocus = paragraphs.focusedParagraph() == at;
    const std::size_t before = m_draft ? m_draft->note().blocks.size() : 0;
    if (!m_draft || !m_draft->remove(at, now()))
        return;
    // Before the paragraph goes, or Qt would pass the focus on to a stranger first.
    if (hadFocus && before > 1)
        paragraphs.focusParagraph(at + 1 < before ? at + 1 : at - 1);
    draftChanged();
    if (hadFocus && !paragraphs.focusedParagraph())
        paragraphs.focusParagraph(0);
}

/// After a step of the draft: the page shows it, and it is saved when no more follow.
void NotesView::draftChanged()
{
    showDraft();
    scheduleSave();
}

void NotesView::showDraft()
{
    m_toolbar->setSteps(m_draft && m_draft->canUndo(), m_draft && m_draft->canRedo());
    m_toolbar->setHasNote(m_draft.has_value());
    m_pane->showNote(m_draft ? &m_draft->note() : nullptr);
}

void NotesView::undo()
{
    step(&NoteDraft::undo, QStringLiteral("Undone"));
}

void NotesView::redo()
{
    step(&NoteDraft::redo, QStringLiteral("Redone"));
}

void NotesView::step(bool (NoteDraft::*direction)(), const QString& message)
{
    handOn();
    if (!m_draft || !(*m_draft.*direction)())
        return;
    const auto focused = m_pane->paragraphs()->focusedParagraph();
    m_isUnsaved = true;
    showDraft();
    if (focused && !m_pane->paragraphs()->focusedParagraph())
        m_pane->paragraphs()->focusParagraph(std::min(*focused, m_draft->note().blocks.size() - 1));
    flushSave();
    m_pane->message()->flash(message);
}

void NotesView::copyNote()
{
    handOn();
    if (!m_draft)
        return;
    copyText(toQt(m_draft->note().plainText()));
    m_pane->message()->flash(QStringLiteral("Note copied"));
}

void NotesView::askToDelete()
{
    // A title can be a whole paragraph; the question stays readable.
    constexpr qsizetype longestTitle = 200;
    handOn();
    if (!m_draft)
        return;
    const QString whole = toQt(m_draft->note().title());
    QString title = leadingCharacters(whole, longestTitle);
    if (title.size() < whole.size())
        title += QStringLiteral("…");
    title += closersFor(title);
    ConfirmDialog::ask(
        *this,
        {.title = QStringLiteral("Delete this note?"),
         .text = QStringLiteral("“") + title
             + QStringLiteral(
                     "” will be deleted for good — Zelta Basic has no Trash. This cannot be undone."),
         .action = QStringLiteral("Delete Note")},
        [this, noteId = m_draft->note().id] { carryOutDelete(noteId); });
}

void NotesView::carryOutDelete(std::int64_t noteId)
{
    handOn();
    flushSave();
    if (!m_model.store().deleteNote(noteId))
        return;
    m_keeper->forget(noteId);
    reload(OnReload::keepSelection);
    m_pane->message()->flash(QStringLiteral("Note deleted"));
}

/// Every row hands on what was typed into it and has not reached the draft.
void NotesView::handOn()
{
    m_pane->paragraphs()->publishNow();
}

void NotesView::scheduleSave()
{
    m_isUnsaved = true;
    m_saveTask = m_model.clock().after(
        saveDelay, [this] { flushSave(); }, Clock::Purpose::save);
}

void NotesView::flushSave()
{
    const Clock::Task due = std::move(m_saveTask); // pending until it is written
    if (m_draft && m_isUnsaved)
        m_isUnsaved = !write(m_draft->note());
    if (!m_isUnsaved)
        m_keeper->retry();
    if (m_isUnsaved || !m_keeper->isEmpty())
        scheduleRetry();
    else
        m_failedSaves = 0;
}

/// Another program may hold the file for a while; each try waits for it, so they become rare.
void NotesView::scheduleRetry()
{
    const auto delay = std::min(longestRetryDelay, retryDelay * (1 << std::min(m_failedSaves, 6)));
    const bool isWaitedFor = m_failedSaves++ < triesBeforeTheEnd;
    m_saveTask = m_model.clock().after(
        delay, [this] { flushSave(); }, isWaitedFor ? Clock::Purpose::save : Clock::Purpose::display);
}

/// True when it is written; the list shows it either way.
bool NotesView::write(const Note& note)
{
    const bool isWritten = m_keeper->write(note);
    m_list->model().updateNote({.id = note.id, .updatedAt = note.updatedAt}, now(), m_model.calendar());
    return isWritten;
}

void NotesView::searchChanged()
{
    if (m_searchTask.isPending())
        return; // it will look for what the field holds then
    if (m_pace.wait().count() == 0)
        runSearch();
    else
        m_searchTask = m_model.clock().after(m_pace.wait(), [this] { runSearch(); });
}

/// Who has left the search field works with what was found; a search may not come later and open another
/// note below their hands.
void NotesView::runDueSearch()
{
    if (m_searchTask.isPending())
        runSearch();
}

void NotesView::runSearch()
{
    const Instant start = now();
    load(OnReload::keepSelection);
    m_pace.took(now() - start);
}

void NotesView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    waitForMidnight();
    if (!std::exchange(m_isLoaded, true)) {
        window()->installEventFilter(this);
        layout()->activate(); // a note is laid out at the width that it gets
        load(OnReload::selectFirst);
        return;
    }
    m_reloadTask = m_model.clock().after(SearchPace::frame, [this] { followStore(); });
}

/// The page comes up as it was left, with its note though a search may not find it any more; what another
/// copy of the program has saved follows in the list.
void NotesView::followStore()
{
    handOn();
    flushSave();
    readList();
    if (!m_draft || !m_keeper->note(m_draft->note().id))
        openFirst();
}

void NotesView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_midnight.cancel();
    m_reloadTask.cancel();
    handOn();
    renewTries();
}

/// Today's notes become yesterday's while the page is open.
void NotesView::waitForMidnight()
{
    m_midnight = m_model.clock().after(m_model.untilMidnight(), [this] { followDay(); });
}

void NotesView::followDay()
{
    m_list->model().regroup(now(), m_model.calendar());
    waitForMidnight();
}

/// The window may be closed while another page is shown.
bool NotesView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close && watched == window())
        renewTries();
    if (event->type() == QEvent::WindowActivate && watched == window() && isVisible())
        followDay(); // somebody may have set the clock
    return QWidget::eventFilter(watched, event);
}

/// What could not be written gets its tries anew: this may be the end of the program.
void NotesView::renewTries()
{
    if (std::exchange(m_failedSaves, 0) > 0)
        scheduleRetry();
}

void NotesView::resizeEvent(QResizeEvent* event)
{
    constexpr int roomy = 700;
    constexpr int wideList = 252;
    constexpr int narrowList = 204;
    QWidget::resizeEvent(event);
    m_list->setFixedWidth(width() >= roomy ? wideList : narrowList);
}

} // namespace zelta
