#pragma once

#include <QAbstractTextDocumentLayout>
#include <QMargins>

namespace zelta {

/// Lays out a plain-text document as one column of lines of at least the given height.
///
/// Qt's own layout places every block again after each change and can grow lines only by a block format,
/// which would be an undo step. This one lays out a block when it is looked at, estimates the heights of the
/// others, and keeps them in the document itself (as the blocks' line counts), where sums cost O(log n). A
/// short text is always laid out as a whole, so that its height is exact at once.
class ParagraphLayout final : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    static constexpr QMargins inset {6, 8, 6, 8};
    static constexpr int minimumLineHeight = 21;
    /// A text longer than this, in characters, is laid out only where it is looked at.
    static constexpr int shortText = 20'000;

    explicit ParagraphLayout(QTextDocument* document);

    /// Lays out what lies between two heights. True when that has moved what is below.
    bool layOut(qreal top, qreal bottom);

    /// Height of the lines with the insets, in whole pixels.
    [[nodiscard]] int height() const;

    void draw(QPainter* painter, const PaintContext& context) override;
    [[nodiscard]] int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    [[nodiscard]] int pageCount() const override { return 1; }
    [[nodiscard]] QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    [[nodiscard]] qreal lineWidth() const;
    void ensureLaidOut(const QTextBlock& block) const;
    [[nodiscard]] int estimatedHeight(const QTextBlock& block) const;
    void announceHeight();
    void drawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const;

    qreal m_averageCharacter = 1;
    int m_announcedHeight = 0;
};

} // namespace zelta
