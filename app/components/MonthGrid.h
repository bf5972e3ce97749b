#pragma once

#include "app/components/DayTile.h"

#include <QWidget>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

class QGridLayout;

namespace zelta {

class Label;

/// A month as weeks of day tiles under the weekdays' names, from Monday on. One tab stop: the selected day,
/// or the first of the month where that is not in sight.
class MonthGrid : public QWidget
{
    Q_OBJECT

public:
    explicit MonthGrid(DayTile::Look look, QWidget* parent = nullptr);

    /// Shows these rows. A day that the time zone skipped leaves a hole under its weekday.
    void showMonth(const std::vector<WeekRow>& rows, const std::string& selectedKey,
                   const Calendar& calendar);

    /// Rows of the page's look are this high; the picker's have one height.
    void setTileHeight(int pixels);

    /// How much higher the picker's grid is with six weeks than now.
    [[nodiscard]] int heightToSixWeeks() const;

    /// Gives the focus to the tab stop.
    void focusSelected();

Q_SIGNALS:
    /// The person chose this day with the mouse, Space or Enter.
    void dayChosen(const DayCell& cell);
    /// The person asks by key for the day so many days away from this one.
    void moveRequested(const DayCell& from, int days);

private:
    static constexpr int maxRows = 6;
    static constexpr int daysPerWeek = 7;

    void makeHeadings();
    void makeRow(int row);
    void showRow(std::size_t row, const WeekRow& week, const std::string& selectedKey,
                 const Calendar& calendar);

    DayTile::Look m_look;
    QGridLayout* m_layout;
    std::vector<Label*> m_weekNumbers; ///< None in the picker.
    std::array<std::array<DayTile*, daysPerWeek>, maxRows> m_tiles {};
    DayTile* m_stop = nullptr; ///< The tile that takes the focus.
};

} // namespace zelta
