#pragma once

#include "core/Calendar.h"
#include "core/Instant.h"

#include <QPointer>
#include <QWidget>

class QLineEdit;

namespace zelta {

class AppModel;
class CopyableText;
class DatePicker;
class IconButton;
class Tag;

/// A date as three fields for day, month and year, with a calendar to pick it from. What is typed is never
/// rewritten; a date chosen in any other way is written out in full. See DateFields for what is read.
class DateInput final : public QWidget
{
    Q_OBJECT

public:
    /// `name` begins the fields' accessible names: "Start date, day".
    DateInput(const QString& name, AppModel& model, QWidget* parent = nullptr);

    /// The date in force: the last real one. In another zone it stays the day that was entered.
    [[nodiscard]] Instant date() const;

    /// Sets the date without a signal and writes it into the fields.
    void setDate(Instant date);

Q_SIGNALS:
    /// The person typed, picked or asked for another date.
    void dateChanged(Instant date);

private:
    QWidget* makeFields(const QString& name);
    QLayout* makeStatusLine();
    QWidget* makeWarning();
    QLineEdit* makeField(const QString& name, const QString& placeholder, int width, QWidget* parent);

    void commit();
    void choose(Instant date);
    void openPicker();
    void keep(Instant date);
    void showDate();
    void showWarning(bool isWarning);

    AppModel& m_model;
    Calendar m_calendar; ///< In which `m_date` is the day that was entered.
    Instant m_date {};
    QLineEdit* m_day = nullptr;
    QLineEdit* m_month = nullptr;
    QLineEdit* m_year = nullptr;
    IconButton* m_pickerButton = nullptr;
    QPointer<DatePicker> m_picker; ///< Made when it is first opened; the window's.
    Tag* m_weekday = nullptr;
    CopyableText* m_longDate = nullptr;
    QWidget* m_warning = nullptr;
    bool m_isWriting = false;
};

} // namespace zelta
