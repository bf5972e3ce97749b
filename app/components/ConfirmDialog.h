#pragma once

#include <QDialog>
#include <functional>

namespace zelta {

class Button;

/// Asks before something is destroyed for good. "Cancel" is the default and what Escape does; Enter never
/// destroys.
///
///     ConfirmDialog::ask(*this, {.title = …, .text = …, .action = …}, [this] { clearHistory(); });
///
/// It does not block: a test finds it among the window's children and clicks its buttons.
class ConfirmDialog : public QDialog
{
    Q_OBJECT

public:
    struct Question
    {
        QString title; ///< "Clear the whole history?"
        QString text; ///< "This cannot be undone."
        QString action; ///< "Clear history", the destructive button
    };

    ConfirmDialog(const Question& question, QWidget* parent);

    /// Opens the question over `parent`'s window; `confirmed` runs after the destructive button only.
    static ConfirmDialog* ask(QWidget& parent, const Question& question, std::function<void()> confirmed);

    [[nodiscard]] Button* actionButton() const;
    [[nodiscard]] Button* cancelButton() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Button* m_action;
    Button* m_cancel;
};

} // namespace zelta
