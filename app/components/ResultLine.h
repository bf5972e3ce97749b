#pragma once

#include "app/look/TextLine.h"
#include "core/ResultRow.h"

#include <QAbstractButton>
#include <QRect>

namespace zelta {

class Label;

/// One line of an answer: label at the left, note and value at the right on the same baseline, then a copy
/// symbol. A click, Space or Enter copies the value; dragging over the value selects it as text. What does
/// not fit moves to lines of its own, and what is still too wide is elided, with the whole text in its hover
/// help; such a value cannot be selected.
///
/// A row without a label is its value alone, at the left.
class ResultLine final : public QAbstractButton
{
    Q_OBJECT

public:
    /// How far the line reaches beyond its texts on either side, for the shade of the line below the mouse.
    static constexpr int bleed = 10;

    explicit ResultLine(QWidget* parent = nullptr);

    /// Shows another answer in place; what did not change is left alone.
    void setRow(const ResultRow& row);
    [[nodiscard]] const ResultRow& row() const { return m_row; }

    /// Shows a check mark in place of the copy symbol.
    void setMarked(bool marked);
    [[nodiscard]] bool isMarked() const { return m_marked; }

    /// Below the mouse or with the focus ring: no divider touches such a line.
    [[nodiscard]] bool isHighlighted() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    void highlightChanged();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// A text with what the arrangement needs to know of it.
    struct Text
    {
        TextLine line;
        int ascent = 0;
        int descent = 0;

        void set(const QString& text, const QFont& font);
        [[nodiscard]] int width() const { return line.width(); }
        [[nodiscard]] QString text() const { return line.text(); }
        /// The whole text where `room` holds it.
        [[nodiscard]] QString elided(Qt::TextElideMode mode, int room) const;
        void draw(QPainter& painter, const QRect& place, Qt::TextElideMode mode,
                  Qt::Alignment side = Qt::AlignLeft) const;
    };

    /// Where each text goes at a width; `y` of a rectangle is the top of its font.
    struct Arrangement
    {
        QRect label;
        QRect note;
        QRect value;
        int height = 0;
    };

    [[nodiscard]] Arrangement arrange(int width) const;
    void place();
    [[nodiscard]] bool isReference() const { return m_row.label.empty(); }
    [[nodiscard]] bool isDrag(const QMouseEvent& event) const;
    bool filterValueMouse(QEvent* event);
    void dropSelection();

    ResultRow m_row;
    Text m_label;
    Text m_note;
    Text m_value;
    Label* m_valueLabel;
    Arrangement m_places;
    QPoint m_pressedAt; ///< On the screen.
    bool m_marked = false;
};

} // namespace zelta
