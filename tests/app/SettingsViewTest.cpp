#include "app/pages/SettingsView.h"

#include "app/components/Picker.h"
#include "app/components/Switch.h"
#include "app/components/Tag.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

namespace zelta::test {
namespace {

struct Stage
{
    TestModel test;
    SettingsView page;
    Picker* picker = page.findChild<Picker*>();
    Switch* clock = page.findChild<Switch*>();

    explicit Stage(const TestModel::Settings& settings = {})
        : test(settings)
        , page(test.model)
    {
        page.resize(800, 400);
        page.show();
    }

    /// The days that the strip shows as weekend, in its order.
    std::string weekend() const
    {
        std::string days;
        for (const Tag* day : page.findChildren<Tag*>()) {
            if (day->accessibleDescription() == QStringLiteral("weekend"))
                days += toUtf8(day->text()) + " ";
        }
        return days;
    }

    void choose(const char* preset)
    {
        const int index = picker->findText(toQt(WeekendRule::preset(preset).name));
        picker->setCurrentIndex(index);
        Q_EMIT picker->activated(index);
    }
};

TEST(SettingsPage, ShowsWhatIsStored)
{
    const Stage stage(TestModel::Settings {{"weekend", "fri"}, {"clock24", "1"}});
    EXPECT_EQ(stage.picker->currentText(), QStringLiteral("Friday only"));
    EXPECT_EQ(stage.weekend(), "Fri ");
    EXPECT_TRUE(stage.clock->isChecked());
}

TEST(SettingsPage, OffersThePresetsInTheirOrder)
{
    const Stage stage;
    const auto presets = WeekendRule::presets();
    ASSERT_EQ(stage.picker->count(), static_cast<int>(presets.size()));
    for (int i = 0; i < stage.picker->count(); ++i)
        EXPECT_EQ(toUtf8(stage.picker->itemText(i)), presets[static_cast<std::size_t>(i)].name);
    EXPECT_EQ(stage.picker->accessibleName(), QStringLiteral("Weekend"));
    EXPECT_EQ(accessible(*stage.picker).relations(QAccessible::Label).size(), 1);
}

TEST(SettingsPage, TheStripRunsFromSundayToSaturday)
{
    const Stage stage;
    QStringList days;
    for (const Tag* day : stage.page.findChildren<Tag*>()) {
        EXPECT_EQ(day->size(), QSize(46, 30));
        days << day->text();
    }
    EXPECT_EQ(days.join(QLatin1Char(' ')), QStringLiteral("Sun Mon Tue Wed Thu Fri Sat"));
    EXPECT_EQ(stage.weekend(), "Sun Sat ");
}

TEST(SettingsPage, AChoiceIsStoredAtOnceAndShows)
{
    Stage stage;
    stage.choose("none");
    EXPECT_EQ(stage.test.model.store().setting("weekend"), "none");
    EXPECT_EQ(stage.test.model.weekendRule(), WeekendRule::none());
    EXPECT_EQ(stage.weekend(), "");
    stage.choose("fri-sun");
    EXPECT_EQ(stage.test.model.store().setting("weekend"), "fri-sun");
    EXPECT_EQ(stage.weekend(), "Sun Fri ");
}

TEST(SettingsPage, AClickOnTheLabelSetsTheClock)
{
    Stage stage;
    for (QLabel* label : stage.page.findChildren<QLabel*>()) {
        if (label->text() != QStringLiteral("Show times in 24-hour format"))
            continue;
        QTest::mousePress(label, Qt::LeftButton);
        QTest::mouseRelease(label, Qt::LeftButton, {}, {-20, 5});
        EXPECT_FALSE(stage.test.model.use24Hour()) << "let go of elsewhere";
        QTest::mouseClick(label, Qt::LeftButton);
    }
    EXPECT_TRUE(stage.test.model.use24Hour());
}

TEST(SettingsPage, TheClockIsSetByAssistiveTechnologyToo)
{
    Stage stage;
    toggleAccessibly(*stage.page.findChild<Switch*>());
    EXPECT_TRUE(stage.test.model.use24Hour());
    EXPECT_EQ(stage.test.model.store().setting("clock24"), "1");
    EXPECT_EQ(stage.clock->accessibleDescription(),
              QStringLiteral("Applies to the times shown in History and Notes."));
}

TEST(SettingsPage, ShowingWhatIsStoredWritesNothing)
{
    Stage stage(TestModel::Settings {{"clock24", "TRUE"}});
    EXPECT_TRUE(stage.clock->isChecked());
    EXPECT_EQ(stage.test.model.store().setting("clock24"), "TRUE");
}

TEST(SettingsPage, WorkdaysAreGreenAndTheWeekendIsOrange)
{
    const Stage stage;
    for (Tag* day : stage.page.findChildren<Tag*>()) {
        const bool isWeekend = day->accessibleDescription() == QStringLiteral("weekend");
        const auto ink = isWeekend ? Theme::Token::weekendInk : Theme::Token::workdayInk;
        const auto fill = isWeekend ? Theme::Token::weekendFill : Theme::Token::workdayFill;
        EXPECT_EQ(day->palette().color(day->foregroundRole()), Theme::color(ink));
        EXPECT_NEAR(day->grab().toImage().pixelColor(3, 15).hslHue(), Theme::color(fill).hslHue(), 2);
    }
}

TEST(SettingsPage, AnUnknownRuleIsNobodysChoice)
{
    Stage stage(TestModel::Settings {{"weekend", "some-days"}});
    EXPECT_EQ(stage.picker->currentIndex(), -1);
    EXPECT_EQ(stage.picker->currentText(), QString());
    EXPECT_EQ(stage.weekend(), "Sun Sat ");
    EXPECT_EQ(stage.test.model.store().setting("weekend"), "some-days");
    stage.choose("sat-sun");
    EXPECT_EQ(stage.test.model.store().setting("weekend"), "sat-sun");
}

TEST(SettingsPage, TheClockFormatIsStoredAtOnce)
{
    Stage stage;
    EXPECT_FALSE(stage.clock->isChecked());
    stage.clock->click();
    EXPECT_TRUE(stage.test.model.use24Hour());
    EXPECT_EQ(stage.test.model.store().setting("clock24"), "1");
    stage.clock->click();
    EXPECT_EQ(stage.test.model.store().setting("clock24"), "0");
}

TEST(SettingsPage, FollowsTheModel)
{
    Stage stage;
    stage.test.model.setUse24Hour(true);
    stage.test.model.setWeekendPresetID("sun");
    EXPECT_TRUE(stage.clock->isChecked());
    EXPECT_EQ(stage.picker->currentText(), QStringLiteral("Sunday only"));
    EXPECT_EQ(stage.weekend(), "Sun ");
}

} // namespace
} // namespace zelta::test
