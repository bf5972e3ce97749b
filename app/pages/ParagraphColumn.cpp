#include "app/pages/ParagraphColumn.h"

#include "app/components/IconButton.h"
#include "app/look/Theme.h"
#include "app/pages/ParagraphLayout.h"
#include "app/pages/SelectableTextEditor.h"
#include "app/pages/TextBlockEditor.h"

#include <QFontMetricsF>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QtMath>
#include <algorithm>
#include <map>
#include <utility>

namespace zelta {

namespace {

constexpr int topPadding = 7;
constexpr int bottomPadding = 10;
constexpr int leftPadding = 10;
constexpr int rightPadding = 12; // the scroll handle lies inside it
constexpr int rowSpacing = 4;
constexpr int minHeight = 34;
constexpr int lastMinHeight = 440; // the last one fills the page, so a click below the text lands in it

} // namespace

ParagraphColumn::ParagraphColumn(Clock& clock, QWidget* parent)
    : ScrollArea(parent)
    , m_clock(clock)
    , m_content(new QWidget(viewport()))
{
    setWidgetResizable(false); // the rows are placed here
    setContent(m_content);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &ParagraphColumn::placeRows);
}

void ParagraphColumn::showNote(const Note* note)
{
    std::vector<Row> rows;
    if (note != nullptr) {
        const std::vector<ParagraphKey> keys = paragraphKeys(*note);
        rows.resize(keys.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i].key = keys[i];
            rows[i].text = note->blocks[i].text;
        }
    }
    const auto noteId = note != nullptr ? std::optional(note->id) : std::nullopt;
    const bool isSameNote = noteId == m_noteId;
    std::vector<Place> inSight;
    if (isSameNote) {
        inSight = placesInSight();
        reuseRows(rows);
    }
    {
        // A row that goes passes the focus on, and the page may scroll: both ask for editors, which take
        // the texts of their rows.
        const QScopedValueRollback<bool> placing(m_isPlacing, true);
        std::swap(m_rows, rows);
        m_noteId = noteId;
        dropRows(rows);
        if (!isSameNote)
            verticalScrollBar()->setValue(0);
        for (Row& row : m_rows) {
            if (row.editor != nullptr)
                row.editor->setValue(std::exchange(row.text, {}));
        }
        if (!inSight.empty())
            measureRows();
    }
    keepInSight(inSight);
    placeRows();
}

/// The rows from the first one in sight on, where the page is scrolled.
std::vector<ParagraphColumn::Place> ParagraphColumn::placesInSight() const
{
    std::vector<Place> places;
    const auto first = firstInSight();
    if (verticalScrollBar()->value() == 0 || !first)
        return places;
    for (std::size_t i = *first; i < m_rows.size(); ++i)
        places.push_back({.key = m_rows[i].key, .top = m_rows[i].top});
    return places;
}

/// Scrolls so that the first of these rows that is still there stays where it was.
void ParagraphColumn::keepInSight(const std::vector<Place>& places)
{
    for (const Place& place : places) {
        const auto row = std::ranges::find(m_rows, place.key, &Row::key);
        if (row == m_rows.end())
            continue;
        verticalScrollBar()->setValue(verticalScrollBar()->value() + row->top - place.top);
        return;
    }
}

/// Gives the new rows the editors that the old ones of the same key have.
void ParagraphColumn::reuseRows(std::vector<Row>& rows)
{
    std::map<ParagraphKey, Row*> made;
    for (Row& row : m_rows) {
        if (row.editor != nullptr)
            made.emplace(row.key, &row);
    }
    for (Row& row : rows) {
        const auto old = made.find(row.key);
        if (old == made.end())
            continue;
        row.editor = std::exchange(old->second->editor, nullptr);
        row.height = old->second->height;
    }
}

/// Rows that leave the screen hand on what was typed, and go.
void ParagraphColumn::dropRows(const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        if (row.editor == nullptr)
            continue;
        row.editor->publishNow();
        row.editor->disconnect(this);
        row.editor->editor()->disconnect(this);
        row.editor->hide();
        row.editor->deleteLater();
    }
}

void ParagraphColumn::publishNow()
{
    for (TextBlockEditor* editor : editors())
        editor->publishNow();
}

void ParagraphColumn::focusParagraph(std::size_t at)
{
    if (at >= m_rows.size())
        return;
    SelectableTextEditor& editor = editorAt(at);
    editor.setFocus(Qt::OtherFocusReason);
    bringIntoSight(editor, editor.cursorRect());
}

/// The text view of a row, which is made if need be.
SelectableTextEditor& ParagraphColumn::editorAt(std::size_t at)
{
    if (m_rows[at].editor == nullptr) {
        makeEditor(m_rows[at]);
        placeRows();
        chainTabs();
    }
    return *m_rows[at].editor->editor();
}

/// To the row at a place above or below another row's text view; from there at least one row on.
void ParagraphColumn::moveCaret(const TextBlockEditor& from, const QPoint& place)
{
    const auto own = placeOf(&from);
    const bool isUp = place.y() < 0;
    if (!own || *own == (isUp ? 0 : m_rows.size() - 1))
        return;
    const QPoint target = from.editor()->mapTo(m_content, place);
    const auto below = std::ranges::upper_bound(m_rows, target.y(), {}, &Row::top);
    const auto found = static_cast<std::size_t>(std::max<std::ptrdiff_t>(below - m_rows.begin(), 1) - 1);
    const std::size_t at = isUp ? std::min(found, *own - 1) : std::max(found, *own + 1);
    SelectableTextEditor& editor = editorAt(at);
    editor.putCaret(editor.mapFrom(m_content, target));
    focusParagraph(at);
}

void ParagraphColumn::moveCaretPast(const TextBlockEditor& from, bool last)
{
    const auto own = placeOf(&from);
    if (!own || *own == (last ? m_rows.size() - 1 : 0))
        return;
    const std::size_t at = last ? *own + 1 : *own - 1;
    editorAt(at).putCaretAtEnd(!last, from.editor()->direction());
    focusParagraph(at);
}

void ParagraphColumn::bringIntoSight(const SelectableTextEditor& editor, const QRect& caret)
{
    ensureVisible(0, editor.mapTo(m_content, caret.center()).y(), 0, caret.height());
}

std::optional<std::size_t> ParagraphColumn::focusedParagraph() const
{
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const TextBlockEditor* row = m_rows[i].editor;
        if (row != nullptr && (row->editor()->hasFocus() || row->removeButton()->hasFocus()))
            return i;
    }
    return std::nullopt;
}

std::vector<TextBlockEditor*> ParagraphColumn::editors() const
{
    std::vector<TextBlockEditor*> made;
    for (const Row& row : m_rows) {
        if (row.editor != nullptr)
            made.push_back(row.editor);
    }
    return made;
}

void ParagraphColumn::resizeEvent(QResizeEvent* event)
{
    ScrollArea::resizeEvent(event);
    placeRows();
}

void ParagraphColumn::makeEditor(Row& row)
{
    auto* made = new TextBlockEditor(m_clock, m_content);
    row.editor = made;
    // Assistive technology reads children in their order.
    const auto next = std::find_if(m_rows.begin() + (&row - m_rows.data()) + 1, m_rows.end(),
                                   [](const Row& later) { return later.editor != nullptr; });
    if (next != m_rows.end())
        made->stackUnder(next->editor);
    // The text comes last, so that it is laid out once, at the width that it keeps.
    made->resize(rowWidth(), minHeight);
    made->setVisible(true);
    made->setValue(std::exchange(row.text, {}));
    connect(made, &TextBlockEditor::heightChanged, this, &ParagraphColumn::placeRows);
    connect(made, &TextBlockEditor::published, this,
            [this, noteId = *m_noteId, key = row.key](const std::string& text) {
                Q_EMIT published(noteId, key, text);
            });
    connect(made, &TextBlockEditor::removeRequested, this, [this, made] {
        if (const auto at = placeOf(made))
            Q_EMIT removeRequested(*at);
    });
    connect(made->editor(), &SelectableTextEditor::caretMoved, this,
            [this, made](const QRect& caret) { bringIntoSight(*made->editor(), caret); });
    connect(made->editor(), &SelectableTextEditor::caretLeaves, this,
            [this, made](const QPoint& place) { moveCaret(*made, place); });
    connect(made->editor(), &SelectableTextEditor::caretPassedEnd, this,
            [this, made](bool last) { moveCaretPast(*made, last); });
    connect(made->editor(), &SelectableTextEditor::focusChanged, this, [this](bool focused) {
        if (focused)
            placeRows(); // Tab needs the neighbours
    });
}

/// Measures, makes the editors that have come into sight, and keeps what is in sight where it is while rows
/// above it get their exact heights.
void ParagraphColumn::placeRows()
{
    if (m_isPlacing)
        return;
    const QScopedValueRollback<bool> placing(m_isPlacing, true);
    const auto anchor = firstInSight();
    const int anchorTop = anchor ? m_rows[*anchor].top : 0;

    measureRows();
    bool hasMade = false;
    while (makeEditorsInSight()) {
        hasMade = true;
        measureRows();
    }
    if (anchor && verticalScrollBar()->value() > 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + m_rows[*anchor].top - anchorTop);
    if (hasMade)
        chainTabs();
}

void ParagraphColumn::measureRows()
{
    const bool isNewWidth = std::exchange(m_estimatedWidth, rowWidth()) != rowWidth();
    int y = topPadding;
    for (Row& row : m_rows) {
        const bool isLast = &row == &m_rows.back();
        const int least = isLast ? lastMinHeight : minHeight;
        row.top = y;
        if (row.editor != nullptr) {
            row.editor->setMinHeight(least);
            row.editor->setPlace(&row - m_rows.data() + 1);
            row.editor->removeButton()->setVisible(m_rows.size() > 1);
            if (row.editor->width() != rowWidth())
                row.editor->resize(rowWidth(), row.editor->height());
            row.height = row.editor->preferredHeight();
            row.editor->setGeometry(leftPadding, y, rowWidth(), row.height);
        } else if (row.height == 0 || isNewWidth) {
            row.height = std::max(least, estimatedHeight(row.text));
        }
        y += row.height + rowSpacing;
    }
    const int bottom = m_rows.empty() ? 0 : y - rowSpacing + bottomPadding;
    m_content->resize(viewport()->width(), std::max(bottom, viewport()->height()));
}

/// True when an editor was made. A quarter of a screen above and below is made ahead, for a turn of the
/// wheel, and the neighbours of the row with the focus.
bool ParagraphColumn::makeEditorsInSight()
{
    const int ahead = viewport()->height() / 4;
    const int from = verticalScrollBar()->value() - ahead;
    const int to = verticalScrollBar()->value() + viewport()->height() + ahead;
    const auto focused = focusedParagraph();
    bool hasMade = false;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row& row = m_rows[i];
        const bool isNeighbour = focused && i + 1 >= *focused && i <= *focused + 1;
        const bool isNear = row.top + row.height > from && row.top < to;
        if (row.editor != nullptr || !(isNeighbour || isNear))
            continue;
        makeEditor(row);
        hasMade = true;
    }
    return hasMade;
}

void ParagraphColumn::chainTabs()
{
    QWidget* before = m_tabPredecessor;
    for (const TextBlockEditor* row : editors()) {
        if (before != nullptr)
            setTabOrder(before, row->editor());
        setTabOrder(row->editor(), row->removeButton());
        before = row->removeButton();
    }
}

int ParagraphColumn::rowWidth() const
{
    const int bar = verticalScrollBar()->isVisible() ? verticalScrollBar()->width() : 0;
    return viewport()->width() - leftPadding - std::max(0, rightPadding - bar);
}

int ParagraphColumn::estimatedHeight(const std::string& text) const
{
    const qreal character = QFontMetricsF(Theme::font(Theme::FontRole::body)).averageCharWidth();
    const qreal lines = static_cast<qreal>(text.size()) * character / std::max(1, rowWidth());
    return qCeil(std::max(1.0, lines)) * ParagraphLayout::minimumLineHeight + ParagraphLayout::inset.top()
        + ParagraphLayout::inset.bottom();
}

std::optional<std::size_t> ParagraphColumn::placeOf(const TextBlockEditor* editor) const
{
    const auto found = std::ranges::find(m_rows, editor, &Row::editor);
    if (found == m_rows.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_rows.begin());
}

std::optional<std::size_t> ParagraphColumn::firstInSight() const
{
    const int top = verticalScrollBar()->value();
    const auto found
        = std::ranges::find_if(m_rows, [top](const Row& row) { return row.top + row.height > top; });
    if (found == m_rows.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_rows.begin());
}

} // namespace zelta
