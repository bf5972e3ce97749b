#include "app/pages/DatePicker.h"

#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/MonthGrid.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "core/CalendarGrid.h"
#include "core/CalendarKit.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

constexpr int popoverWidth = 286;
constexpr std::int64_t lastYear = 9999;

} // namespace

// A sub-window: Tab stays within it.
DatePicker::DatePicker(AppModel& model, QWidget& owner)
    : QWidget(owner.window(), Qt::SubWindow)
    , m_model(model)
    , m_owner(&owner)
    , m_grid(new MonthGrid(DayTile::Look::picker, this))
{
    constexpr int padding = 14;
    constexpr int belowHead = 8;
    setAccessibleName(QStringLiteral("Pick from a calendar"));
    setFixedWidth(popoverWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(belowHead);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(makeHead());
    column->addWidget(m_grid);
    m_grid->setFixedWidth(popoverWidth - 2 * padding);
    connect(m_grid, &MonthGrid::dayChosen, this, [this](const DayCell& cell) {
        if (pick(cell.date))
            close();
    });
    connect(m_grid, &MonthGrid::moveRequested, this, [this](const DayCell& from, int days) {
        MonthCursor moved {from.date, from.date};
        moved.moveSelected(days, m_model.dateOptions());
        pick(moved.selected);
    });
    // Who goes on elsewhere has done with it.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (isVisible() && now != nullptr && now != this && !isAncestorOf(now))
            close();
    });
    hide();
}

QLayout* DatePicker::makeHead()
{
    m_title = new Label({}, Theme::FontRole::bodyBold, Theme::Token::text, this);
    auto* previous = new IconButton("chevron-left", QStringLiteral("Previous month"), this);
    auto* next = new IconButton("chevron-right", QStringLiteral("Next month"), this);
    connect(previous, &QPushButton::clicked, this, [this] { step(-1); });
    connect(next, &QPushButton::clicked, this, [this] { step(1); });
    auto* head = new QHBoxLayout;
    head->setSpacing(0);
    head->addWidget(m_title);
    head->addStretch(1);
    for (IconButton* button : {previous, next}) {
        button->setSide(Metric::smallButtonHeight);
        button->setSymbolSize(16);
        head->addWidget(button);
    }
    return head;
}

void DatePicker::openAt(QWidget& anchor, Instant date)
{
    constexpr int gap = 4;
    m_anchor = &anchor;
    setDate(date);
    m_grid->layout()->activate(); // or the height would be that of the month shown last
    layout()->activate();
    // Where a month of six weeks has room, so that it stays in place while months are turned over.
    const int tallest = height() + m_grid->heightToSixWeeks();
    const QRect room = window()->rect();
    const QRect place(anchor.mapTo(window(), QPoint()), anchor.size());
    const int below = place.bottom() + 1 + gap;
    const int y = below + tallest <= room.bottom() + 1 ? below : place.top() - gap - tallest;
    const int x = std::min(place.left(), room.right() + 1 - Metric::pagePadding - width());
    move(std::max(x, 0), std::max(y, 0));
    raise();
    show();
    m_grid->focusSelected();
    qApp->installEventFilter(this);
}

void DatePicker::setDate(Instant date)
{
    m_cursor.goTo(date);
    refresh();
}

bool DatePicker::isOutside(const QPoint& globalPosition) const
{
    const auto holds = [&](const QWidget* widget) {
        return widget != nullptr && widget->rect().contains(widget->mapFromGlobal(globalPosition));
    };
    return !holds(this) && !holds(m_owner);
}

void DatePicker::closeEvent(QCloseEvent* event)
{
    if (m_anchor && m_anchor->isVisible() && isAncestorOf(window()->focusWidget()))
        m_anchor->setFocus();
    QWidget::closeEvent(event);
}

/// A press or a turn of the wheel elsewhere closes it and does there what it does.
bool DatePicker::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        if (isOutside(static_cast<QSinglePointEvent*>(event)->globalPosition().toPoint()))
            close();
        break;
    case QEvent::Hide:
        if (watched == m_owner || watched == window())
            close();
        break;
    case QEvent::Resize:
        if (watched == window())
            close();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void DatePicker::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    qApp->removeEventFilter(this);
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageUp)
        pick(CalendarGrid::shift(m_cursor.selected, -1, m_model.dateOptions()));
    else if (event->key() == Qt::Key_PageDown)
        pick(CalendarGrid::shift(m_cursor.selected, 1, m_model.dateOptions()));
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void DatePicker::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // not for what lies below
}

void DatePicker::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void DatePicker::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), Metric::cardRadius, Theme::color(Theme::Token::card),
                  Theme::color(Theme::Token::outline));
}

/// Moves the date and tells of it. False, and nothing changes, outside of the years that can be typed.
bool DatePicker::pick(Instant day)
{
    if (m_model.dateOptions().calendar().civilDay(day).year > lastYear)
        return false;
    setDate(day);
    Q_EMIT datePicked(day);
    return true;
}

/// Turning over the month picks nothing: the date stays until a day is chosen.
void DatePicker::step(int months)
{
    const Instant shown = CalendarGrid::shift(m_cursor.anchor, months, m_model.dateOptions());
    if (m_model.dateOptions().calendar().civilDay(shown).year > lastYear)
        return;
    m_cursor.anchor = shown;
    refresh();
}

void DatePicker::refresh()
{
    const DateOptions current = m_model.dateOptions();
    const Calendar calendar = current.calendar();
    m_title->setText(toQt(CalendarGrid::title(m_cursor.anchor, current)));
    m_grid->showMonth(CalendarGrid::month(m_cursor.anchor, current, m_model.today()),
                      CalendarKit::dayKey(m_cursor.selected, calendar), calendar);
}

} // namespace zelta
