#pragma once

#include "core/Decimal.h"
#include "core/Enumeration.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zelta {

/// The four-function calculator behind the keypad. Each operator completes the pending operation at once
/// (there is no precedence), "=" pressed again repeats the last operation, and completed operations go to a
/// tape. Percent reads its context: after + and − it is a percentage of the left operand, else a fraction.
///
///     2 0 0 + 1 0 % =     220, with "200 + 20" on the tape
///     2 + 3 = = =         5, 8, 11
///     5 + × 2 =           10: the operator was replaced
class Calculator
{
public:
    enum class Operation { add, subtract, multiply, divide };

    /// A completed operation.
    struct TapeEntry
    {
        int id = 0; ///< Counts up from 1 and is never handed out again.
        std::string expression; ///< "1,200 × 3"
        Decimal result;

        /// The result as the tape shows it: 10 places, grouped.
        [[nodiscard]] std::string resultText() const;
        friend bool operator==(const TapeEntry&, const TapeEntry&) = default;
    };

    static constexpr int maxDigits = 15; ///< Digits that can be typed, before and after the point together.
    static constexpr int displayPlaces = 10; ///< Digits shown after the point.
    static constexpr std::size_t maxTapeEntries = 40;
    static constexpr std::string_view divisionByZeroText = "Cannot divide by zero";

    /// A value as the display shows it.
    static std::string format(const Decimal& value);
    /// A number being typed, as typed but with grouping: "-1234.50" shows as "-1,234.50", "12." as "12.".
    static std::string formatTyped(std::string_view typed);
    /// Nothing for a division by zero.
    static std::optional<Decimal> apply(const Decimal& lhs, Operation operation, const Decimal& rhs);

    /// The number being typed, else the last result or operand.
    [[nodiscard]] Decimal value() const;
    /// What the display shows: the error text, the number being typed, or `value`.
    [[nodiscard]] std::string display() const;
    /// The line above the display: "1,200 ×" while an operation is pending, else (or after an error) empty.
    [[nodiscard]] std::string expression() const;
    /// True after a division by zero, until a digit, the point, backspace, `clearEntry`, `clearAll` or
    /// `load`. Operators, "=", percent and the sign do nothing meanwhile.
    [[nodiscard]] bool hasError() const { return m_error; }
    /// Newest first, at most 40.
    [[nodiscard]] const std::deque<TapeEntry>& tape() const { return m_tape; }

    void digit(int d); ///< [0, 9]; anything else is ignored, as is a digit too many.
    void decimalPoint();
    void toggleSign();
    /// Takes back the last typed character; a value that was not typed becomes 0.
    void backspace();
    /// Forgets the number shown, not the pending operation.
    void clearEntry();
    /// Starts again. The tape stays.
    void clearAll();
    void clearTape();
    void operation(Operation operation);
    void equals();
    void percent();
    /// Shows a value: "=" completes the pending operation with it, an operator starts a new one from it.
    void load(const Decimal& value);

private:
    /// The left side of an operation that waits for its right one, or the right side of one to repeat.
    struct HalfOperation
    {
        Decimal operand;
        Operation operation = Operation::add;
    };

    /// Applies and records; a division by zero sets the error and keeps all operands.
    std::optional<Decimal> complete(const Decimal& lhs, Operation operation, const Decimal& rhs);
    /// Before a digit or the point: ends an error; what is typed goes on.
    void beginTyping();
    /// Ends typing with this value shown; the next digit starts a new number.
    void show(const Decimal& value);

    Decimal m_current; ///< What is shown while nothing is typed.
    std::string m_typed; ///< As typed, "0." and "-0" too; empty while nothing is.
    std::optional<HalfOperation> m_pending; ///< Left operand and operator.
    std::optional<HalfOperation> m_repeat; ///< Operator and right operand of the last "=".
    bool m_startsNewEntry = true; ///< No number was entered since the last operator or result: none is typed.
    bool m_error = false;
    std::deque<TapeEntry> m_tape;
    int m_lastTapeId = 0;
};

/// An operation's stored text is also its symbol in expressions.
template <> struct EnumerationTable<Calculator::Operation>
{
    static constexpr auto all = std::to_array<std::pair<Calculator::Operation, std::string_view>>(
        {{Calculator::Operation::add, "+"},
         {Calculator::Operation::subtract, "−"},
         {Calculator::Operation::multiply, "×"},
         {Calculator::Operation::divide, "÷"}});
};

} // namespace zelta
