#include "app/pages/DurationView.h"

#include "app/components/Button.h"
#include "app/components/Card.h"
#include "app/components/Columns.h"
#include "app/components/InfoNote.h"
#include "app/components/Label.h"
#include "app/components/Line.h"
#include "app/components/ResultList.h"
#include "app/components/SwapButton.h"
#include "app/components/Switch.h"
#include "app/components/SwitchRow.h"
#include "app/components/WrappingRow.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/DateInput.h"
#include "app/pages/PlainColumn.h"
#include "core/CalendarKit.h"
#include "core/DateMath.h"
#include "core/DateOptions.h"

#include <QVBoxLayout>
#include <array>
#include <string_view>

namespace zelta {

namespace {

struct QuickSpan
{
    std::string_view label;
    int days; ///< A year is 365 days here, whatever February does.
};

constexpr std::array<QuickSpan, 5> quickSpans {
    {{"Today", 0}, {"7 days", 7}, {"30 days", 30}, {"90 days", 90}, {"1 year", 365}}};

} // namespace

DurationView::DurationView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    constexpr int noteGap = 10;
    QVBoxLayout* column = plainColumn(this, Metric::partSpacing);
    column->addWidget(makeDateCards());
    column->addWidget(makeOptionsCard());

    m_results
        = new ResultList(model, Module::duration, QStringLiteral("Enter values above to see results."), this);
    m_note = new InfoNote({}, "lightbulb.fill", InfoNote::Place::belowCard, this);
    auto* results = new QVBoxLayout;
    results->setSpacing(noteGap);
    results->addWidget(m_results);
    results->addWidget(m_note);
    column->addLayout(results);

    connect(&model, &AppModel::weekendRuleChanged, this, &DurationView::recompute);
    setQuickSpan(0);
}

QWidget* DurationView::makeDateCards()
{
    constexpr int minimumCardWidth = 340;
    const auto makeCard = [this](const QString& title, std::string_view symbol, DateInput*& input) {
        auto* card = new Card(title, symbol, this);
        input = new DateInput(title, m_model, card);
        connect(input, &DateInput::dateChanged, this, &DurationView::recompute);
        card->content()->addWidget(input);
        return card;
    };
    Card* start = makeCard(QStringLiteral("Start date"), "flag.fill", m_start);
    Card* end = makeCard(QStringLiteral("End date"), "flag.checkered", m_end);
    return new Columns(minimumCardWidth, start, end, this);
}

QWidget* DurationView::makeOptionsCard()
{
    constexpr int lineMargin = 14;
    auto* card = new Card(QStringLiteral("Options"), "slider.horizontal.3", this);
    auto* row = new SwitchRow(QStringLiteral("Include the end date"),
                              QStringLiteral("Adds one day — use this for stays, leave and rentals"), card);
    m_includeEndDate = row->control();
    connect(m_includeEndDate, &Switch::toggled, this, &DurationView::recompute);
    auto* swap = new SwapButton(QStringLiteral("Swap the start and end dates"), Module::duration, card);
    swap->setLook(Button::Look::bordered);
    connect(swap, &QPushButton::clicked, this, &DurationView::swapDates);
    row->addWidget(swap);
    card->content()->addLayout(row);
    card->content()->addSpacing(lineMargin);
    card->content()->addWidget(new Line(card));
    card->content()->addSpacing(lineMargin);
    card->content()->addLayout(makeQuickSpans(card));
    return card;
}

QLayout* DurationView::makeQuickSpans(QWidget* card)
{
    constexpr int labelGap = 14;
    constexpr int buttonGap = 6;
    auto* row = new QHBoxLayout;
    row->setSpacing(labelGap);
    auto* label
        = new Label(QStringLiteral("Quick spans"), Theme::FontRole::control, Theme::Token::text, card);
    label->setFixedHeight(Metric::buttonHeight);
    row->addWidget(label, 0, Qt::AlignTop);
    auto* buttons = new WrappingRow(card, buttonGap, buttonGap);
    for (const QuickSpan& span : quickSpans) {
        auto* button = new Button(toQt(span.label), buttons);
        button->setAccessibleDescription(label->text());
        connect(button, &QPushButton::clicked, this, [this, days = span.days] { setQuickSpan(days); });
        buttons->add(button);
    }
    row->addWidget(buttons, 1);
    return row;
}

void DurationView::swapDates()
{
    const Instant start = m_start->date();
    m_start->setDate(m_end->date());
    m_end->setDate(start);
    recompute();
}

void DurationView::setQuickSpan(int days)
{
    const Instant today = m_model.today();
    m_start->setDate(today);
    m_end->setDate(m_model.calendar().addingDays(today, days).value_or(today));
    recompute();
}

void DurationView::recompute()
{
    DateOptions options = m_model.dateOptions();
    options.includeEndDate = m_includeEndDate->isChecked();
    const Calendar calendar = options.calendar();
    const Instant start = m_start->date();
    const Instant end = m_end->date();
    m_results->setRows(DateMath::duration(start, end, options).rows(),
                       CalendarKit::fullDate(start, calendar) + " → " + CalendarKit::fullDate(end, calendar));
    m_note->setText(QStringLiteral("Day counts follow calendar boundaries, so leap days and daylight-saving "
                                   "changes never shift the answer by a day. Weekends follow the rule set in "
                                   "Settings — currently %1.")
                        .arg(toQt(options.weekendRule.summary())));
}

} // namespace zelta
