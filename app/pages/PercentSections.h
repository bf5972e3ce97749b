#pragma once

#include <QWidget>

namespace zelta {

class AppModel;
class NumberField;
class ResultList;

/// Two numbers compared: X, the part or the starting point, with Y, the whole or the comparison.
class CompareSection final : public QWidget
{
    Q_OBJECT

public:
    explicit CompareSection(AppModel& model, QWidget* parent = nullptr);

private:
    QWidget* makeInput();
    void swap();
    void showAnswer();

    NumberField* m_x;
    NumberField* m_y;
    ResultList* m_results = nullptr; ///< Made last: readers and Tab go by age.
};

/// A value raised, cut, and taken back by a percentage.
class ChangeSection final : public QWidget
{
    Q_OBJECT

public:
    explicit ChangeSection(AppModel& model, QWidget* parent = nullptr);

private:
    QWidget* makeInput();
    void showAnswer();

    NumberField* m_value;
    NumberField* m_percent;
    ResultList* m_results = nullptr;
};

} // namespace zelta
