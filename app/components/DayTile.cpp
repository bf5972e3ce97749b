#include "app/components/DayTile.h"

#include "app/components/Clipboard.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "core/CalendarKit.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStringList>

namespace zelta {

namespace {

constexpr int daysPerWeek = 7;

void addCopyEntry(QMenu& menu, const QString& text)
{
    menu.addAction(QStringLiteral("Copy “%1”").arg(text), &menu, [text] { copyText(text); });
}

} // namespace

DayTile::DayTile(Look look, QWidget* parent)
    : QAbstractButton(parent)
    , m_look(look)
{
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void DayTile::setCell(const DayCell& cell, const Calendar& calendar)
{
    if (cell == m_cell)
        return;
    m_cell = cell;
    m_longDate = toQt(CalendarKit::longDate(cell.date, calendar));
    m_fullDate = toQt(CalendarKit::fullDate(cell.date, calendar));
    const QString kind = cell.isWeekend ? QStringLiteral("weekend") : QStringLiteral("working day");
    const QString help = m_look == Look::page ? QStringLiteral("%1 — %2").arg(m_longDate, kind) : m_longDate;
    setToolTip(help);
    if (help != accessibleName()) // or each tile would be announced as renamed whenever a day is chosen
        setAccessibleName(help);
    describe();
    update();
}

void DayTile::setSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    describe();
    update();
}

/// Says what the colours of the tile say.
void DayTile::describe()
{
    QStringList words;
    if (m_cell.isToday)
        words << QStringLiteral("today");
    if (m_selected)
        words << QStringLiteral("selected");
    const QString description = words.join(QStringLiteral(", "));
    if (description != accessibleDescription())
        setAccessibleDescription(description);
}

void DayTile::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_look != Look::page)
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addCopyEntry(*menu, m_longDate);
    addCopyEntry(*menu, m_fullDate);
    menu->popup(event->globalPos());
}

void DayTile::keyPressEvent(QKeyEvent* event)
{
    if (const int days = daysForKey(*event); days != 0)
        Q_EMIT moveRequested(days);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else if (event->key() == Qt::Key_Space)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore(); // the button's own arrow keys would move the focus to another tile
}

/// On the page the plain arrows turn the month over, so that a day is reached with Ctrl.
int DayTile::daysForKey(const QKeyEvent& event) const
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers != (m_look == Look::page ? Qt::ControlModifier : Qt::NoModifier))
        return 0;
    switch (event.key()) {
    case Qt::Key_Left:
        return -1;
    case Qt::Key_Right:
        return 1;
    case Qt::Key_Up:
        return -daysPerWeek;
    case Qt::Key_Down:
        return daysPerWeek;
    default:
        return 0;
    }
}

void DayTile::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_look == Look::page)
        paintPageTile(painter);
    else
        paintPickerDay(painter);
}

void DayTile::paintPageTile(QPainter& painter) const
{
    constexpr double outsideOpacity = 0.38;
    constexpr double circle = 26;
    constexpr double stroke = 2;
    const QRectF area = rect();
    painter.setOpacity(m_cell.inPeriod ? 1 : outsideOpacity);
    Surface::draw(painter, area, Metric::rowRadius,
                  Theme::color(m_cell.isWeekend ? Theme::Token::tileWeekend : Theme::Token::tileWorkday));
    Surface::drawPress(painter, area, Metric::rowRadius, Surface::pressOf(*this));
    Theme::Token ink = m_cell.isWeekend ? Theme::Token::textSecondary : Theme::Token::text;
    if (m_cell.isToday) {
        QRectF disc(0, 0, circle, circle);
        disc.moveCenter(area.center());
        Surface::draw(painter, disc, circle / 2, Theme::fill(Module::calendar));
        ink = Theme::Token::onAccent;
    }
    painter.setPen(Theme::color(ink));
    painter.setFont(
        Theme::font(m_cell.isToday ? Theme::FontRole::dayNumberToday : Theme::FontRole::dayNumber));
    painter.drawText(area, Qt::AlignCenter, QString::number(m_cell.dayNumber));
    painter.setOpacity(1);
    if (m_selected)
        Surface::drawOutline(painter, area, Metric::rowRadius, Theme::tint(Module::calendar), stroke);
    if (Surface::showsFocus(*this)) {
        // Inside the stroke of the selection, which stays in sight.
        const QRectF inner = area.adjusted(stroke, stroke, -stroke, -stroke);
        Surface::drawFocusRing(painter, inner, Metric::rowRadius - stroke);
    }
}

void DayTile::paintPickerDay(QPainter& painter) const
{
    const QRectF area = rect();
    QFont font = Theme::font(Theme::FontRole::menu);
    QColor ink = Theme::color(m_cell.inPeriod ? Theme::Token::text : Theme::Token::textSecondary);
    if (m_cell.isToday) {
        font.setWeight(QFont::Bold);
        ink = Theme::ink(Module::duration);
    }
    if (m_selected) {
        font.setWeight(QFont::DemiBold);
        ink = Theme::color(Theme::Token::onAccent);
        Surface::draw(painter, area, Metric::controlRadius, Theme::fill(Module::duration));
    } else {
        Surface::drawPress(painter, area, Metric::controlRadius, Surface::pressOf(*this));
    }
    painter.setPen(ink);
    painter.setFont(font);
    painter.drawText(area, Qt::AlignCenter, QString::number(m_cell.dayNumber));
    if (Surface::showsFocus(*this)) {
        constexpr double inset = 2;
        const QRectF inner = area.adjusted(inset, inset, -inset, -inset);
        Surface::drawOutline(painter, inner, Metric::controlRadius - inset,
                             m_selected ? ink : Theme::color(Theme::Token::focus), inset);
    }
}

} // namespace zelta
