#include "app/pages/CalendarPageView.h"

#include "app/components/Announcement.h"
#include "app/components/Card.h"
#include "app/components/CopyChip.h"
#include "app/components/IconButton.h"
#include "app/components/InfoNote.h"
#include "app/components/KeyMonitor.h"
#include "app/components/Label.h"
#include "app/components/MonthGrid.h"
#include "app/components/SpreadRow.h"
#include "app/components/Tag.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/PlainColumn.h"
#include "core/CalendarGrid.h"
#include "core/CalendarKit.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace zelta {

namespace {

// A small window gets lower tiles, so that most of a month of six weeks stays in sight.
constexpr int lowTile = 44;
constexpr int highTile = 54;

/// Two texts of different size on one baseline.
QLayout* baselineRow(Label* large, Label* small)
{
    constexpr int gap = 12;
    const int drop = QFontMetrics(large->font()).ascent() - QFontMetrics(small->font()).ascent();
    small->setContentsMargins(0, drop, 0, 0);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(large, 0, Qt::AlignTop);
    row->addWidget(small, 0, Qt::AlignTop);
    return row;
}

IconButton* borderedIcon(std::string_view symbol, const QString& help, QWidget* parent)
{
    auto* button = new IconButton(symbol, help, parent);
    button->setLook(Button::Look::bordered);
    button->setSymbolSize(16);
    return button;
}

} // namespace

CalendarPageView::CalendarPageView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_calendar(model.calendar())
{
    constexpr int noteGap = 10;
    QVBoxLayout* column = plainColumn(this, Metric::partSpacing);
    column->addWidget(makeMonthCard());

    auto* selectedDay = new QVBoxLayout;
    selectedDay->setSpacing(noteGap);
    selectedDay->addWidget(makeSelectedDayCard());
    auto* note
        = new InfoNote(QStringLiteral("Arrow keys move a month and T jumps to today. Shaded days are your "
                                      "weekend — change the rule in Settings."),
                       "lightbulb.fill", InfoNote::Place::belowCard, this);
    selectedDay->addWidget(note);
    column->addLayout(selectedDay);

    new KeyMonitor(this, [this](const QKeyEvent& event) { return actionForKey(event); });
    connect(&model, &AppModel::weekendRuleChanged, this, &CalendarPageView::refresh);
    fitTiles(); // or the page would be laid out for other ones first
    goToToday();
}

QWidget* CalendarPageView::makeMonthCard()
{
    constexpr int buttonGap = 6;
    constexpr int belowHead = 14;
    auto* card = new Card(this);
    // The buttons come first in the tab order, so they are made before what stands left of them.
    auto* previous = borderedIcon("chevron-left", QStringLiteral("Previous month"), card);
    auto* today = new Button(QStringLiteral("Today"), card);
    auto* next = borderedIcon("chevron-right", QStringLiteral("Next month"), card);
    connect(previous, &QPushButton::clicked, this, [this] { step(-1); });
    connect(today, &QPushButton::clicked, this, &CalendarPageView::goToToday);
    connect(next, &QPushButton::clicked, this, [this] { step(1); });

    m_title = new Announcement({}, Theme::FontRole::headline, Theme::Token::text, card);
    m_title->setSelectable();
    m_summary = new Label({}, Theme::FontRole::body, Theme::Token::textSecondary, card);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonGap);
    buttons->addWidget(previous);
    buttons->addWidget(today);
    buttons->addWidget(next);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(0, 0, 0, belowHead);
    head->addLayout(baselineRow(m_title, m_summary));
    head->addStretch(1);
    head->addLayout(buttons);
    card->content()->addLayout(head);

    m_grid = new MonthGrid(DayTile::Look::page, card);
    connect(m_grid, &MonthGrid::dayChosen, this, [this](const DayCell& cell) { select(cell.date); });
    connect(m_grid, &MonthGrid::moveRequested, this,
            [this](const DayCell&, int days) { moveSelected(days); });
    card->content()->addWidget(m_grid);
    return card;
}

QWidget* CalendarPageView::makeSelectedDayCard()
{
    auto* card = new Card(QStringLiteral("Selected day"), "hand.tap.fill", this);
    auto* day = new QWidget(card);
    auto* row = new QHBoxLayout(day);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(SpreadRow::gap);
    m_selectedDate = new Label({}, Theme::FontRole::value, Theme::Token::text, day);
    m_dayKind = new Tag({}, day);
    row->addWidget(m_selectedDate);
    row->addWidget(m_dayKind);
    m_chip = new CopyChip(m_model.clock(), Module::calendar, card);
    card->content()->addWidget(new SpreadRow(day, m_chip, card));
    return card;
}

std::function<void()> CalendarPageView::actionForKey(const QKeyEvent& event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return {};
    switch (event.key()) {
    case Qt::Key_Right:
    case Qt::Key_Down:
        return [this] { step(1); };
    case Qt::Key_Left:
    case Qt::Key_Up:
        return [this] { step(-1); };
    case Qt::Key_T:
        return [this] { goToToday(); };
    default:
        return {};
    }
}

void CalendarPageView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // A window that comes back from the task bar goes on where it was.
    if (event->spontaneous())
        return;
    window()->installEventFilter(this);
    fitTiles();
    goToToday();
    // A focus left in the grid would come back to a tile that is another day now.
    if (auto* tile = qobject_cast<DayTile*>(focusWidget()))
        tile->clearFocus();
    waitForMidnight();
}

void CalendarPageView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_midnight.cancel();
}

bool CalendarPageView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != window() || !isVisible())
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::Resize) {
        fitTiles();
    } else if (event->type() == QEvent::WindowActivate) {
        // Somebody may have set the clock.
        refresh();
        waitForMidnight();
    }
    return QWidget::eventFilter(watched, event);
}

void CalendarPageView::step(int months)
{
    followZone();
    m_cursor.step(months, m_model.dateOptions());
    refresh();
}

void CalendarPageView::goToToday()
{
    followZone();
    m_cursor.goTo(m_model.today());
    refresh();
}

void CalendarPageView::select(Instant day)
{
    m_cursor.selected = day;
    refresh();
}

void CalendarPageView::moveSelected(int days)
{
    followZone();
    m_cursor.moveSelected(days, m_model.dateOptions());
    refresh();
}

/// In another zone the same days are shown and selected.
void CalendarPageView::followZone()
{
    const Calendar calendar = m_model.calendar();
    for (Instant* date : {&m_cursor.anchor, &m_cursor.selected})
        *date = CalendarKit::sameDay(*date, m_calendar, calendar);
    m_calendar = calendar;
}

void CalendarPageView::refresh()
{
    followZone();
    const DateOptions current = m_model.dateOptions();
    if (const QString title = toQt(CalendarGrid::title(m_cursor.anchor, current)); title != m_title->text()) {
        m_title->setText(title);
        m_title->announce();
    }
    m_summary->setText(toQt(current.weekendRule.summary()));
    m_grid->showMonth(CalendarGrid::month(m_cursor.anchor, current, m_model.today()),
                      CalendarKit::dayKey(m_cursor.selected, m_calendar), m_calendar);
    showSelectedDay();
}

void CalendarPageView::showSelectedDay()
{
    const QString date = toQt(CalendarKit::longDate(m_cursor.selected, m_calendar));
    m_selectedDate->setText(date);
    m_chip->setCopyText(date);
    if (m_model.weekendRule().isWeekend(CalendarKit::weekday(m_cursor.selected, m_calendar))) {
        m_dayKind->setText(QStringLiteral("Weekend"));
        m_dayKind->setColors(Theme::Token::weekendInk, Theme::Token::weekendFill);
    } else {
        m_dayKind->setText(QStringLiteral("Working day"));
        m_dayKind->setColors(Theme::Token::workdayInk, Theme::Token::workdayFill);
    }
}

/// Today moves on while the page is open.
void CalendarPageView::waitForMidnight()
{
    m_midnight = m_model.clock().after(m_model.untilMidnight(), [this] {
        refresh();
        waitForMidnight();
    });
}

void CalendarPageView::fitTiles()
{
    m_grid->setTileHeight(Metric::forWindow(window()->height(), lowTile, highTile));
}

} // namespace zelta
