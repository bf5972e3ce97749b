#include "app/pages/DateInput.h"

#include "app/components/Announcement.h"
#include "app/components/CopyableText.h"
#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/SymbolIcon.h"
#include "app/components/Tag.h"
#include "app/components/WrappingRow.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/DateFields.h"
#include "app/pages/DatePicker.h"
#include "app/pages/PlainColumn.h"
#include "core/CalendarKit.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QInputMethod>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace zelta {

DateInput::DateInput(const QString& name, AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_calendar(model.calendar())
{
    constexpr int gap = 8;
    constexpr int lineGap = 12;
    auto* row = new WrappingRow(this, gap, gap);
    row->add(makeFields(name));

    m_pickerButton = new IconButton("calendar", QStringLiteral("Pick from a calendar"), row);
    m_pickerButton->setLook(Button::Look::bordered);
    m_pickerButton->setSide(Metric::fieldHeight);
    m_pickerButton->setAccessibleDescription(name);
    connect(m_pickerButton, &QPushButton::clicked, this, &DateInput::openPicker);
    row->add(m_pickerButton);

    auto* today = new Button(QStringLiteral("Today"), row);
    today->setHeight(Metric::fieldHeight);
    today->setAccessibleDescription(name);
    connect(today, &QPushButton::clicked, this, [this] { choose(m_model.today()); });
    row->add(today);

    QVBoxLayout* column = plainColumn(this, lineGap);
    column->addWidget(row);
    column->addLayout(makeStatusLine());
}

QWidget* DateInput::makeFields(const QString& name)
{
    constexpr int narrow = 54;
    constexpr int wide = 74;
    constexpr int gap = 4;
    constexpr int rightMargin = 2;
    auto* fields = new QWidget(this);
    auto* row = new QHBoxLayout(fields);
    row->setContentsMargins(0, 0, rightMargin, 0);
    row->setSpacing(gap);
    const auto slash = [fields] {
        return new Label(QStringLiteral("/"), Theme::FontRole::body, Theme::Token::textSecondary, fields);
    };
    m_day = makeField(name + QStringLiteral(", day"), QStringLiteral("dd"), narrow, fields);
    m_month = makeField(name + QStringLiteral(", month"), QStringLiteral("mm"), narrow, fields);
    m_year = makeField(name + QStringLiteral(", year"), QStringLiteral("yyyy"), wide, fields);
    row->addWidget(m_day);
    row->addWidget(slash());
    row->addWidget(m_month);
    row->addWidget(slash());
    row->addWidget(m_year);
    return fields;
}

QLineEdit* DateInput::makeField(const QString& name, const QString& placeholder, int width, QWidget* parent)
{
    auto* field = new QLineEdit(parent);
    field->setFont(Theme::font(Theme::FontRole::field));
    field->setFixedSize(width, Metric::fieldHeight);
    field->setAlignment(Qt::AlignCenter);
    field->setAccessibleName(name);
    field->setPlaceholderText(placeholder);
    // Not `textEdited`, which assistive technology does not cause.
    connect(field, &QLineEdit::textChanged, this, [this] {
        if (!m_isWriting)
            commit();
    });
    return field;
}

QLayout* DateInput::makeStatusLine()
{
    constexpr int gap = 5; // and what the copyable text keeps for its ring
    constexpr double badgeOpacity = 0.12;
    auto* line = new QHBoxLayout;
    line->setSpacing(gap);
    m_weekday = new Tag({.sidePadding = 8}, this);
    m_weekday->setColors(Theme::Token::accentInk, Theme::Token::accent, badgeOpacity);
    m_longDate = new CopyableText(m_model.clock(), QStringLiteral("Click to copy this date"), this);
    m_warning = makeWarning();
    line->addWidget(m_weekday);
    line->addWidget(m_longDate);
    line->addWidget(m_warning);
    line->addStretch(1);
    return line;
}

/// As high as the date that it stands in for, so that nothing moves.
QWidget* DateInput::makeWarning()
{
    constexpr int symbolSize = 14;
    constexpr int gap = 6;
    constexpr int indent = 4;
    auto* warning = new QWidget(this);
    warning->setFixedHeight(m_longDate->sizeHint().height());
    auto* row = new QHBoxLayout(warning);
    row->setContentsMargins(indent, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(
        new SymbolIcon("exclamationmark.triangle.fill", symbolSize, Theme::Token::warnInk, warning));
    row->addWidget(new Announcement(QStringLiteral("Not a real date"), Theme::FontRole::menu,
                                    Theme::Token::warnInk, warning));
    warning->hide();
    return warning;
}

Instant DateInput::date() const
{
    return CalendarKit::sameDay(m_date, m_calendar, m_model.calendar());
}

void DateInput::keep(Instant date)
{
    m_calendar = m_model.calendar();
    m_date = date;
}

void DateInput::setDate(Instant date)
{
    QGuiApplication::inputMethod()->commit(); // or it would come later, into the date that is put here
    keep(date);
    const QScopedValueRollback<bool> writing(m_isWriting, true);
    const DateFields fields = DateFields::of(date, m_calendar);
    m_day->setText(toQt(fields.day));
    m_month->setText(toQt(fields.month));
    m_year->setText(toQt(fields.year));
    showWarning(false);
    showDate();
    if (m_picker)
        m_picker->setDate(date);
}

void DateInput::commit()
{
    const DateFields fields {toUtf8(m_day->text()), toUtf8(m_month->text()), toUtf8(m_year->text())};
    const DateFields::Entry entry = fields.read(m_model.calendar());
    showWarning(entry.state == DateFields::State::notReal);
    if (entry.state != DateFields::State::real || entry.date == date())
        return;
    keep(entry.date);
    showDate();
    Q_EMIT dateChanged(m_date);
}

void DateInput::choose(Instant date)
{
    const bool isOther = date != this->date();
    setDate(date);
    if (isOther)
        Q_EMIT dateChanged(date);
}

void DateInput::openPicker()
{
    if (!m_picker) {
        m_picker = new DatePicker(m_model, *this);
        connect(m_picker, &DatePicker::datePicked, this, &DateInput::choose);
    }
    if (m_picker->isVisible())
        m_picker->close();
    else
        m_picker->openAt(*m_pickerButton, date());
}

void DateInput::showDate()
{
    m_weekday->setText(toQt(CalendarKit::shortWeekday(m_date, m_calendar)));
    m_longDate->setCopyText(toQt(CalendarKit::longDate(m_date, m_calendar)));
}

void DateInput::showWarning(bool isWarning)
{
    m_longDate->setVisible(!isWarning);
    m_warning->setVisible(isWarning);
    for (QLineEdit* field : {m_day, m_month, m_year}) {
        const QString description = isWarning ? QStringLiteral("Not a real date") : QString();
        if (field->accessibleDescription() != description)
            field->setAccessibleDescription(description);
    }
}

} // namespace zelta
