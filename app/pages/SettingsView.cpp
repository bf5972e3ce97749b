#include "app/pages/SettingsView.h"

#include "app/components/Card.h"
#include "app/components/InfoNote.h"
#include "app/components/Label.h"
#include "app/components/Picker.h"
#include "app/components/Switch.h"
#include "app/components/SwitchRow.h"
#include "app/components/Tag.h"
#include "app/components/WrappingRow.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/PlainColumn.h"
#include "core/CalendarKit.h"

#include <QVBoxLayout>
#include <cstddef>

namespace zelta {

SettingsView::SettingsView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    QVBoxLayout* column = plainColumn(this, Metric::partSpacing);
    column->addWidget(makeWorkingWeekCard());
    column->addWidget(makeClockCard());
    connect(&model, &AppModel::weekendRuleChanged, this, &SettingsView::showWeekend);
    connect(&model, &AppModel::use24HourChanged, this, &SettingsView::showClock);
    showWeekend();
    showClock();
}

QWidget* SettingsView::makeWorkingWeekCard()
{
    constexpr int labelGap = 16;
    constexpr int pickerWidth = 280;
    constexpr int aboveStrip = 16;
    constexpr int belowStrip = 14;
    constexpr int chipGap = 6;
    static constexpr Tag::Shape chip {.role = Theme::FontRole::chip,
                                      .sidePadding = 0,
                                      .height = 30,
                                      .minimumWidth = 46,
                                      .radius = Metric::smallRadius};

    auto* card = new Card(QStringLiteral("Working week"), "calendar.badge.checkmark", this);
    auto* label = new Label(QStringLiteral("Weekend"), card); // first, as it is read
    m_picker = new Picker(QStringLiteral("Weekend"), card);
    label->setBuddy(m_picker);
    m_picker->setFixedWidth(pickerWidth);
    for (const WeekendRule::Preset& preset : WeekendRule::presets())
        m_picker->addEntry(toQt(preset.name), {}, toQt(preset.id));
    connect(m_picker, &Picker::activated, this,
            [this] { m_model.setWeekendPresetID(toUtf8(m_picker->currentData().toString())); });
    auto* row = new QHBoxLayout;
    row->setSpacing(labelGap);
    row->addWidget(label);
    row->addWidget(m_picker);
    row->addStretch(1);
    card->content()->addLayout(row);

    auto* strip = new WrappingRow(card, chipGap, chipGap);
    for (std::size_t i = 0; i < m_days.size(); ++i) {
        m_days[i] = new Tag(chip, strip);
        m_days[i]->setText(toQt(CalendarKit::weekdayShort[i + 1]));
        strip->add(m_days[i]);
    }
    card->content()->addSpacing(aboveStrip);
    card->content()->addWidget(strip);
    card->content()->addSpacing(belowStrip);
    card->content()->addWidget(new InfoNote(
        QStringLiteral("Green days count as workdays; orange days are your weekend. Every workday count in "
                       "the app follows this, and the calendar shades the weekend the same way."),
        "lightbulb.fill", InfoNote::Place::insideCard, card));
    return card;
}

QWidget* SettingsView::makeClockCard()
{
    auto* card = new Card(QStringLiteral("Clock"), "clock.fill", this);
    auto* row = new SwitchRow(QStringLiteral("Show times in 24-hour format"),
                              QStringLiteral("Applies to the times shown in History and Notes."), card);
    m_clockSwitch = row->control();
    connect(m_clockSwitch, &Switch::toggled, this, [this](bool on) {
        if (on != m_model.use24Hour())
            m_model.setUse24Hour(on);
    });
    card->content()->addLayout(row);
    return card;
}

void SettingsView::showWeekend()
{
    // A stored id that names no preset is nobody's choice: nothing is selected, though a rule is in force.
    m_picker->setCurrentIndex(m_picker->findData(toQt(m_model.weekendPresetID())));
    const WeekendRule rule = m_model.weekendRule();
    for (std::size_t i = 0; i < m_days.size(); ++i) {
        const bool isWeekend = rule.isWeekend(static_cast<int>(i) + 1);
        m_days[i]->setColors(isWeekend ? Theme::Token::weekendInk : Theme::Token::workdayInk,
                             isWeekend ? Theme::Token::weekendFill : Theme::Token::workdayFill);
        // What the colour says, for those who cannot see it.
        m_days[i]->setAccessibleDescription(isWeekend ? QStringLiteral("weekend")
                                                      : QStringLiteral("workday"));
    }
}

void SettingsView::showClock()
{
    m_clockSwitch->setChecked(m_model.use24Hour());
}

} // namespace zelta
