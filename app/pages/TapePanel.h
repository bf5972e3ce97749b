#pragma once

#include "app/components/Card.h"
#include "core/Calculator.h"

#include <QAbstractButton>
#include <QRect>
#include <QString>
#include <deque>
#include <vector>

class QAction;

namespace zelta {

class Button;
class Label;
class ScrollArea;
class WrappingRow;

/// One completed calculation: expression at the left, result at the right. A click uses the result.
class TapeLine final : public QAbstractButton
{
    Q_OBJECT

public:
    static constexpr int lineHeight = 34;
    static constexpr int bleed = 8; ///< How far the line reaches beyond its texts on the left.

    explicit TapeLine(QWidget* parent = nullptr);

    void setEntry(const Calculator::TapeEntry& entry);
    [[nodiscard]] const Calculator::TapeEntry& entry() const { return m_entry; }

    /// The texts keep this width when a scroll bar narrows the line.
    void setTextWidth(int pixels);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// What is shown of the two texts, one at each end of the line.
    struct Texts
    {
        QString expression;
        QRect expressionPlace;
        QString result;
        QRect resultPlace;
    };
    [[nodiscard]] Texts fitted() const;

    Calculator::TapeEntry m_entry;
    int m_textWidth = 0;
};

/// The card "Tape": the completed calculations, newest first, and what can be done with them.
class TapePanel final : public Card
{
    Q_OBJECT

public:
    explicit TapePanel(QWidget* parent = nullptr);

    void setEntries(const std::deque<Calculator::TapeEntry>& entries);

Q_SIGNALS:
    void used(const Decimal& result);
    /// A text to put on the clipboard, and the words that confirm it.
    void copyRequested(const QString& text, const QString& confirmation);
    void saveRequested();
    void clearRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What can be done with the tape, by a button and from the menu.
    struct Command
    {
        Button* button = nullptr;
        QAction* action = nullptr;
    };

    ScrollArea* makeArea();
    WrappingRow* makeCommands();
    TapeLine* makeLine();
    void moveFocus(bool isEmpty);
    void copyTape();
    void fitLines();

    Label* m_empty;
    ScrollArea* m_area = nullptr;
    std::vector<TapeLine*> m_lines; ///< The shown ones, newest first, then spare ones.
    Command m_copy; ///< Enabled only while there is a tape.
    Command m_save;
    Command m_clear; ///< As `m_copy`.
};

/// A line as it is copied: "12 + 3 = 15".
QString tapeLineText(const Calculator::TapeEntry& entry);

} // namespace zelta
