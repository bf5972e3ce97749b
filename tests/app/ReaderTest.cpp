#include "app/components/DayTile.h"
#include "app/components/IconButton.h"
#include "app/components/Pill.h"
#include "app/model/Text.h"
#include "app/pages/NotesView.h"
#include "app/shell/AboutDialog.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace zelta {
namespace {

using test::accessible;
using Names = std::vector<std::string>;

/// What somebody meets who does not see the window.
struct Reader : test::WindowTest
{
    void SetUp() override
    {
        WindowTest::SetUp();
        QObject::connect(qApp, &QApplication::focusChanged, &window, [this](QWidget*, QWidget* now) {
            if (now != nullptr)
                m_visited.push_back(toUtf8(accessible(*now).text(QAccessible::Name)));
        });
    }

    void turnTo(Module module)
    {
        test.model.setSelection(module);
        m_visited.clear();
    }
    /// What has had the focus since the page was turned to, or since the last time that this was asked.
    Names visited() { return std::exchange(m_visited, {}); }
    static std::string focus()
    {
        QWidget* widget = QApplication::focusWidget();
        return widget != nullptr ? toUtf8(accessible(*widget).text(QAccessible::Name)) : "";
    }
    static void key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    static void type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), toQt(text)); }

    /// What is called so and can be seen.
    template <class Widget> Widget* find(const char* name) const
    {
        for (auto* widget : window.findChildren<Widget*>()) {
            if (widget->isVisible() && toUtf8(accessible(*widget).text(QAccessible::Name)) == name)
                return widget;
        }
        return nullptr;
    }
    void addNote(const char* text)
    {
        const Instant now = test.clock.now();
        test.model.store().createNote(Note(0, {{.text = text}}, now, now));
    }

private:
    Names m_visited;
};

TEST_F(Reader, OnePlaceGetsTheFocusWhenAPageIsTurned)
{
    test.model.setSelection(Module::percent);
    EXPECT_EQ(visited(), Names {"Value X"});
    test.model.setSelection(Module::calculator);
    EXPECT_EQ(visited(), Names {"Calculator"});
    addNote("apple");
    test.model.setSelection(Module::notes);
    EXPECT_EQ(visited(), Names {"Notes"});
}

TEST_F(Reader, TabGoesOnFromAPageToItsFirstControl)
{
    test.model.record(Module::calculator, "t", {{"a", "b", {}, {}, {}}});
    const std::pair<Module, const char*> first[] {{Module::calculator, "Display: 0"},
                                                  {Module::calendar, "Previous month"},
                                                  {Module::notes, "New note"},
                                                  {Module::history, "Clear history"},
                                                  {Module::settings, "Saturday & Sunday"}};
    for (const auto& [module, name] : first) {
        turnTo(module);
        ASSERT_EQ(focus(), title(module));
        key(Qt::Key_Tab);
        EXPECT_EQ(focus(), name);
    }
}

TEST_F(Reader, IsToldOfADayWhatItsColoursSay)
{
    turnTo(Module::calendar);
    const auto tile = [this](const char* key) {
        const auto tiles = window.findChildren<DayTile*>();
        return *std::ranges::find_if(
            tiles, [key](const DayTile* day) { return day->isVisible() && day->cell().key == key; });
    };
    const char* today = "2026-03-08"; // 13 hours ahead of the clock's 7 March, noon
    EXPECT_EQ(tile(today)->accessibleDescription(), QStringLiteral("today, selected"));
    QTest::mouseClick(tile("2026-03-12"), Qt::LeftButton);
    EXPECT_EQ(tile(today)->accessibleDescription(), QStringLiteral("today"));
    EXPECT_EQ(tile("2026-03-12")->accessibleDescription(), QStringLiteral("selected"));
    EXPECT_EQ(tile("2026-03-13")->accessibleDescription(), QString());
}

TEST_F(Reader, IsToldInAFieldThatTheDateIsNone)
{
    turnTo(Module::duration);
    auto* day = find<QLineEdit>("Start date, day");
    day->setFocus();
    day->selectAll();
    type("31");
    auto* month = find<QLineEdit>("Start date, month");
    month->setFocus();
    month->selectAll();
    type("4");
    for (QLineEdit* field : {day, month})
        EXPECT_EQ(accessible(*field).text(QAccessible::Description), QStringLiteral("Not a real date"));
    month->selectAll();
    type("5");
    EXPECT_EQ(accessible(*month).text(QAccessible::Description), QStringLiteral("mm"));
}

TEST_F(Reader, GoesStraightToTheNextEntry)
{
    for (int i = 0; i < 3; ++i)
        test.model.record(Module::calculator, std::to_string(i), {{"a", "b", {}, {}, {}}});
    turnTo(Module::history);
    find<IconButton>("Delete this entry")->setFocus(Qt::TabFocusReason);
    static_cast<void>(visited());
    key(Qt::Key_Space);
    EXPECT_EQ(visited(), Names {"Delete this entry"});
}

TEST_F(Reader, GoesStraightToTheNextParagraph)
{
    turnTo(Module::notes);
    auto* page = window.findChild<NotesView*>();
    page->newNote();
    page->appendBlock();
    for (QWidget* remove : window.findChildren<IconButton*>()) { // the last one, before "Add paragraph"
        if (remove->accessibleName() == QStringLiteral("Remove this paragraph") && remove->isVisible())
            remove->setFocus(Qt::TabFocusReason);
    }
    static_cast<void>(visited());
    key(Qt::Key_Space);
    EXPECT_EQ(visited().size(), 1U);
    EXPECT_EQ(focus(), "Paragraph 1");
}

TEST_F(Reader, GoesWithTheTabThatIsChosen)
{
    turnTo(Module::percent);
    const auto pills = window.findChildren<Pill*>();
    pills[0]->setFocus();
    test::toggleAccessibly(*pills[1]);
    EXPECT_EQ(QApplication::focusWidget(), pills[1]);
    find<QLineEdit>("Value")->setFocus();
    test::toggleAccessibly(*pills[0]);
    EXPECT_NE(QApplication::focusWidget(), pills[0]) << "who is elsewhere stays there";
}

TEST_F(Reader, MeetsALabelBeforeItsPicker)
{
    turnTo(Module::settings);
    QWidget* picker = find<QWidget>("Saturday & Sunday");
    ASSERT_NE(picker, nullptr);
    QAccessibleInterface* card = accessible(*picker).parent();
    QAccessibleInterface* before = card->child(card->indexOfChild(&accessible(*picker)) - 1);
    ASSERT_NE(before, nullptr);
    EXPECT_EQ(before->text(QAccessible::Name), QStringLiteral("Weekend"));
}

TEST_F(Reader, MeetsNothingWithoutAName)
{
    AboutDialog about(&window);
    for (QWidget* part : about.findChildren<QWidget*>()) {
        if (accessible(*part).role() == QAccessible::Client)
            continue; // a place or a decoration
        EXPECT_FALSE(accessible(*part).text(QAccessible::Name).isEmpty()) << part->metaObject()->className();
    }
}

} // namespace
} // namespace zelta
