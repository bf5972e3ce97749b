#include "app/pages/ConverterView.h"

#include "app/components/NumberField.h"
#include "app/components/Picker.h"
#include "app/components/Pill.h"
#include "app/components/ResultLine.h"
#include "app/components/ResultList.h"
#include "app/components/SwapButton.h"
#include "app/model/Text.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

namespace zelta {
namespace {

using namespace std::chrono_literals;

using Settings = test::TestModel::Settings;
using Lines = std::vector<std::string>;

/// The page in a window of its own, driven by the words on it.
struct Stage
{
    test::TestModel test;
    ConverterView page;

    explicit Stage(std::string_view stored = {})
        : test(stored.empty() ? Settings {} : Settings {{"converter.kind", stored}})
        , page(test.model)
    {
        page.resize(800, 700);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    }

    void type(const char* text) const
    {
        auto* field = page.findChild<NumberField*>()->field();
        field->setText(toQt(text));
    }
    [[nodiscard]] Picker* picker(const char* name) const
    {
        for (Picker* candidate : page.findChildren<Picker*>()) {
            if (candidate->accessibleName() == toQt(name))
                return candidate;
        }
        return nullptr;
    }
    void pick(const char* name, const char* unit) const
    {
        Picker* box = picker(name);
        box->setCurrentIndex(box->findText(toQt(unit)));
        Q_EMIT box->activated(box->currentIndex());
    }
    void choose(const char* kind) const
    {
        for (Pill* pill : page.findChildren<Pill*>()) {
            if (pill->value() == toQt(kind))
                QTest::mouseClick(pill, Qt::LeftButton);
        }
    }
    void swap() const { page.findChild<SwapButton*>()->click(); }
    [[nodiscard]] ResultList* results() const { return page.findChild<ResultList*>(); }
    [[nodiscard]] std::string answer() const { return plainText(results()->rows()); }
    [[nodiscard]] std::string units() const { return page.fromId() + " to " + page.toId(); }
    [[nodiscard]] std::string shownUnits() const
    {
        return toUtf8(picker("From")->currentText()) + " to " + toUtf8(picker("To")->currentText());
    }

    /// The reference lines and the ladder: every visible line that stands without a label.
    [[nodiscard]] std::vector<ResultLine*> referenceLines() const
    {
        std::vector<ResultLine*> lines;
        for (ResultLine* line : page.findChildren<ResultLine*>()) {
            if (line->isVisible() && line->row().label.empty())
                lines.push_back(line);
        }
        return lines;
    }
    [[nodiscard]] Lines references() const
    {
        Lines texts;
        for (const ResultLine* line : referenceLines())
            texts.push_back(line->row().value);
        return texts;
    }
    [[nodiscard]] bool shows(const char* text) const { return test::showsText(page, toQt(text)); }
};

TEST(ConverterView, ConvertsWhatIsTyped)
{
    const Stage stage;
    stage.type("5");
    EXPECT_EQ(stage.answer(), "5 mi in kilometre: 8.04672 km\n1 mi =: 1.609344 km\n1 km =: 0.6213712 mi");
}

TEST(ConverterView, ShowsItsMessageAndReferencesWithoutAnAmount)
{
    const Stage stage;
    const Lines lengths {"1 mi = 1.609344 km", "1 ft = 0.3048 m", "1 in = 2.54 cm", "1 nmi = 1.852 km",
                         "1 yd = 0.9144 m"};
    EXPECT_TRUE(stage.shows("Type an amount to convert it."));
    EXPECT_TRUE(stage.shows("Common conversions"));
    EXPECT_EQ(stage.references(), lengths);
    stage.type("abc");
    EXPECT_TRUE(stage.results()->rows().empty());
    EXPECT_TRUE(stage.page.findChild<NumberField*>()->showsWarning());
    EXPECT_TRUE(stage.shows("Type an amount to convert it."));
    EXPECT_EQ(stage.references(), lengths);
}

TEST(ConverterView, PicksUnitsInTheOrderOfTheTable)
{
    const Stage stage;
    const Picker* from = stage.picker("From");
    const auto table = units(UnitKind::length);
    ASSERT_EQ(from->count(), static_cast<int>(table.size()));
    for (int i = 0; i < from->count(); ++i)
        EXPECT_EQ(toUtf8(from->itemText(i)), table[static_cast<std::size_t>(i)].name);
    EXPECT_EQ(from->width(), 210);
    stage.type("1");
    stage.pick("From", "Foot");
    EXPECT_EQ(stage.units(), "ft to km");
    EXPECT_EQ(stage.results()->rows()[0].value, "0.0003048 km");
    EXPECT_EQ(from->accessibleDescription(), QStringLiteral("ft"));
    stage.pick("To", "Inch");
    EXPECT_EQ(stage.units(), "ft to in");
    EXPECT_EQ(stage.results()->rows()[0].value, "12 in");
}

TEST(ConverterView, ShowsTwoRowsForAUnitIntoItself)
{
    const Stage stage;
    stage.type("2");
    stage.pick("To", "Mile");
    EXPECT_EQ(stage.answer(), "2 mi in mile: 2 mi\n1 mi =: 1 mi");
}

TEST(ConverterView, SwapsTheUnits)
{
    const Stage stage;
    stage.type("5");
    EXPECT_EQ(stage.page.findChild<SwapButton*>()->toolTip(), QStringLiteral("Swap the two units"));
    stage.swap();
    EXPECT_EQ(stage.units(), "km to mi");
    EXPECT_EQ(stage.shownUnits(), "Kilometre to Mile");
    EXPECT_EQ(stage.results()->rows()[0].label, "5 km in mile");
    stage.swap();
    EXPECT_EQ(stage.units(), "mi to km");
    EXPECT_EQ(stage.shownUnits(), "Mile to Kilometre");
    EXPECT_EQ(stage.results()->rows()[0].label, "5 mi in kilometre");
}

TEST(ConverterView, StartsACategoryWithItsFirstPair)
{
    const Stage stage;
    stage.type("100");
    stage.pick("From", "Nanometre");
    stage.choose("temperature");
    EXPECT_EQ(stage.units(), "celsius to fahrenheit");
    EXPECT_EQ(stage.shownUnits(), "Celsius to Fahrenheit");
    EXPECT_EQ(stage.results()->rows()[0].value, "212 °F");
    stage.choose("mass");
    EXPECT_EQ(stage.units(), "kg to lb");
    stage.choose("length");
    EXPECT_EQ(stage.units(), "mi to km");
}

TEST(ConverterView, AddsTheLadderForTemperatures)
{
    const Stage stage("temperature");
    EXPECT_EQ(stage.references(),
              (Lines {"1 °C = 33.8 °F", "-40 °C = -40 °F", "0 °C = 32 °F", "20 °C = 68 °F", "37 °C = 98.6 °F",
                      "100 °C = 212 °F"}));
    const char* note
        = "Temperature scales are shifted as well as stretched, so a reading converts but a difference "
          "does not: 20 °C is 68 °F, yet a rise of 20 °C is a rise of 36 °F.";
    EXPECT_TRUE(stage.shows(note));
    EXPECT_TRUE(stage.shows("Everyday temperatures"));
    stage.choose("mass");
    EXPECT_FALSE(stage.shows(note));
    EXPECT_EQ(stage.references(),
              (Lines {"1 kg = 2.204623 lb", "1 oz = 28.349523 g", "1 st = 6.350293 kg", "1 t = 1,000 kg",
                      "1 ct = 0.2 g"}));
}

TEST(ConverterView, CopiesAReferenceLineWhole)
{
    Stage stage;
    ResultLine* line = stage.referenceLines().at(1);
    line->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1 ft = 0.3048 m"));
    stage.test.clock.advance(499ms);
    EXPECT_TRUE(line->isMarked());
    stage.test.clock.advance(1ms);
    EXPECT_FALSE(line->isMarked());
}

TEST(ConverterView, RemembersTheCategoryOnly)
{
    Stage stage;
    EXPECT_EQ(stage.test.model.store().setting("converter.kind"), std::nullopt);
    stage.choose("mass");
    EXPECT_EQ(stage.test.model.store().setting("converter.kind"), "mass");
    stage.pick("From", "Tonne");
    const ConverterView next(stage.test.model);
    EXPECT_EQ(next.kind(), UnitKind::mass);
    EXPECT_EQ(next.fromId(), "kg");
}

TEST(ConverterView, OpensOnLengthForAnUnknownCategoryAndLeavesItStored)
{
    Stage stage("volume");
    EXPECT_EQ(stage.page.kind(), UnitKind::length);
    EXPECT_EQ(stage.units(), "mi to km");
    EXPECT_EQ(stage.test.model.store().setting("converter.kind"), "volume");
}

TEST(ConverterView, TellsWhichUnitAPickerIsFor)
{
    const Stage stage;
    for (const char* name : {"From", "To"}) {
        const auto relations = test::accessible(*stage.picker(name)).relations(QAccessible::Label);
        ASSERT_EQ(relations.size(), 1);
        EXPECT_EQ(relations.front().first->text(QAccessible::Name), toQt(name));
    }
}

TEST(ConverterView, WritesNothingToTheHistory)
{
    Stage stage;
    stage.type("5");
    stage.test.clock.advance(5s);
    EXPECT_TRUE(stage.test.model.store().history(500).empty());
    EXPECT_EQ(stage.test.model.historyToken(), 0);
}

} // namespace
} // namespace zelta
