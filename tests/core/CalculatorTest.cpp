#include "core/Calculator.h"

#include "core/Num.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <random>

namespace zelta {
namespace {

using Operation = Calculator::Operation;

/// Presses keys: digits, "." "+" "-" "*" "/" "=" "%", "n" changes the sign, "<" is backspace, "E" clears the
/// entry, "C" clears all, "T" clears the tape, "L" loads 7.
void press(Calculator& calculator, std::string_view keys)
{
    for (const char key : keys) {
        switch (key) {
        case '.':
            calculator.decimalPoint();
            break;
        case '+':
            calculator.operation(Operation::add);
            break;
        case '-':
            calculator.operation(Operation::subtract);
            break;
        case '*':
            calculator.operation(Operation::multiply);
            break;
        case '/':
            calculator.operation(Operation::divide);
            break;
        case '=':
            calculator.equals();
            break;
        case '%':
            calculator.percent();
            break;
        case 'n':
            calculator.toggleSign();
            break;
        case '<':
            calculator.backspace();
            break;
        case 'E':
            calculator.clearEntry();
            break;
        case 'C':
            calculator.clearAll();
            break;
        case 'T':
            calculator.clearTape();
            break;
        case 'L':
            calculator.load(7);
            break;
        default:
            calculator.digit(key - '0');
        }
    }
}

std::string displayAfter(std::string_view keys)
{
    Calculator calculator;
    press(calculator, keys);
    return calculator.display();
}

/// "expression = result" for each line, newest first.
std::vector<std::string> tapeAfter(std::string_view keys)
{
    Calculator calculator;
    press(calculator, keys);
    std::vector<std::string> lines;
    for (const Calculator::TapeEntry& entry : calculator.tape())
        lines.push_back(entry.expression + " = " + entry.resultText());
    return lines;
}

using Lines = std::vector<std::string>;
constexpr auto errorText = "Cannot divide by zero";

TEST(Calculator, StartsAtZero)
{
    Calculator calculator;
    EXPECT_EQ(calculator.display(), "0");
    EXPECT_EQ(calculator.expression(), "");
    EXPECT_EQ(calculator.value(), 0_dec);
    EXPECT_FALSE(calculator.hasError());
    calculator.equals();
    EXPECT_TRUE(calculator.tape().empty());
}

TEST(CalculatorOperation, HasItsSymbolAsStoredText)
{
    EXPECT_EQ(rawValue(Operation::add), "+");
    EXPECT_EQ(rawValue(Operation::subtract), "\u2212");
    EXPECT_EQ(rawValue(Operation::multiply), "\u00D7");
    EXPECT_EQ(rawValue(Operation::divide), "\u00F7");
    EXPECT_EQ(fromRawValue<Operation>("−"), Operation::subtract);
    EXPECT_EQ(fromRawValue<Operation>("-"), std::nullopt);
    EXPECT_EQ(fromRawValue<Operation>("*"), std::nullopt);
    EXPECT_EQ(allCases<Operation>().size(), 4U);
}

TEST(CalculatorOperation, AppliesToTwoValues)
{
    EXPECT_EQ(Calculator::apply(5, Operation::add, 3), 8_dec);
    EXPECT_EQ(Calculator::apply(5, Operation::subtract, 3), 2_dec);
    EXPECT_EQ(Calculator::apply(5, Operation::multiply, 3), 15_dec);
    EXPECT_EQ(Calculator::apply(5, Operation::divide, 4), 1.25_dec);
    EXPECT_EQ(Calculator::apply(5, Operation::divide, 0), std::nullopt);
}

TEST(CalculatorFormat, ShowsTenPlacesGrouped)
{
    EXPECT_EQ(Calculator::format(1234567.12345678901_dec), "1,234,567.123456789");
    EXPECT_EQ(Calculator::format(2_dec / 3_dec), "0.6666666667");
}

TEST(CalculatorFormat, ShowsATypedNumberAsTyped)
{
    EXPECT_EQ(Calculator::formatTyped("-1234.50"), "-1,234.50");
    EXPECT_EQ(Calculator::formatTyped("12."), "12.");
    EXPECT_EQ(Calculator::formatTyped("-"), "-");
    EXPECT_EQ(Calculator::formatTyped("1234567"), "1,234,567");
    EXPECT_EQ(Calculator::formatTyped("123"), "123");
    EXPECT_EQ(displayAfter("1234.50"), "1,234.50");
    EXPECT_EQ(displayAfter("0.00"), "0.00");
}

TEST(CalculatorDigit, DropsLeadingZeros)
{
    EXPECT_EQ(displayAfter("0"), "0");
    EXPECT_EQ(displayAfter("000"), "0");
    EXPECT_EQ(displayAfter("007"), "7");
    EXPECT_EQ(displayAfter("0n5"), "-5");
    EXPECT_EQ(displayAfter("0n"), "-0") << "shown as typed";
    EXPECT_EQ(displayAfter("0n0"), "-0");
}

TEST(CalculatorDigit, StopsAtFifteen)
{
    EXPECT_EQ(displayAfter("1234567890123456"), "123,456,789,012,345");
    EXPECT_EQ(displayAfter("0.123456789012345"), "0.12345678901234") << "the leading zero counts";
    EXPECT_EQ(displayAfter("123456789012345n"), "-123,456,789,012,345") << "the sign does not count";
    EXPECT_EQ(displayAfter("123456789012345."), "123,456,789,012,345.") << "the point does not count";
}

TEST(CalculatorDigit, IgnoresWhatIsNoDigit)
{
    Calculator calculator;
    press(calculator, "12");
    calculator.digit(10);
    calculator.digit(-1);
    EXPECT_EQ(calculator.display(), "12");
}

TEST(CalculatorDigit, StartsANewNumberAfterAResult)
{
    EXPECT_EQ(displayAfter("2+3=7"), "7");
    EXPECT_EQ(displayAfter("2+7"), "7");
}

TEST(CalculatorPoint, StartsWithAZero)
{
    EXPECT_EQ(displayAfter("."), "0.");
    EXPECT_EQ(displayAfter(".5"), "0.5");
    EXPECT_EQ(displayAfter("2+3=.5"), "0.5");
    EXPECT_EQ(displayAfter("10%.5"), "0.5") << "after percent nothing is typed";
}

TEST(CalculatorPoint, IsTakenOnce)
{
    EXPECT_EQ(displayAfter("1.2.3"), "1.23");
}

TEST(CalculatorSign, TogglesTheTypedNumber)
{
    EXPECT_EQ(displayAfter("12n"), "-12");
    EXPECT_EQ(displayAfter("12nn"), "12");
    EXPECT_EQ(displayAfter("12n3"), "-123");
}

TEST(CalculatorSign, NegatesAResultInPlace)
{
    EXPECT_EQ(displayAfter("2+3=n"), "-5");
    EXPECT_EQ(displayAfter("2+3=n="), "-2") << "the repeat applies to the negated value";
    EXPECT_EQ(displayAfter("2+3=n4"), "4") << "the next digit still starts a new number";
    EXPECT_EQ(displayAfter("n"), "0") << "zero has no sign";
}

TEST(CalculatorBackspace, TakesBackTheLastCharacter)
{
    EXPECT_EQ(displayAfter("123<"), "12");
    EXPECT_EQ(displayAfter("1.<"), "1");
    EXPECT_EQ(displayAfter("1<"), "0");
    EXPECT_EQ(displayAfter("1n<"), "0") << "a lone sign goes too";
    EXPECT_EQ(displayAfter("12<<3"), "3");
}

TEST(CalculatorBackspace, MakesAShownResultZero)
{
    EXPECT_EQ(displayAfter("2+3=<"), "0");
    EXPECT_EQ(displayAfter("5+<*2="), "0") << "the next operator takes the shown zero";
}

TEST(CalculatorClearEntry, KeepsThePendingOperation)
{
    Calculator calculator;
    press(calculator, "5+9E");
    EXPECT_EQ(calculator.display(), "0");
    EXPECT_EQ(calculator.expression(), "5 +");
    press(calculator, "2=");
    EXPECT_EQ(calculator.display(), "7");
    EXPECT_EQ(displayAfter("5+E*2="), "0") << "the next operator takes the shown zero";
}

TEST(CalculatorClearAll, KeepsTheTape)
{
    Calculator calculator;
    press(calculator, "2+3=+4C");
    EXPECT_EQ(calculator.display(), "0");
    EXPECT_EQ(calculator.expression(), "");
    EXPECT_EQ(calculator.tape().size(), 1U);
    press(calculator, "9=");
    EXPECT_EQ(calculator.display(), "9") << "nothing is left to repeat";
    EXPECT_EQ(calculator.tape().size(), 1U);
}

TEST(CalculatorOperator, CompletesThePendingOperation)
{
    Calculator calculator;
    press(calculator, "1+2+");
    EXPECT_EQ(calculator.display(), "3");
    EXPECT_EQ(calculator.expression(), "3 +");
    press(calculator, "3=");
    EXPECT_EQ(calculator.display(), "6");
    EXPECT_EQ(calculator.expression(), "");
    EXPECT_EQ(tapeAfter("1+2+3="), (Lines {"3 + 3 = 6", "1 + 2 = 3"}));
}

TEST(CalculatorOperator, ReplacesTheOneBefore)
{
    EXPECT_EQ(displayAfter("5+*2="), "10");
    EXPECT_EQ(tapeAfter("5+*2="), (Lines {"5 × 2 = 10"}));
}

TEST(CalculatorOperator, ShowsTheLeftOperandGrouped)
{
    Calculator calculator;
    press(calculator, "1200*");
    EXPECT_EQ(calculator.expression(), "1,200 ×");
    press(calculator, "3");
    EXPECT_EQ(calculator.expression(), "1,200 ×");
    press(calculator, "=");
    EXPECT_EQ(calculator.tape().front().expression, "1,200 × 3");
    EXPECT_EQ(calculator.tape().front().resultText(), "3,600");
}

TEST(CalculatorOperator, HasNoPrecedence)
{
    EXPECT_EQ(displayAfter("2+3*4="), "20");
}

TEST(CalculatorEquals, ReusesTheShownOperand)
{
    EXPECT_EQ(displayAfter("5+="), "10");
    EXPECT_EQ(tapeAfter("5+="), (Lines {"5 + 5 = 10"}));
}

TEST(CalculatorEquals, RepeatsTheLastOperation)
{
    EXPECT_EQ(displayAfter("2+3="), "5");
    EXPECT_EQ(displayAfter("2+3=="), "8");
    EXPECT_EQ(displayAfter("2+3==="), "11");
    EXPECT_EQ(displayAfter("10-2=="), "6");
    EXPECT_EQ(displayAfter("2+3=10="), "13") << "applied to a new number";
    EXPECT_EQ(tapeAfter("2+3=10="), (Lines {"10 + 3 = 13", "2 + 3 = 5"}));
}

TEST(CalculatorEquals, EndsAnEntryWithoutAnOperation)
{
    EXPECT_EQ(displayAfter("007.50="), "7.5");
    EXPECT_EQ(displayAfter("12=3"), "3");
    EXPECT_EQ(tapeAfter("12="), (Lines {}));
}

TEST(CalculatorEquals, KeepsAllDigitsBehindTheDisplay)
{
    EXPECT_EQ(displayAfter("1/3="), "0.3333333333");
    EXPECT_EQ(displayAfter("1/3=*3="), "1");
}

TEST(CalculatorPercent, ReadsItsContext)
{
    EXPECT_EQ(displayAfter("200+10%"), "20");
    EXPECT_EQ(displayAfter("200+10%="), "220");
    EXPECT_EQ(tapeAfter("200+10%="), (Lines {"200 + 20 = 220"}));
    EXPECT_EQ(displayAfter("200-10%="), "180");
    EXPECT_EQ(displayAfter("200*10%="), "20");
    EXPECT_EQ(displayAfter("200/10%="), "2,000");
    EXPECT_EQ(displayAfter("10%"), "0.1");
    EXPECT_EQ(displayAfter("200+%"), "400") << "the shown operand, as a percentage of itself";
    EXPECT_EQ(displayAfter("2+3=%"), "0.05");
}

TEST(CalculatorPercent, CountsAsAnEnteredNumber)
{
    EXPECT_EQ(displayAfter("200+10%+"), "220") << "an operator completes the pending operation";
    EXPECT_EQ(displayAfter("200+10%5"), "5") << "a digit starts a new number";
    EXPECT_EQ(displayAfter("200+10%5="), "205");
}

TEST(CalculatorError, ShowsInPlaceOfANumber)
{
    Calculator calculator;
    press(calculator, "7/0=");
    EXPECT_EQ(calculator.display(), errorText);
    EXPECT_EQ(calculator.expression(), "");
    EXPECT_TRUE(calculator.hasError());
    EXPECT_TRUE(calculator.tape().empty());
}

TEST(CalculatorError, ComesFromOperatorsToo)
{
    EXPECT_EQ(displayAfter("7/0+"), errorText);
    EXPECT_EQ(displayAfter("7/0.00*"), errorText);
}

TEST(CalculatorError, IgnoresOperatorsEqualsPercentAndSign)
{
    for (const std::string_view keys : {"+", "-", "*", "/", "=", "%", "n"})
        EXPECT_EQ(displayAfter("7/0=" + std::string(keys)), errorText) << keys;
}

TEST(CalculatorError, IsResetByDigitPointBackspaceAndClear)
{
    EXPECT_EQ(displayAfter("7/0=4"), "4");
    EXPECT_EQ(displayAfter("7/0=4="), "4") << "nothing is pending any more";
    EXPECT_EQ(displayAfter("7/0=."), "0.");
    EXPECT_EQ(displayAfter("7/0=.5="), "0.5") << "nor after a point";
    EXPECT_EQ(displayAfter("7/0=<"), "0");
    EXPECT_EQ(displayAfter("7/0=<2="), "2");
    EXPECT_EQ(displayAfter("7/0=C"), "0");
    EXPECT_EQ(displayAfter("7/0=C2="), "2");
}

TEST(CalculatorError, KeepsThePendingOperationThroughClearEntryAndLoad)
{
    EXPECT_EQ(displayAfter("7/0=E"), "0");
    EXPECT_EQ(displayAfter("7/0=E2="), "3.5");
    EXPECT_EQ(displayAfter("14/0=L="), "2");
}

TEST(CalculatorLoad, BecomesTheOperand)
{
    EXPECT_EQ(displayAfter("5+L="), "12");
    EXPECT_EQ(displayAfter("5+L*2="), "14") << "an operator takes the shown value";
    EXPECT_EQ(displayAfter("12L"), "7");
    EXPECT_EQ(displayAfter("L3"), "3");
}

TEST(CalculatorTape, DropsTheOldestBeyondForty)
{
    Calculator calculator;
    press(calculator, "1+1=");
    for (int i = 0; i < 40; ++i)
        calculator.equals();
    ASSERT_EQ(calculator.tape().size(), 40U);
    EXPECT_EQ(calculator.tape().front().id, 41);
    EXPECT_EQ(calculator.tape().front().expression, "41 + 1");
    EXPECT_EQ(calculator.tape().back().id, 2);
}

TEST(CalculatorTape, CountsOnAfterClearing)
{
    Calculator calculator;
    press(calculator, "1+1==T");
    EXPECT_TRUE(calculator.tape().empty());
    EXPECT_EQ(calculator.display(), "3");
    press(calculator, "=");
    ASSERT_EQ(calculator.tape().size(), 1U);
    EXPECT_EQ(calculator.tape().front().id, 3);
}

TEST(CalculatorTape, ComparesAllFieldsOfAnEntry)
{
    const Calculator::TapeEntry entry {1, "1 + 1", 2};
    EXPECT_EQ(entry, (Calculator::TapeEntry {1, "1 + 1", 2.0_dec}));
    EXPECT_NE(entry, (Calculator::TapeEntry {2, "1 + 1", 2}));
    EXPECT_NE(entry, (Calculator::TapeEntry {1, "1 + 2", 2}));
    EXPECT_NE(entry, (Calculator::TapeEntry {1, "1 + 1", 3}));
}

TEST(CalculatorOverflow, ShowsTheFallbackTextAndGoesOn)
{
    Calculator calculator;
    press(calculator, "999999999999999*=");
    for (int i = 0; i < 60; ++i)
        press(calculator, "*=");
    EXPECT_EQ(calculator.display(), "NaN");
    EXPECT_EQ(calculator.tape().front().expression, "NaN × NaN");
    press(calculator, "+1=");
    EXPECT_EQ(calculator.display(), "NaN");
    press(calculator, "C1+1=");
    EXPECT_EQ(calculator.display(), "2");
}

/// The promises that hold after every press, whatever came before.
void expectInvariants(const Calculator& calculator)
{
    ASSERT_FALSE(calculator.display().empty());
    ASSERT_LE(calculator.tape().size(), 40U);
    ASSERT_TRUE(
        std::ranges::is_sorted(calculator.tape(), std::ranges::greater_equal {}, &Calculator::TapeEntry::id));
    ASSERT_EQ(calculator.hasError(), calculator.display() == errorText);
    if (calculator.hasError()) {
        ASSERT_EQ(calculator.expression(), "");
    }
}

TEST(CalculatorWalk, KeepsItsPromisesThroughAMillionPresses)
{
    const unsigned seed = std::random_device {}();
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    // Digits twice: numbers of several digits come up more often.
    constexpr std::string_view keys = "01234567890123456789.+-*/==%n<ECTL";
    std::uniform_int_distribution<std::size_t> any(0, keys.size() - 1);
    Calculator calculator;
    for (int i = 0; i < 1'000'000; ++i) {
        const char key = keys[any(random)];
        const std::string before = calculator.display();
        press(calculator, std::string_view(&key, 1));
        ASSERT_NO_FATAL_FAILURE(expectInvariants(calculator)) << "press " << i << ", key " << key;
        if (key >= '0' && key <= '9') {
            const std::string display = calculator.display();
            const auto typed = std::ranges::count_if(display, [](char c) { return c >= '0' && c <= '9'; });
            ASSERT_LE(typed, Calculator::maxDigits) << before << ", then " << key << ": " << display;
        }
    }
}

} // namespace
} // namespace zelta
