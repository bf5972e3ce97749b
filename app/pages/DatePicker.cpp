#include "app/pages/DatePicker.h"

#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/MonthGrid.h"
#include "app/look/StyleParts.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "core/CalendarGrid.h"
#include "core/CalendarKit.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

constexpr int popoverWidth = 286;
constexpr std::int64_t lastYear = 9999;

} // namespace

DatePicker::DatePicker(AppModel& model, QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_model(model)
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
        change([&cell](MonthCursor& cursor) { cursor.goTo(cell.date); });
        close();
    });
    connect(m_grid, &MonthGrid::moveRequested, this, [this](int days) {
        change([this, days](MonthCursor& cursor) { cursor.moveSelected(days, options()); });
    });
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

void DatePicker::openAt(const QWidget& anchor, Instant date)
{
    constexpr int gap = 4;
    setDate(date);
    adjustSize();
    const QRect place(anchor.mapToGlobal(QPoint()), anchor.size());
    const QRect screen = anchor.screen()->availableGeometry();
    const int below = place.bottom() + 1 + gap;
    const int y = below + height() <= screen.bottom() + 1 ? below : place.top() - gap - height();
    const int x = std::min(place.left(), screen.right() + 1 - width());
    move(std::max(x, screen.left()), std::max(y, screen.top()));
    show();
    m_grid->focusSelected(Qt::PopupFocusReason);
}

void DatePicker::setDate(Instant date)
{
    m_cursor.goTo(date);
    refresh();
}

void DatePicker::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageUp)
        moveByMonth(-1);
    else if (event->key() == Qt::Key_PageDown)
        moveByMonth(1);
    else if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void DatePicker::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), Metric::cardRadius, Theme::color(Theme::Token::card),
                  Theme::color(Theme::Token::outline));
}

void DatePicker::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    setMask(StyleParts::popupMask(rect(), Metric::cardRadius));
}

DateOptions DatePicker::options() const
{
    return {.includeEndDate = false,
            .weekendRule = m_model.weekendRule(),
            .timeZoneIdentifier = m_model.timeZoneIdentifier()};
}

/// Moves the date, unless it would leave the years that can be typed.
void DatePicker::change(const std::function<void(MonthCursor&)>& move)
{
    MonthCursor moved = m_cursor;
    move(moved);
    if (options().calendar().civilDay(moved.selected).year > lastYear)
        return;
    const bool isOther = moved.selected != m_cursor.selected;
    m_cursor = moved;
    refresh();
    if (isOther)
        Q_EMIT datePicked(m_cursor.selected);
}

void DatePicker::moveByMonth(int months)
{
    change([this, months](MonthCursor& cursor) {
        cursor.goTo(CalendarGrid::shift(cursor.selected, months, options()));
    });
}

/// Turning over the month picks nothing: the date stays until a day is chosen.
void DatePicker::step(int months)
{
    const Instant shown = CalendarGrid::shift(m_cursor.anchor, months, options());
    if (options().calendar().civilDay(shown).year > lastYear)
        return;
    m_cursor.anchor = shown;
    refresh();
}

void DatePicker::refresh()
{
    const DateOptions current = options();
    const Calendar calendar = current.calendar();
    m_title->setText(toQt(CalendarGrid::title(m_cursor.anchor, current)));
    m_grid->showMonth(CalendarGrid::month(m_cursor.anchor, current, m_model.today()),
                      CalendarKit::dayKey(m_cursor.selected, calendar), calendar);
}

} // namespace zelta
