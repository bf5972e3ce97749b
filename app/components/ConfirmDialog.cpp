#include "app/components/ConfirmDialog.h"

#include "app/components/Button.h"
#include "app/components/Label.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace zelta {

ConfirmDialog::ConfirmDialog(const Question& question, QWidget* parent)
    : QDialog(parent)
{
    constexpr int padding = 20;
    constexpr int lineHeight = 19;
    constexpr int width = 346;
    constexpr int belowTitle = 6;
    constexpr int aboveButtons = 16;
    constexpr int buttonGap = 8;
    setWindowTitle(QStringLiteral("Zelta Basic"));
    setAccessibleName(question.title);
    setAccessibleDescription(question.text);
    // In the order in which they are read.
    auto* title = new Label(question.title, Theme::FontRole::bodyBold, Theme::Token::text, this);
    auto* text = new Label(question.text, Theme::FontRole::menu, Theme::Token::textSecondary, this);
    text->setWrapped(lineHeight);
    m_cancel = new Button(QStringLiteral("Cancel"), this);
    m_action = new Button(question.action, this);
    m_action->setLook(Button::Look::destructive);
    m_cancel->setDefault(true);
    m_cancel->setFocus();
    connect(m_action, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonGap);
    buttons->addStretch(1);
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_action);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(0);
    column->addWidget(title);
    column->addSpacing(belowTitle);
    column->addWidget(text);
    column->addSpacing(aboveButtons);
    column->addLayout(buttons);
    setFixedSize(width, layout()->heightForWidth(width));
}

ConfirmDialog* ConfirmDialog::ask(QWidget& parent, const Question& question, std::function<void()> confirmed)
{
    auto* dialog = new ConfirmDialog(question, parent.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, &parent, std::move(confirmed));
    dialog->open();
    return dialog;
}

Button* ConfirmDialog::actionButton() const
{
    return m_action;
}

Button* ConfirmDialog::cancelButton() const
{
    return m_cancel;
}

/// Enter cancels wherever the focus is, so that it never presses the destructive button.
void ConfirmDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        reject();
    else
        QDialog::keyPressEvent(event);
}

void ConfirmDialog::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::color(Theme::Token::card));
}

} // namespace zelta
