#pragma once

#include "core/CalendarGrid.h"

#include <QAbstractButton>

namespace zelta {

/// One day of a month: a click selects it. Its tool tip and accessible name say the whole date; on the page
/// also whether that is a weekend, and a context menu copies it. Takes the focus by Tab when it is told to.
class DayTile : public QAbstractButton
{
    Q_OBJECT

public:
    /// `page`: a shaded tile in the page's red. `picker`: a bare number in the blue of a choice.
    enum class Look { page, picker };

    DayTile(Look look, QWidget* parent);

    /// Shows a day. The calendar is the one the cell was made in.
    void setCell(const DayCell& cell, const Calendar& calendar);
    [[nodiscard]] const DayCell& cell() const { return m_cell; }

    void setSelected(bool selected);
    [[nodiscard]] bool isSelected() const { return m_selected; }

Q_SIGNALS:
    /// The person asks by key for the day so many days away from this one.
    void moveRequested(int days);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void describe();
    void paintPageTile(QPainter& painter) const;
    void paintPickerDay(QPainter& painter) const;
    [[nodiscard]] int daysForKey(const QKeyEvent& event) const;

    Look m_look;
    DayCell m_cell;
    QString m_longDate;
    QString m_fullDate;
    bool m_selected = false;
};

} // namespace zelta
