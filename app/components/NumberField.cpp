#include "app/components/NumberField.h"

#include "app/components/Label.h"
#include "app/components/WarningLine.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "core/Num.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

constexpr int gap = 6;

/// A cell or a line that was copied elsewhere brings its end along, which would break titles in two.
QString onOneLine(QString text)
{
    const auto breaks = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator;
    };
    while (!text.isEmpty() && breaks(text.back()))
        text.chop(1);
    std::ranges::replace_if(text, breaks, u' ');
    return text;
}

} // namespace

int NumberField::fieldTop()
{
    return QFontMetrics(Theme::font(Theme::FontRole::captionMedium)).height() + gap;
}

NumberField::NumberField(const QString& label, const QString& explanation, QWidget* parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout)
    , m_explanation(explanation)
{
    constexpr int suffixGap = 8;
    constexpr int usualWidth = 84;
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    if (!label.isEmpty())
        column->addWidget(
            new Label(label, Theme::FontRole::captionMedium, Theme::Token::textSecondary, this));
    m_field = new QLineEdit(this);
    m_field->setFont(Theme::font(Theme::FontRole::field));
    m_field->setFixedSize(usualWidth, Metric::fieldHeight);
    m_field->setAccessibleName(label);
    m_field->setAccessibleDescription(explanation);
    m_row->setSpacing(suffixGap);
    m_row->addWidget(m_field);
    m_row->addStretch(1);
    column->addLayout(m_row);
    m_warning = new WarningLine(QStringLiteral("Not a number"), "exclamationmark.circle.fill", this);
    column->addWidget(m_warning);
    if (!explanation.isEmpty())
        column->addWidget(
            new Label(explanation, Theme::FontRole::caption, Theme::Token::textSecondary, this));
    column->addStretch(1);

    m_warning->hide();
    // Not `textEdited`, which assistive technology does not cause.
    connect(m_field, &QLineEdit::textChanged, this, &NumberField::follow);
}

QString NumberField::text() const
{
    return m_field->text();
}

void NumberField::setText(const QString& text)
{
    const QScopedValueRollback<bool> setting(m_isSetting, true);
    m_field->setText(text);
}

void NumberField::setPlaceholder(const QString& text)
{
    m_field->setPlaceholderText(text);
}

void NumberField::setSuffix(const QString& text)
{
    m_row->insertWidget(1, new Label(text, Theme::FontRole::field, Theme::Token::textSecondary, this));
}

void NumberField::setFieldWidth(int pixels)
{
    m_field->setFixedWidth(pixels);
}

bool NumberField::showsWarning() const
{
    return !m_warning->isHidden();
}

QLineEdit* NumberField::field() const
{
    return m_field;
}

void NumberField::follow(const QString& text)
{
    if (const QString line = onOneLine(text); line != text) {
        const int caret = m_field->cursorPosition();
        m_field->setText(line); // which comes back here
        m_field->setCursorPosition(caret);
        return;
    }
    const bool isWarning = !text.trimmed().isEmpty() && !Num::parse(toUtf8(text));
    if (isWarning != showsWarning()) { // or each key would be announced as another description
        m_warning->setVisible(isWarning);
        m_field->setAccessibleDescription(isWarning ? QStringLiteral("Not a number") : m_explanation);
    }
    if (!m_isSetting)
        Q_EMIT textEdited(text);
}

} // namespace zelta
