#include "app/pages/ParagraphLayout.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QtMath>
#include <algorithm>

namespace zelta {

namespace {

/// The part of a selection that lies in a block, in the block's own positions.
std::optional<QTextLayout::FormatRange> partIn(const QTextBlock& block,
                                               const QAbstractTextDocumentLayout::Selection& selection)
{
    const int start = selection.cursor.selectionStart() - block.position();
    const int end = selection.cursor.selectionEnd() - block.position();
    if (start >= block.length() || end <= 0 || start == end)
        return std::nullopt;
    QTextLayout::FormatRange range;
    range.start = std::max(0, start);
    range.length = std::min(end, block.length()) - range.start;
    range.format = selection.format;
    return range;
}

} // namespace

ParagraphLayout::ParagraphLayout(QTextDocument* document)
    : QAbstractTextDocumentLayout(document)
{ }

bool ParagraphLayout::layOut(qreal top, qreal bottom)
{
    const int before = height();
    QTextBlock block = document()->findBlockByLineNumber(std::max(0, int(top) - inset.top()));
    for (; block.isValid(); block = block.next()) {
        if (blockBoundingRect(block).bottom() > bottom)
            break;
    }
    announceHeight();
    return height() != before;
}

int ParagraphLayout::height() const
{
    return inset.top() + document()->lineCount() + inset.bottom();
}

void ParagraphLayout::draw(QPainter* painter, const PaintContext& context)
{
    painter->setPen(context.palette.color(QPalette::Text));
    const QRectF clip = context.clip.isValid() ? context.clip : QRectF(QPointF(), documentSize());
    QTextBlock block = document()->findBlockByLineNumber(std::max(0, int(clip.top()) - inset.top()));
    for (; block.isValid(); block = block.next()) {
        if (inset.top() + block.firstLineNumber() > clip.bottom())
            break;
        static_cast<void>(blockBoundingRect(block)); // lays it out, and puts it where it is
        drawBlock(*painter, context, block);
    }
}

void ParagraphLayout::drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const
{
    QList<QTextLayout::FormatRange> selections;
    for (const Selection& selection : context.selections) {
        if (const auto part = partIn(block, selection))
            selections.append(*part);
    }
    const QTextLayout& lines = *block.layout();
    const QPointF origin; // the lines know where their block is
    lines.draw(&painter, origin, selections, context.clip);

    // A position below -1 tells of a cursor inside of text that an input method is still composing.
    const int cursor = context.cursorPosition;
    const int cursorWidth = std::max(1, property("cursorWidth").toInt());
    if (block.contains(cursor) && cursor >= 0)
        lines.drawCursor(&painter, origin, cursor - block.position(), cursorWidth);
    else if (cursor < -1 && !lines.preeditAreaText().isEmpty())
        lines.drawCursor(&painter, origin, lines.preeditAreaPosition() - (cursor + 2), cursorWidth);
}

int ParagraphLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const
{
    const int lowest = std::max(0, document()->lineCount() - 1);
    const int y = std::clamp(int(point.y()) - inset.top(), 0, lowest);
    const QTextBlock block = document()->findBlockByLineNumber(y);
    const QRectF area = blockBoundingRect(block);
    const QTextLayout& lines = *block.layout();

    const qreal inBlock = point.y() - area.top();
    int index = 0;
    while (index + 1 < lines.lineCount()) {
        const QTextLine line = lines.lineAt(index);
        if (inBlock < (line.y() + line.height() + lines.lineAt(index + 1).y()) / 2)
            break;
        ++index;
    }
    const QTextLine line = lines.lineAt(index);
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(point - area.topLeft()))
        return -1;
    // At the edges of a wrapped line Qt gives places in its neighbours where the text runs from right to
    // left.
    const int end = line.textStart() + line.textLength();
    const int last = index + 1 < lines.lineCount() ? lines.previousCursorPosition(end) : end;
    int position = std::clamp(line.xToCursor(point.x() - area.left()), line.textStart(),
                              std::max(last, line.textStart()));
    while (position > 0
           && !lines.isValidCursorPosition(position)) // a click may hit the middle of a character
        --position;
    return block.position() + position;
}

QSizeF ParagraphLayout::documentSize() const
{
    return {std::max(document()->textWidth(), 0.0), qreal(height())};
}

QRectF ParagraphLayout::frameBoundingRect(QTextFrame* /*frame*/) const
{
    return {QPointF(), documentSize()};
}

QRectF ParagraphLayout::blockBoundingRect(const QTextBlock& block) const
{
    if (!block.isValid())
        return {};
    ensureLaidOut(block);
    const QRectF area(0, inset.top() + block.firstLineNumber(), documentSize().width(), block.lineCount());
    block.layout()->setPosition(area.topLeft()); // assistive technology asks the lines where a character is
    return area;
}

/// Called after each edit, and for the whole document when its width, font or text option has changed.
void ParagraphLayout::documentChanged(int from, int /*charsRemoved*/, int charsAdded)
{
    m_averageCharacter = std::max(1.0, QFontMetricsF(document()->defaultFont()).averageCharWidth());
    const int end = from + std::max(0, charsAdded);
    for (QTextBlock block = document()->findBlock(from); block.isValid() && block.position() <= end;
         block = block.next()) {
        block.clearLayout();
        block.setLineCount(estimatedHeight(block));
    }
    if (document()->characterCount() <= shortText)
        layOut(0, height());
    announceHeight();
    Q_EMIT update();
}

qreal ParagraphLayout::lineWidth() const
{
    return std::max(1.0, document()->pageSize().width() - inset.left() - inset.right());
}

void ParagraphLayout::ensureLaidOut(const QTextBlock& block) const
{
    QTextLayout& lines = *block.layout();
    if (lines.lineCount() > 0)
        return;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(QStyle::visualAlignment(option.textDirection(), option.alignment()));
    lines.setTextOption(option);
    lines.setCacheEnabled(true); // the caret and the painter would shape it again, at each keystroke
    lines.beginLayout();
    int y = 0;
    for (QTextLine line = lines.createLine(); line.isValid(); line = lines.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(lineWidth());
        const int box = std::max(minimumLineHeight, qCeil(line.height()));
        line.setPosition(QPointF(inset.left(), y + std::floor((box - line.height()) / 2)));
        y += box;
    }
    lines.endLayout();
    QTextBlock(block).setLineCount(y);
}

int ParagraphLayout::estimatedHeight(const QTextBlock& block) const
{
    return minimumLineHeight * std::max(1, qCeil(block.length() * m_averageCharacter / lineWidth()));
}

void ParagraphLayout::announceHeight()
{
    if (height() == m_announcedHeight)
        return;
    m_announcedHeight = height();
    Q_EMIT documentSizeChanged(documentSize());
}

} // namespace zelta
