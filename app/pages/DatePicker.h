#pragma once

#include "app/pages/MonthCursor.h"

#include <QPointer>
#include <QWidget>

namespace zelta {

class AppModel;
class Label;
class MonthGrid;

/// The popover in which a date is picked from a month. Its buttons turn the month over; arrow keys move on
/// from the day that has the focus, Page Up and Page Down by a month, and each move is a choice. A click on a
/// day, Enter or Escape closes it, and so does whatever happens outside of it and its owner. Offers the years
/// that a date field can hold, 1 to 9999.
///
/// It is part of the window: a popup window of its own would be out of reach for assistive technology, and
/// would keep clicks from the buttons beside it.
class DatePicker final : public QWidget
{
    Q_OBJECT

public:
    /// Lies over the owner's window. The owner's controls can be used while it is open.
    DatePicker(AppModel& model, QWidget& owner);

    /// Opens below the anchor, or above it where the window ends. The anchor gets the focus back.
    void openAt(QWidget& anchor, Instant date);

    /// Shows another date that was chosen elsewhere.
    void setDate(Instant date);

Q_SIGNALS:
    /// The person chose this day, be it the one in force.
    void datePicked(Instant date);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QLayout* makeHead();
    [[nodiscard]] bool isOutside(const QPoint& globalPosition) const;
    bool pick(Instant day);
    void step(int months);
    void refresh();

    AppModel& m_model;
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_anchor;
    MonthCursor m_cursor;
    Label* m_title = nullptr;
    MonthGrid* m_grid = nullptr;
};

} // namespace zelta
