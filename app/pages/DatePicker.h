#pragma once

#include "app/pages/MonthCursor.h"
#include "core/DateOptions.h"

#include <QWidget>
#include <functional>

namespace zelta {

class AppModel;
class Label;
class MonthGrid;

/// The popover in which a date is picked from a month. Its buttons turn the month over; arrow keys move the
/// date itself, Page Up and Page Down by a month. A click, Enter or Escape closes it. Offers the years that a
/// date field can hold, 1 to 9999.
class DatePicker final : public QWidget
{
    Q_OBJECT

public:
    DatePicker(AppModel& model, QWidget* parent);

    /// Opens below the anchor, or above it where the screen ends.
    void openAt(const QWidget& anchor, Instant date);

    /// Shows another date that was chosen elsewhere.
    void setDate(Instant date);

Q_SIGNALS:
    void datePicked(Instant date);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLayout* makeHead();
    [[nodiscard]] DateOptions options() const;
    void change(const std::function<void(MonthCursor&)>& move);
    void moveByMonth(int months);
    void step(int months);
    void refresh();

    AppModel& m_model;
    MonthCursor m_cursor;
    Label* m_title = nullptr;
    MonthGrid* m_grid = nullptr;
};

} // namespace zelta
