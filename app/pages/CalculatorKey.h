#pragma once

#include "app/look/Theme.h"
#include "core/Calculator.h"

#include <QString>
#include <array>
#include <optional>
#include <string_view>

class QKeyEvent;

namespace zelta {

/// A key of the calculator, whether it is clicked or typed.
struct CalculatorKey
{
    enum class Kind { digit, operation, point, sign, backspace, clear, percent, equals };

    Kind kind = Kind::digit;
    int digit = 0; ///< [0:9], for a digit.
    Calculator::Operation operation = Calculator::Operation::add; ///< For an operation.

    friend bool operator==(const CalculatorKey&, const CalculatorKey&) = default;

    static CalculatorKey ofDigit(int digit) { return {.kind = Kind::digit, .digit = digit}; }
    static CalculatorKey of(Calculator::Operation operation)
    {
        return {.kind = Kind::operation, .operation = operation};
    }
    static CalculatorKey of(Kind kind) { return {.kind = kind}; }

    /// The key that a key press stands for: "x" and "*" multiply, "," is the point, Return equals. Nothing
    /// for other keys, capitals, and anything pressed together with Control, Alt or Meta.
    static std::optional<CalculatorKey> typed(const QKeyEvent& event);

    void press(Calculator& calculator) const;
};

/// What a keypad key shows.
struct CalculatorKeyFace
{
    QString title; ///< Empty where there is a symbol.
    std::string_view symbol;
    QString help; ///< Empty for digits.
    Theme::Token fill = Theme::Token::keyDigit;
    Theme::Token ink = Theme::Token::text;
    Theme::FontRole font = Theme::FontRole::keyDigit;

    static CalculatorKeyFace of(const CalculatorKey& key);
};

/// The keys of the pad, row by row.
std::array<std::array<CalculatorKey, 4>, 5> calculatorKeys();

} // namespace zelta
