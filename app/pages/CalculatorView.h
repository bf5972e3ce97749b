#pragma once

#include "core/Calculator.h"

#include <QWidget>
#include <functional>

class QKeyEvent;

namespace zelta {

class AppModel;
class CalculatorDisplay;
struct CalculatorKey;
class Flash;
class Keypad;
class TapePanel;

/// The page "Calculator": display, keypad and tape around one `Calculator`, which lives as long as the page.
/// The keyboard works while the page is shown, wherever the focus is.
class CalculatorView final : public QWidget
{
    Q_OBJECT

public:
    explicit CalculatorView(AppModel& model, QWidget* parent = nullptr);

    [[nodiscard]] const Calculator& calculator() const { return m_calculator; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeLeftColumn();
    QWidget* makeRightColumn();
    QWidget* makeFootnote(QWidget* parent);
    void makeDisplayMenu();

    /// What a key press does here; empty for keys that are passed on.
    std::function<void()> actionFor(const QKeyEvent& event);
    void press(const CalculatorKey& key);
    void change(const std::function<void(Calculator&)>& action);
    void refresh();
    void copy(const QString& text, const QString& confirmation);
    void copyDisplay();
    void saveToHistory();
    void fitToWindow();

    AppModel& m_model;
    Calculator m_calculator;
    int m_shownTapeId = 0; ///< Newest tape entry on screen, 0 for an empty tape.
    QWidget* m_keypadCard = nullptr;
    CalculatorDisplay* m_display = nullptr;
    Keypad* m_keypad = nullptr;
    Flash* m_flash = nullptr;
    QWidget* m_leftColumn = nullptr;
    TapePanel* m_tape = nullptr;
};

} // namespace zelta
