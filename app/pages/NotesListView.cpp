#include "app/pages/NotesListView.h"

#include "app/components/EmptyState.h"
#include "app/pages/NoteListDelegate.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

namespace zelta {

namespace {

constexpr int padding = 8;
constexpr int line = 1;

/// Tells a click on the row that is current already, too: it opens its note anew. Keeps its rows clear of
/// the right edge, where the scroll handle has its place.
class NoteRows final : public QListView
{
public:
    NoteRows(QWidget* parent, std::function<void(const QModelIndex&)> chosenAgain,
             std::function<void()> markSelection)
        : QListView(parent)
        , m_chosenAgain(std::move(chosenAgain))
        , m_markSelection(std::move(markSelection))
    { }

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        const QModelIndex row = indexAt(event->pos());
        if (event->button() == Qt::LeftButton && row.isValid() && row == currentIndex())
            m_chosenAgain(row);
        else
            QListView::mousePressEvent(event);
        // The note that was open has been saved, which may have moved the rows, and Qt has selected the one
        // that lies below the pointer now.
        m_markSelection();
    }

    // Between a press and what follows it rows may have moved: those below the pointer now were not meant.
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            QListView::mouseMoveEvent(event);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }

    // Qt tells assistive technology that the new row has the focus, wherever the focus is.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override
    {
        if (hasFocus()) {
            QListView::currentChanged(current, previous);
            return;
        }
        // NOLINTNEXTLINE(bugprone-parent-virtual-call): just that is left out
        QAbstractItemView::currentChanged(current, previous);
    }

    // A note stays chosen while it is open: a click beside the rows, or Ctrl+Space, takes nothing away.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* /*event*/) const override
    {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
    }

    // The ring is drawn around the chosen row.
    void focusInEvent(QFocusEvent* event) override
    {
        QListView::focusInEvent(event);
        if (event->reason() != Qt::MouseFocusReason)
            scrollTo(currentIndex());
    }

    // A heading cannot be chosen; there is a note below each.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override
    {
        const QModelIndex to = QListView::moveCursor(action, modifiers);
        return to.isValid() && !to.flags().testFlag(Qt::ItemIsEnabled) ? to.siblingAtRow(to.row() + 1) : to;
    }

    // Rows look the same whichever window is in front.
    bool viewportEvent(QEvent* event) override
    {
        const bool isAboutTheWindow
            = event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate;
        return isAboutTheWindow || QListView::viewportEvent(event);
    }

    void updateGeometries() override
    {
        const int bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
        setViewportMargins(0, 0, std::max(0, padding - bar), 0);
        QListView::updateGeometries();
    }

private:
    std::function<void(const QModelIndex&)> m_chosenAgain;
    std::function<void()> m_markSelection;
};

} // namespace

NotesListView::NotesListView(NoteListModel::Reader readNote, QWidget* parent)
    : Card(parent)
    , m_model(new NoteListModel(std::move(readNote), this))
    , m_noNotes(new EmptyState("note.text", QStringLiteral("No notes yet"),
                               QStringLiteral("Make one and start writing."), this, padding + line))
    , m_noMatches(new EmptyState("magnifier", QStringLiteral("No matches"),
                                 QStringLiteral("Nothing here matches that search."), this, padding + line))
{
    const auto choose = [this](const QModelIndex& index) {
        const QVariant id = index.data(NoteListModel::noteIdRole);
        if (!m_isSelecting && id.isValid())
            Q_EMIT noteChosen(id.toLongLong());
    };
    m_list = new NoteRows(this, choose, [this] { markSelection(); });
    m_list->setAccessibleName(QStringLiteral("Notes"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setModel(m_model);
    m_list->setItemDelegate(new NoteListDelegate(m_list));
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setMouseTracking(true);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->verticalScrollBar()->setSingleStep(20);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, choose);
    connect(m_model, &QAbstractItemModel::modelReset, this, &NotesListView::showContent);

    layout()->setContentsMargins(padding + line, padding + line, line, padding + line);
    content()->addWidget(m_list, 1);
    content()->addWidget(m_noNotes);
    content()->addWidget(m_noMatches);
    for (EmptyState* empty : {m_noNotes, m_noMatches})
        empty->setContentsMargins(0, 0, padding, 0);
    showContent();
}

void NotesListView::select(std::optional<std::int64_t> noteId)
{
    m_selected = noteId;
    showSelection();
}

void NotesListView::setWhenEmpty(WhenEmpty whenEmpty)
{
    m_whenEmpty = whenEmpty;
    showContent();
}

void NotesListView::markSelection()
{
    const QScopedValueRollback<bool> selecting(m_isSelecting, true);
    const QModelIndex row = m_model->indexOf(m_selected);
    m_list->setCurrentIndex(row);
    if (!row.isValid())
        m_list->clearSelection();
}

void NotesListView::showSelection()
{
    markSelection();
    const QModelIndex row = m_list->currentIndex();
    if (row.row() == 1)
        m_list->scrollToTop(); // with its heading
    else if (row.isValid())
        m_list->scrollTo(row);
}

void NotesListView::showContent()
{
    const bool isEmpty = m_model->rowCount() == 0;
    m_list->setVisible(!isEmpty);
    m_noNotes->setVisible(isEmpty && m_whenEmpty == WhenEmpty::noNotesYet);
    m_noMatches->setVisible(isEmpty && m_whenEmpty == WhenEmpty::noMatches);
    showSelection();
}

} // namespace zelta
