#include "app/pages/HistoryDetail.h"

#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/look/WrappedText.h"

#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QWheelEvent>
#include <QtMath>

namespace zelta {

namespace {

constexpr int lineHeight = 22;
constexpr int side = 13; // with the line around
constexpr int above = 10;

} // namespace

HistoryDetail::HistoryDetail(const QString& text, QWidget* parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(WrappedText::cuttingMode(text));
    viewport()->setAutoFillBackground(false);
    setFont(Theme::font(Theme::FontRole::body));
    setPlainText(text);
    setAccessibleName(QStringLiteral("Details"));

    QTextFrameFormat frame = document()->rootFrame()->frameFormat();
    frame.setMargin(0);
    frame.setLeftMargin(side);
    frame.setRightMargin(side);
    frame.setTopMargin(above - 2); // a line of minimum height has its spare room above its text
    frame.setBottomMargin(above + 2);
    document()->rootFrame()->setFrameFormat(frame);
    QTextBlockFormat lines;
    lines.setLineHeight(lineHeight, QTextBlockFormat::MinimumHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(lines);
}

int HistoryDetail::heightForWidth(int width) const
{
    if (document()->textWidth() != width) // it would be laid out again
        document()->setTextWidth(width);
    return qCeil(document()->size().height());
}

void HistoryDetail::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRectF area = viewport()->rect();
    Surface::draw(painter, area, Metric::controlRadius, Theme::color(Theme::Token::inset),
                  Theme::color(Theme::Token::outline));
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, area, Metric::controlRadius);
    painter.end();
    QTextEdit::paintEvent(event);
}

/// There is nothing to scroll here: the wheel is the page's.
void HistoryDetail::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace zelta
