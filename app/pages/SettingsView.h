#pragma once

#include <QWidget>
#include <array>

namespace zelta {

class AppModel;
class Picker;
class Switch;
class Tag;

/// The two preferences that the whole program follows. Both are the model's, which stores them at once.
class SettingsView final : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsView(AppModel& model, QWidget* parent = nullptr);

private:
    QWidget* makeWorkingWeekCard();
    QWidget* makeClockCard();
    void showWeekend();
    void showClock();

    AppModel& m_model;
    Picker* m_picker = nullptr;
    std::array<Tag*, 7> m_days {}; ///< From Sunday on.
    Switch* m_clockSwitch = nullptr;
};

} // namespace zelta
