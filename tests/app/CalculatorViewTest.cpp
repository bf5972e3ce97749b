#include "app/pages/CalculatorView.h"

#include "app/components/Button.h"
#include "app/components/Flash.h"
#include "app/model/Text.h"
#include "app/pages/CalculatorDisplay.h"
#include "app/pages/Keypad.h"
#include "app/pages/ShortcutsPanel.h"
#include "app/pages/TapePanel.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/CalculatorStage.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTest>
#include <algorithm>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using Stage = test::CalculatorStage;

QKeyEvent press(int key, const char* text, Qt::KeyboardModifiers modifiers = {})
{
    return {QEvent::KeyPress, key, modifiers, toQt(text)};
}

TEST(CalculatorKeyTyped, ReadsDigitsAndSigns)
{
    using Kind = CalculatorKey::Kind;
    using Operation = Calculator::Operation;
    for (int digit = 0; digit <= 9; ++digit) {
        const std::string text = std::to_string(digit);
        EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_0 + digit, text.c_str())),
                  CalculatorKey::ofDigit(digit));
    }
    const std::vector<std::pair<const char*, CalculatorKey>> rows {
        {".", CalculatorKey::of(Kind::point)},         {",", CalculatorKey::of(Kind::point)},
        {"+", CalculatorKey::of(Operation::add)},      {"-", CalculatorKey::of(Operation::subtract)},
        {"*", CalculatorKey::of(Operation::multiply)}, {"x", CalculatorKey::of(Operation::multiply)},
        {"/", CalculatorKey::of(Operation::divide)},   {"=", CalculatorKey::of(Kind::equals)},
        {"%", CalculatorKey::of(Kind::percent)},       {"c", CalculatorKey::of(Kind::clear)},
        {"n", CalculatorKey::of(Kind::sign)}};
    for (const auto& [text, key] : rows)
        EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_unknown, text)), key) << text;
}

TEST(CalculatorKeyTyped, ReadsNamedKeys)
{
    using Kind = CalculatorKey::Kind;
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Return, "\r")), CalculatorKey::of(Kind::equals));
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Enter, "\r", Qt::KeypadModifier)),
              CalculatorKey::of(Kind::equals));
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Backspace, "\b")), CalculatorKey::of(Kind::backspace));
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Escape, "\x1b")), CalculatorKey::of(Kind::clear));
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Comma, ",", Qt::KeypadModifier)),
              CalculatorKey::of(Kind::point))
        << "the number pad's decimal key";
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Asterisk, "*", Qt::ShiftModifier)),
              CalculatorKey::of(Calculator::Operation::multiply));
}

TEST(CalculatorKeyTyped, PassesOnTheRest)
{
    for (const char* text : {"X", "C", "N", "a", " ", "\t", "٣", "−", ""})
        EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_unknown, text)), std::nullopt) << text;
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_1, "1", modifier)), std::nullopt);
        EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Return, "\r", modifier)), std::nullopt);
    }
    EXPECT_EQ(CalculatorKey::typed(press(Qt::Key_Delete, "\x7f")), std::nullopt);
}

TEST(CalculatorKeypad, HasFiveRowsOfFourKeys)
{
    const Stage stage;
    const char* names[5][4]
        = {{"Delete the last digit", "Clear everything and start again", "Percent", "Divide"},
           {"7", "8", "9", "Multiply"},
           {"4", "5", "6", "Subtract"},
           {"1", "2", "3", "Add"},
           {"Change the sign", "0", "Decimal point", "Equals"}};
    const char* titles[5][4] = {{"", "AC", "%", "÷"},
                                {"7", "8", "9", "×"},
                                {"4", "5", "6", "−"},
                                {"1", "2", "3", "+"},
                                {"±", "0", ".", "="}};
    const auto keys = stage.page.findChildren<KeypadKey*>();
    ASSERT_EQ(keys.size(), 20);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(toUtf8(keys[i]->accessibleName()), names[i / 4][i % 4]);
        EXPECT_EQ(toUtf8(keys[i]->text()), titles[i / 4][i % 4]);
        EXPECT_EQ(keys[i]->y(), keys[i - i % 4]->y());
        if (i % 4 > 0) {
            EXPECT_GT(keys[i]->x(), keys[i - 1]->x());
        }
        EXPECT_EQ(toUtf8(keys[i]->toolTip()),
                  keys[i]->key().kind == CalculatorKey::Kind::digit ? "" : names[i / 4][i % 4]);
    }
}

TEST(CalculatorKeypad, CalculatesByClicks)
{
    const Stage stage;
    for (const char* name : {"2", "0", "0", "Add", "1", "0", "Percent", "Equals"})
        QTest::mouseClick(stage.button(name), Qt::LeftButton);
    EXPECT_EQ(stage.display(), "220");
    for (const char* name :
         {"Change the sign", "Divide", "8", "Decimal point", "5", "Delete the last digit", "Equals"})
        QTest::mouseClick(stage.button(name), Qt::LeftButton);
    EXPECT_EQ(stage.display(), "-27.5");
    QTest::mouseClick(stage.button("Clear everything and start again"), Qt::LeftButton);
    EXPECT_EQ(stage.display(), "0");
}

TEST(CalculatorKeypad, DoesNotTakeTheFocusOnClick)
{
    const Stage stage;
    QTest::mouseClick(stage.button("7"), Qt::LeftButton);
    EXPECT_FALSE(stage.button("7")->hasFocus());
}

TEST(CalculatorView, CalculatesFromTheKeyboard)
{
    Stage stage;
    stage.type("12+3\r");
    EXPECT_EQ(stage.display(), "15");
    Q_EMIT stage.button("Copy tape")->clicked();
    EXPECT_EQ(stage.clipboard(), "12 + 3 = 15");
}

TEST(CalculatorView, ReturnMeansEqualsWhateverHasTheFocus)
{
    Stage stage;
    stage.type("7+1");
    stage.button("9")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stage.button("9"), Qt::Key_Return);
    EXPECT_EQ(stage.display(), "8");
    QTest::keyClick(stage.button("9"), Qt::Key_Space);
    EXPECT_EQ(stage.display(), "9") << "Space presses the focused key";
}

TEST(CalculatorView, ShowsThePendingExpression)
{
    Stage stage;
    EXPECT_TRUE(stage.shows("0"));
    stage.type("1200*");
    EXPECT_TRUE(stage.shows("1,200 ×"));
    EXPECT_EQ(stage.screen()->accessibleName(), QStringLiteral("Display: 1,200 ×, 1,200"));
    stage.type("3");
    EXPECT_TRUE(stage.shows("3"));
}

TEST(CalculatorView, CopiesTheDisplayAsShown)
{
    Stage stage;
    stage.type("1234.50");
    stage.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(stage.clipboard(), "1,234.50");
    EXPECT_EQ(stage.flash(), "Copied");
    stage.type("/0\r");
    stage.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(stage.clipboard(), "Cannot divide by zero");
    EXPECT_EQ(stage.display(), "Cannot divide by zero");
}

TEST(CalculatorView, AssistiveTechnologyCopiesByPressingTheDisplay)
{
    Stage stage;
    stage.type("42");
    QGuiApplication::clipboard()->clear();
    test::accessible(*stage.screen()).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(stage.clipboard(), "42");
    EXPECT_EQ(stage.flash(), "Copied");
}

TEST(CalculatorView, LeavesOtherControlKeysAlone)
{
    Stage stage;
    stage.type("5");
    for (const Qt::Key key : {Qt::Key_V, Qt::Key_1, Qt::Key_X, Qt::Key_N}) {
        QKeyEvent override(QEvent::ShortcutOverride, key, Qt::ControlModifier);
        override.ignore();
        QCoreApplication::sendEvent(&stage.page, &override);
        EXPECT_FALSE(override.isAccepted()) << key;
    }
    stage.key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(stage.clipboard(), "");
    EXPECT_EQ(stage.display(), "5");
}

TEST(CalculatorView, ListensOnlyWhileItIsShown)
{
    QWidget window;
    test::TestModel test;
    CalculatorView page(test.model, &window);
    window.resize(800, 700);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    page.hide();
    QTest::keyClick(&window, Qt::Key_7);
    EXPECT_EQ(page.calculator().display(), "0");
    page.show();
    QTest::keyClick(&window, Qt::Key_7);
    EXPECT_EQ(page.calculator().display(), "7");
}

TEST(CalculatorView, OffersCopyAndSaveOnTheDisplay)
{
    Stage stage;
    EXPECT_EQ(stage.screen()->contextMenuPolicy(), Qt::ActionsContextMenu);
    stage.type("1234");
    ASSERT_NE(Stage::action(stage.screen(), "Copy"), nullptr);
    Stage::action(stage.screen(), "Copy")->trigger();
    EXPECT_EQ(stage.clipboard(), "1,234");
    EXPECT_EQ(stage.flash(), "Copied");
    ASSERT_NE(Stage::action(stage.screen(), "Save to history"), nullptr);
    Stage::action(stage.screen(), "Save to history")->trigger();
    EXPECT_EQ(stage.history().size(), 1U);
}

TEST(CalculatorView, CopiesTheFocusedDisplayBySpace)
{
    Stage stage;
    stage.type("42");
    stage.screen()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stage.screen(), Qt::Key_Space);
    EXPECT_EQ(stage.clipboard(), "42");
}

TEST(CalculatorFlash, StaysForNineTenthsOfASecond)
{
    Stage stage;
    constexpr auto hint = "Right-click the display to copy or save";
    EXPECT_TRUE(stage.shows(hint));
    stage.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_FALSE(stage.shows(hint));
    EXPECT_TRUE(stage.shows("Copied"));
    stage.test.clock.advance(899ms);
    EXPECT_EQ(stage.flash(), "Copied");
    stage.test.clock.advance(1ms);
    EXPECT_EQ(stage.flash(), "");
    EXPECT_TRUE(stage.shows(hint));
}

TEST(CalculatorFlash, StartsAgainForANewerMessage)
{
    Stage stage;
    stage.type("1+1\r");
    stage.key(Qt::Key_C, Qt::ControlModifier);
    stage.test.clock.advance(500ms);
    Q_EMIT stage.button("Copy tape")->clicked();
    EXPECT_EQ(stage.flash(), "Tape copied");
    stage.test.clock.advance(899ms);
    EXPECT_EQ(stage.flash(), "Tape copied");
    stage.test.clock.advance(1ms);
    EXPECT_EQ(stage.flash(), "");
}

TEST(CalculatorHistory, SavesUnderTheNewestExpression)
{
    Stage stage;
    stage.type("1200*3\r+1");
    Q_EMIT stage.button("Save to history")->clicked();
    ASSERT_EQ(stage.history().size(), 1U);
    const HistoryEntry entry = stage.history().front();
    EXPECT_EQ(entry.module, "calculator");
    EXPECT_EQ(entry.title, "1,200 × 3");
    EXPECT_EQ(entry.summary, "Result: 1");
    EXPECT_EQ(entry.detail, "Result: 1");
    EXPECT_EQ(stage.test.model.lastSaveMessage(), "Saved to history");
}

TEST(CalculatorHistory, SavesWithoutATapeUnderItsOwnName)
{
    Stage stage;
    Stage::action(stage.tape(), "Save to history")->trigger();
    ASSERT_EQ(stage.history().size(), 1U);
    EXPECT_EQ(stage.history().front().title, "Calculator");
    EXPECT_EQ(stage.history().front().summary, "Result: 0");
}

TEST(CalculatorHistory, IsNotWrittenByItself)
{
    Stage stage;
    stage.type("1+1\r");
    stage.test.clock.advance(1min);
    EXPECT_TRUE(stage.history().empty());
}

TEST(CalculatorDisplay, ShrinksALongNumberAndElidesTheLongest)
{
    CalculatorDisplay display;
    display.resize(300, 69);
    auto* label = display.findChildren<QLabel*>().at(1);
    display.setTexts({}, QStringLiteral("1,234"));
    EXPECT_EQ(label->font().pixelSize(), 40);
    EXPECT_EQ(display.toolTip(), QString());
    display.setTexts({}, QStringLiteral("123,456,789,012.25"));
    EXPECT_LT(label->font().pixelSize(), 40);
    EXPECT_EQ(label->text(), QStringLiteral("123,456,789,012.25"));
    const QString longest(120, QLatin1Char('9'));
    display.setTexts({}, longest);
    EXPECT_EQ(label->font().pixelSize(), 20);
    EXPECT_NE(label->text(), longest);
    EXPECT_EQ(display.toolTip(), longest);
    display.setTexts(longest + QStringLiteral(" +"), longest);
    EXPECT_EQ(display.toolTip(), longest + QStringLiteral(" +\n") + longest);
    display.setTexts(longest + QStringLiteral(" +"), QStringLiteral("3"));
    EXPECT_EQ(display.toolTip(), longest + QStringLiteral(" +"));
    display.setTexts({}, longest);
    EXPECT_EQ(display.toolTipDuration(), Metric::lastingTip)
        << "it takes longer to read than a tip usually stays";
    EXPECT_EQ(display.number(), longest);
    EXPECT_EQ(test::accessible(*label).text(QAccessible::Name), longest) << "read out whole";
    display.show();
    EXPECT_EQ(display.height() - label->geometry().bottom() - 1, CalculatorDisplay::edge)
        << "room for the ring below as above";
    display.resize(4000, 69);
    EXPECT_EQ(label->text(), longest);
    EXPECT_EQ(label->font().pixelSize(), 40) << "a wider window makes room";
}

TEST(CalculatorDisplay, ReadsOutALongExpressionWhole)
{
    CalculatorDisplay display;
    display.resize(300, 69);
    const QString expression = QString(90, QLatin1Char('8')) + QStringLiteral(" ×");
    display.setTexts(expression, QStringLiteral("2"));
    auto* label = display.findChildren<QLabel*>().at(0);
    EXPECT_NE(label->text(), expression);
    EXPECT_EQ(test::accessible(*label).text(QAccessible::Name), expression);
}

TEST(CalculatorShortcuts, AreListed)
{
    const Stage stage;
    QList<QLabel*> labels = stage.page.findChild<ShortcutsPanel*>()->findChildren<QLabel*>();
    std::ranges::sort(labels, {}, [](const QLabel* label) {
        const QPoint middle = label->mapTo(label->window(), label->rect().center());
        return std::pair(middle.y(), middle.x());
    });
    QStringList texts;
    QStringList helps;
    for (const QLabel* label : labels) {
        texts += label->text();
        if (!label->toolTip().isEmpty())
            helps += label->toolTip();
    }
    EXPECT_EQ(toUtf8(texts.join(QLatin1Char('|'))),
              "Shortcuts|0 – 9  .|Enter a number|+  −  *  /|Operators|Return|Equals|Delete|Backspace|Escape|"
              "Clear everything|%|Percent|N|Change the sign|⌘C|Copy the display");
    EXPECT_EQ(toUtf8(helps.join(QLatin1Char('|'))), "Enter|Backspace|Esc|Ctrl+C")
        << "as this keyboard has them";
}

TEST(CalculatorView, ExplainsPercentAndTape)
{
    const Stage stage;
    EXPECT_TRUE(
        stage.shows("Percent works in context: 200 + 10 % is 220, but 10 % on its own is 0.1. Pressing = "
                    "again repeats the last operation. The tape keeps this session's calculations; Save to "
                    "history keeps one for later."));
}

TEST(CalculatorLayout, ShrinksKeysInALowWindow)
{
    Stage stage;
    EXPECT_EQ(stage.button("7")->height(), 60);
    EXPECT_EQ(stage.tape()->maximumHeight(), stage.page.findChild<Keypad*>()->parentWidget()->height());
    stage.page.resize(614, 620);
    QTRY_VERIFY(stage.button("7")->height() == 46);
    QTRY_VERIFY(stage.page.findChild<Keypad*>()->parentWidget()->width() == 318);
    QTRY_VERIFY(stage.tape()->height() == stage.page.findChild<Keypad*>()->parentWidget()->height());
}

} // namespace
} // namespace zelta
