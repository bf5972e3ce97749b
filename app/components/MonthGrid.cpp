#include "app/components/MonthGrid.h"

#include "app/components/Label.h"
#include "app/model/Text.h"
#include "core/CalendarKit.h"

#include <QGridLayout>
#include <algorithm>
#include <cstddef>

namespace zelta {

namespace {

constexpr int weekNumberWidth = 30;
constexpr int pickerTileHeight = 30;

} // namespace

MonthGrid::MonthGrid(DayTile::Look look, QWidget* parent)
    : QWidget(parent)
    , m_look(look)
    , m_layout(new QGridLayout(this))
{
    constexpr int pageGap = 6;
    constexpr int pickerGap = 2;
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(look == DayTile::Look::page ? pageGap : pickerGap);
    for (int column = 1; column <= daysPerWeek; ++column)
        m_layout->setColumnStretch(column, 1);
    makeHeadings();
    for (int row = 0; row < maxRows; ++row)
        makeRow(row);
}

void MonthGrid::makeHeadings()
{
    constexpr int pageHeight = 17;
    constexpr int pickerHeight = 22;
    const bool isPage = m_look == DayTile::Look::page;
    const auto names = CalendarGrid::weekdayHeadings(Calendar("UTC"), CalendarGrid::NameLength::abbreviated);
    int column = 1;
    for (const std::string_view name : names) {
        auto* heading
            = new Label(toQt(name), Theme::FontRole::sectionLabel, Theme::Token::textSecondary, this);
        if (!isPage) {
            QFont font = Theme::font(Theme::FontRole::note);
            font.setWeight(QFont::Bold);
            heading->setFont(font);
        }
        heading->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        heading->setFixedHeight(isPage ? pageHeight : pickerHeight);
        m_layout->addWidget(heading, 0, column++);
    }
}

void MonthGrid::makeRow(int row)
{
    if (m_look == DayTile::Look::page) {
        auto* number = new Label({}, Theme::FontRole::note, Theme::Token::textSecondary, this);
        number->setAlignment(Qt::AlignCenter);
        number->setFixedWidth(weekNumberWidth);
        m_layout->addWidget(number, row + 1, 0);
        m_weekNumbers.push_back(number);
    }
    int column = 1;
    for (DayTile*& tile : m_tiles.at(static_cast<std::size_t>(row))) {
        tile = new DayTile(m_look, this);
        if (m_look == DayTile::Look::picker)
            tile->setFixedHeight(pickerTileHeight);
        connect(tile, &DayTile::clicked, this, [this, tile] {
            Q_EMIT dayChosen(tile->cell());
            if (isVisible())
                focusSelected(); // the arrows go on from there
        });
        connect(tile, &DayTile::moveRequested, this,
                [this, tile](int days) { Q_EMIT moveRequested(tile->cell(), days); });
        m_layout->addWidget(tile, row + 1, column++);
    }
}

void MonthGrid::showMonth(const std::vector<WeekRow>& rows, const std::string& selectedKey,
                          const Calendar& calendar)
{
    const bool hadFocus = m_stop && m_stop->hasFocus();
    if (m_stop)
        m_stop->setFocusPolicy(Qt::NoFocus);
    m_stop = nullptr;
    for (std::size_t row = 0; row < m_tiles.size(); ++row)
        showRow(row, row < rows.size() ? rows[row] : WeekRow {}, selectedKey, calendar);
    if (m_stop)
        m_stop->setFocusPolicy(Qt::TabFocus);
    // The focus goes with the selection; the tile that had it may show another day now, or none.
    if (hadFocus)
        focusSelected();
}

void MonthGrid::showRow(std::size_t row, const WeekRow& week, const std::string& selectedKey,
                        const Calendar& calendar)
{
    if (!m_weekNumbers.empty()) {
        m_weekNumbers[row]->setText(QString::number(week.isoWeek));
        m_weekNumbers[row]->setVisible(!week.days.empty());
    }
    std::array<const DayCell*, daysPerWeek> cells {};
    for (const DayCell& cell : week.days) {
        const int sinceMonday = (CalendarKit::weekday(cell.date, calendar) + daysPerWeek - 2) % daysPerWeek;
        cells.at(static_cast<std::size_t>(sinceMonday)) = &cell;
    }
    for (std::size_t column = 0; column < cells.size(); ++column) {
        DayTile* tile = m_tiles[row][column];
        tile->setVisible(cells[column] != nullptr);
        if (!cells[column])
            continue;
        tile->setCell(*cells[column], calendar);
        tile->setSelected(cells[column]->key == selectedKey);
        if (tile->isSelected() || (!m_stop && cells[column]->inPeriod))
            m_stop = tile;
    }
}

void MonthGrid::setTileHeight(int pixels)
{
    for (const auto& row : m_tiles) {
        for (DayTile* tile : row)
            tile->setFixedHeight(pixels);
    }
}

int MonthGrid::heightToSixWeeks() const
{
    const auto isHidden = [](const auto& row) {
        return std::ranges::all_of(row, [](const DayTile* tile) { return tile->isHidden(); });
    };
    return static_cast<int>(std::ranges::count_if(m_tiles, isHidden))
        * (pickerTileHeight + m_layout->verticalSpacing());
}

void MonthGrid::focusSelected()
{
    if (m_stop)
        m_stop->setFocus();
}

} // namespace zelta
