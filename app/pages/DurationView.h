#pragma once

#include <QWidget>

namespace zelta {

class AppModel;
class DateInput;
class InfoNote;
class ResultList;
class Switch;

/// The span between two dates: both are typed or picked, the answer follows at once.
class DurationView final : public QWidget
{
    Q_OBJECT

public:
    explicit DurationView(AppModel& model, QWidget* parent = nullptr);

private:
    QWidget* makeDateCards();
    QWidget* makeOptionsCard();
    QLayout* makeQuickSpans(QWidget* card);

    void swapDates();
    void setQuickSpan(int days);
    void recompute();

    AppModel& m_model;
    DateInput* m_start = nullptr;
    DateInput* m_end = nullptr;
    Switch* m_includeEndDate = nullptr;
    ResultList* m_results = nullptr;
    InfoNote* m_note = nullptr;
};

} // namespace zelta
