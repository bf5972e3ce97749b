#include "app/pages/SelectableTextEditor.h"

#include "app/components/Clipboard.h"
#include "app/components/ScrollArea.h"
#include "app/look/Theme.h"
#include "app/pages/ParagraphLayout.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStringView>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextLayout>
#include <QTimerEvent>
#include <QtMath>
#include <algorithm>

namespace zelta {

namespace {

/// The words of a styled text, to the character: Qt's own plain text has blanks for no-break spaces, and a
/// character for each picture.
QString plainText(const QString& html)
{
    QTextDocument document;
    document.setHtml(html);
    QString text = document.toRawText();
    text.remove(QChar::ObjectReplacementCharacter);
    for (const char16_t separator :
         {u'\u2028', u'\u2029', u'\ufdd0', u'\ufdd1'}) // lines, and cells of tables
        text.replace(QChar(separator), u'\n');
    return text;
}

bool isInsideCharacter(const QTextCursor& cursor)
{
    const QTextBlock block = cursor.block();
    return !block.layout()->isValidCursorPosition(cursor.position() - block.position());
}

QTextCursor::MoveMode moveMode(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ShiftModifier) ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
}

/// Whether a code point is one of those that make one picture of several: a flag's letters, a joiner, the
/// frame of a key, tones of the skin, tags, or the choice of the coloured form.
bool joinsPictures(char32_t point)
{
    return point == 0x200D || point == 0x20E3 || point == 0xFE0F || (point >= 0x1F1E6 && point <= 0x1F1FF)
        || (point >= 0x1F3FB && point <= 0x1F3FF) || (point >= 0xE0020 && point <= 0xE007F);
}

/// How many code units before the caret are one picture of several code points; else 0.
int pictureBefore(const QTextCursor& cursor)
{
    const QString text = cursor.block().text();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    const int end = cursor.positionInBlock();
    finder.setPosition(end);
    const qsizetype start = std::max<qsizetype>(0, finder.toPreviousBoundary());
    const QList<uint> points = QStringView(text).mid(start, end - start).toUcs4();
    return points.size() > 1 && std::ranges::any_of(points, joinsPictures) ? static_cast<int>(end - start)
                                                                           : 0;
}

} // namespace

SelectableTextEditor::SelectableTextEditor(QWidget* parent)
    : QTextEdit(parent)
{
    auto* document = new QTextDocument(this);
    m_layout = new ParagraphLayout(document);
    document->setDocumentLayout(m_layout);
    document->setDocumentMargin(0);
    setDocument(document);
    setFont(Theme::font(Theme::FontRole::body));
    document->setDefaultFont(font());
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    // With the view's own width for its lines Qt would lay the text out again at each new height.
    setLineWrapColumnOrWidth(viewport()->width());
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    applyOption();
    m_text.set({});
    document->clearUndoRedoStacks(); // the margin has been a step

    connect(document, &QTextDocument::contentsChange, this, &SelectableTextEditor::followEdit);
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (m_isSetting)
            return;
        applyDirection();
        Q_EMIT edited();
        Q_EMIT caretMoved(cursorRect());
    });
    connect(this, &QTextEdit::cursorPositionChanged, this, [this] {
        m_column.reset();
        if (!m_isSetting && hasFocus())
            Q_EMIT caretMoved(cursorRect());
    });
    connect(m_layout, &QAbstractTextDocumentLayout::documentSizeChanged, this,
            &SelectableTextEditor::textHeightChanged);
}

void SelectableTextEditor::setText(const QString& text)
{
    if (text == m_text.text())
        return;
    const QScopedValueRollback<bool> setting(m_isSetting, true);
    const int caret = textCursor().position();
    const QString pieces = m_text.set(text);
    applyDirection(); // lays out what was there before, mostly nothing
    setPlainText(pieces);
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::min(caret, document()->characterCount() - 1));
    if (isInsideCharacter(cursor))
        cursor.movePosition(QTextCursor::PreviousCharacter);
    setTextCursor(cursor);
}

int SelectableTextEditor::textHeight() const
{
    return m_layout->height();
}

QRect SelectableTextEditor::linesRect() const
{
    return QRect(0, 0, width(), textHeight()).marginsRemoved(ParagraphLayout::inset);
}

void SelectableTextEditor::putCaretAtEnd(bool last, TextDirection from)
{
    m_enteredFrom = from;
    moveCursor(last ? QTextCursor::End : QTextCursor::Start);
}

void SelectableTextEditor::putCaret(const QPoint& place, QTextCursor::MoveMode mode)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(m_layout->hitTest(place, Qt::FuzzyHit), mode);
    setTextCursor(cursor);
    m_column = place.x();
}

bool SelectableTextEditor::canInsertFromMimeData(const QMimeData* source) const
{
    return offersText(source) || source->hasHtml();
}

QMimeData* SelectableTextEditor::createMimeDataFromSelection() const
{
    auto* plain = new QMimeData;
    const QTextCursor cursor = textCursor();
    plain->setText(m_text.text(cursor.selectionStart(), cursor.selectionEnd()));
    return plain;
}

/// Whatever is pasted or dropped arrives as plain text, in an undo step of its own: Qt joins what is put in
/// to what came before only while the document counts as changed.
void SelectableTextEditor::insertFromMimeData(const QMimeData* source)
{
    const QString text = offersText(source) ? source->text() : plainText(source->html());
    QTextCursor cursor = textCursor();
    document()->setModified(false);
    cursor.insertText(m_text.prepare(text, cursor.block().length()));
    document()->setModified(false);
    setTextCursor(cursor);
}

void SelectableTextEditor::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        viewport()->update();
}

void SelectableTextEditor::focusInEvent(QFocusEvent* event)
{
    QTextEdit::focusInEvent(event);
    Q_EMIT focusChanged(true);
    Q_EMIT caretMoved(cursorRect());
}

void SelectableTextEditor::focusOutEvent(QFocusEvent* event)
{
    QTextEdit::focusOutEvent(event);
    // As in a field of one line: two selections on a page would say nothing of what is copied.
    const Qt::FocusReason reason = event->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason
        && reason != Qt::MenuBarFocusReason) {
        QTextCursor cursor = textCursor();
        cursor.clearSelection();
        setTextCursor(cursor);
    }
    Q_EMIT focusChanged(false);
}

/// Who moves the caret wants to see it, though it may be where it was.
void SelectableTextEditor::keyPressEvent(QKeyEvent* event)
{
    pressKey(*event);
    if (event->key() >= Qt::Key_Home && event->key() <= Qt::Key_PageDown && hasFocus())
        Q_EMIT caretMoved(cursorRect());
}

void SelectableTextEditor::pressKey(QKeyEvent& event)
{
    // Qt's visual movement counts what an input method is composing as text of the document, and goes beyond
    // its end.
    const bool isComposing = !textCursor().block().layout()->preeditAreaText().isEmpty();
    document()->setDefaultCursorMoveStyle(isComposing ? Qt::LogicalMoveStyle : Qt::VisualMoveStyle);
    if (movePage(event) || (!isComposing && moveLine(event)))
        return;
    stepOverPieceBreak(event);
    if (event.matches(QKeySequence::InsertParagraphSeparator)
        || event.matches(QKeySequence::InsertLineSeparator)) {
        // Qt's own line break is two undo steps on an empty line, and a line separator with Shift.
        QTextCursor cursor = textCursor();
        cursor.insertBlock();
        setTextCursor(cursor);
        return;
    }
    if (event.key() == Qt::Key_Backspace && (event.modifiers() & ~Qt::ShiftModifier) == 0 && !isComposing
        && deletePicture())
        return;
    const int before = textCursor().position();
    const int anchor = textCursor().anchor();
    QTextEdit::keyPressEvent(&event);
    const bool hasStayed = textCursor().position() == before && textCursor().anchor() == anchor;
    const bool isStep = !isComposing && (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right)
        && (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::ControlModifier)) == 0;
    if (isStep && hasStayed)
        stepToOtherLine(event);
    else if (isStep)
        stepOutOfCharacter(event);
}

/// Backspace takes a letter's marks one by one, but half a flag is another flag, or none. False where no
/// picture stands before the caret.
bool SelectableTextEditor::deletePicture()
{
    QTextCursor cursor = textCursor();
    const int length = cursor.hasSelection() ? 0 : pictureBefore(cursor);
    if (length == 0)
        return false;
    cursor.setPosition(cursor.position() - length, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    setTextCursor(cursor);
    return true;
}

/// From right to left, Qt's visual movement stops at each code unit: between the halves of an emoji, or a
/// letter and its vowel mark.
void SelectableTextEditor::stepOutOfCharacter(const QKeyEvent& event)
{
    QTextCursor cursor = textCursor();
    if (!isInsideCharacter(cursor))
        return;
    const auto on = event.key() == Qt::Key_Right ? QTextCursor::Right : QTextCursor::Left;
    while (isInsideCharacter(cursor) && cursor.movePosition(on, moveMode(event))) { }
    setTextCursor(cursor);
}

/// An arrow at the end of a line goes on in the next one; Qt's visual movement would stop there. Where the
/// two are pieces of one line, it has not moved yet.
void SelectableTextEditor::stepToOtherLine(QKeyEvent& event)
{
    QTextCursor cursor = textCursor();
    const QTextBlock here = cursor.block();
    const bool isForward = (event.key() == Qt::Key_Right) == (arrowDirection() == TextDirection::leftToRight);
    if (here.length() > 1 && (isForward ? cursor.atBlockStart() : cursor.atBlockEnd())) {
        // A blank that hangs over a line's edge stops Qt's visual movement as well.
        cursor.movePosition(isForward ? QTextCursor::NextCharacter : QTextCursor::PreviousCharacter,
                            moveMode(event));
        setTextCursor(cursor);
        return;
    }
    const QTextBlock there = isForward ? here.next() : here.previous();
    if (!there.isValid()) {
        if (moveMode(event) == QTextCursor::MoveAnchor)
            Q_EMIT caretPassedEnd(isForward);
        return;
    }
    const int crossed = (isForward ? there : here).position() - 1;
    cursor.setPosition(isForward ? crossed + 1 : crossed, moveMode(event));
    setTextCursor(cursor);
    if (m_text.isBetweenPieces(crossed))
        QTextEdit::keyPressEvent(&event);
}

TextDirection SelectableTextEditor::arrowDirection() const
{
    return document()->isEmpty() ? m_enteredFrom : m_direction;
}

/// To the line above or below, or out of the paragraph. Qt's own movement leaves lines out where the text
/// runs from right to left.
bool SelectableTextEditor::moveLine(const QKeyEvent& event)
{
    const bool isUp = event.key() == Qt::Key_Up;
    if ((!isUp && event.key() != Qt::Key_Down)
        || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0)
        return false;
    const int x = m_column.value_or(cursorRect().x());
    const QTextCursor cursor = textCursor();
    QTextBlock block = cursor.block();
    int line = block.layout()->lineForTextPosition(cursor.positionInBlock()).lineNumber() + (isUp ? -1 : 1);
    if (line < 0 || line >= block.layout()->lineCount()) {
        block = isUp ? block.previous() : block.next();
        line = isUp ? -1 : 0;
    }
    if (!block.isValid()) {
        if (moveMode(event) == QTextCursor::MoveAnchor)
            Q_EMIT caretLeaves({x, isUp ? -1 : height()});
        else
            moveCursor(isUp ? QTextCursor::Start : QTextCursor::End, QTextCursor::KeepAnchor);
        return true;
    }
    const double top = m_layout->blockBoundingRect(block).top(); // lays it out
    const QTextLine target = block.layout()->lineAt(line < 0 ? block.layout()->lineCount() - 1 : line);
    putCaret({x, qFloor(top + target.y() + target.height() / 2)}, moveMode(event));
    return true;
}

/// Qt would scroll the view on, were it not as high as its text.
void SelectableTextEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (!hasFocus())
        return; // a key has taken the caret elsewhere
    QTextEdit::mouseMoveEvent(event);
    constexpr int interval = 50; // milliseconds
    m_dragPlace = event->globalPosition();
    const QRect seen = viewport()->visibleRegion().boundingRect();
    const int y = viewport()->mapFromGlobal(m_dragPlace).toPoint().y(); // the view may have moved
    const bool isBeyond = y < seen.top() || y > seen.bottom();
    if (!isBeyond || !event->buttons().testFlag(Qt::LeftButton))
        m_dragTimer.stop();
    else if (!m_dragTimer.isActive())
        m_dragTimer.start(interval, this);
}

void SelectableTextEditor::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragTimer.stop();
    QTextEdit::mouseReleaseEvent(event);
}

/// The pointer stays where it is, and another line has come below it.
void SelectableTextEditor::timerEvent(QTimerEvent* event)
{
    const QPointF place = viewport()->mapFromGlobal(m_dragPlace);
    const Qt::MouseButtons buttons = QGuiApplication::mouseButtons();
    if (!buttons.testFlag(Qt::LeftButton) || !hasFocus()) {
        // A menu has had the release, or the view was hidden meanwhile and will not hear of it.
        QMouseEvent release(QEvent::MouseButtonRelease, place, m_dragPlace, Qt::LeftButton, buttons, {});
        mouseReleaseEvent(&release);
    } else if (event->timerId() == m_dragTimer.timerId()) {
        QMouseEvent again(QEvent::MouseMove, place, m_dragPlace, Qt::NoButton, buttons,
                          QGuiApplication::keyboardModifiers());
        mouseMoveEvent(&again);
    } else {
        QTextEdit::timerEvent(event);
    }
}

/// A long text is laid out where it is looked at. What that moves is announced after painting.
void SelectableTextEditor::paintEvent(QPaintEvent* event)
{
    const int before = textHeight();
    m_layout->blockSignals(true);
    m_layout->layOut(event->rect().top(), event->rect().bottom());
    m_layout->blockSignals(false);
    if (textHeight() != before) {
        QMetaObject::invokeMethod(this, &SelectableTextEditor::textHeightChanged, Qt::QueuedConnection);
        viewport()->update();
    }
    QTextEdit::paintEvent(event);
}

void SelectableTextEditor::resizeEvent(QResizeEvent* event)
{
    if (lineWrapColumnOrWidth() != viewport()->width())
        setLineWrapColumnOrWidth(viewport()->width());
    QTextEdit::resizeEvent(event);
}

/// The page scrolls, never the paragraph.
void SelectableTextEditor::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void SelectableTextEditor::followEdit(int from, int removed, int added)
{
    if (m_isSetting)
        return;
    QTextCursor changed(document());
    const int last = document()->characterCount() - 1;
    changed.setPosition(std::min(from, last));
    changed.setPosition(std::min(from + added, last), QTextCursor::KeepAnchor);
    QString inserted = changed.selectedText();
    // An edit that touches the end may be told with the document's own last break.
    if (from + added > last)
        inserted += QChar(QChar::ParagraphSeparator);
    if (from + removed <= m_text.size() && m_text.size() - removed + inserted.size() == last + 1) {
        m_text.replace(from, removed, inserted);
        return;
    }
    m_text.replaceAll(document()->toRawText());
}

void SelectableTextEditor::applyDirection()
{
    const TextDirection direction = directionOfVotes(m_text.directionVotes());
    if (direction == m_direction)
        return;
    m_direction = direction;
    applyOption();
}

/// The direction is an option of the document: a block's format would be a step of the undo history.
void SelectableTextEditor::applyOption()
{
    QTextOption option(Qt::AlignLeading);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(m_direction == TextDirection::rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    document()->setDefaultTextOption(option);
}

/// Backspace at the start of a piece, or Delete at its end, means the character beyond the break.
void SelectableTextEditor::stepOverPieceBreak(const QKeyEvent& event)
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        return;
    if (event.key() == Qt::Key_Backspace && cursor.position() > 0
        && m_text.isBetweenPieces(cursor.position() - 1))
        cursor.movePosition(QTextCursor::PreviousCharacter);
    else if (event.key() == Qt::Key_Delete && m_text.isBetweenPieces(cursor.position()))
        cursor.movePosition(QTextCursor::NextCharacter);
    else
        return;
    setTextCursor(cursor);
}

/// The view is as high as its text, so a page is what the surroundings show.
bool SelectableTextEditor::movePage(const QKeyEvent& event)
{
    const bool isPage = event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown;
    if (!isPage || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0)
        return false;
    const QScrollArea* area = ScrollArea::around(*this);
    const int page = (area != nullptr ? area->viewport() : viewport())->height() - cursorRect().height();
    QPoint target = cursorRect().center();
    target.ry() += event.key() == Qt::Key_PageDown ? page : -page;
    putCaret(target, moveMode(event));
    if (!rect().contains(rect().center().x(), target.y()) && moveMode(event) == QTextCursor::MoveAnchor)
        Q_EMIT caretLeaves(target);
    return true;
}

} // namespace zelta
