#pragma once

#include <QWidget>

namespace zelta {

class Announcement;
class Label;

/// The calculator's display: the pending expression above the number, both at the right. A long number
/// shrinks, and one that is still too wide is elided in the middle, as a long expression is, with the whole
/// text as hover help. Takes the focus by Tab; Space copies.
class CalculatorDisplay final : public QWidget
{
    Q_OBJECT

public:
    /// Room above and below the texts, for the focus ring.
    static constexpr int edge = 5;

    explicit CalculatorDisplay(QWidget* parent = nullptr);

    void setTexts(const QString& expression, const QString& number);

    /// Has the number spoken, for a screen reader whose focus is elsewhere.
    void announceNumber();

    [[nodiscard]] const QString& number() const { return m_number; }

Q_SIGNALS:
    void copyRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    QString m_expression;
    QString m_number;
    Label* m_expressionLabel;
    Announcement* m_numberLabel;
};

} // namespace zelta
