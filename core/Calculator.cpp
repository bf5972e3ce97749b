#include "core/Calculator.h"

#include "core/Num.h"

#include <algorithm>

namespace zelta {

namespace {

std::string expressionText(const Decimal& lhs, Calculator::Operation operation)
{
    return Calculator::format(lhs) + " " + std::string(rawValue(operation));
}

} // namespace

std::string Calculator::TapeEntry::resultText() const
{
    return format(result);
}

std::string Calculator::format(const Decimal& value)
{
    return Num::string(value, displayPlaces, true);
}

std::string Calculator::formatTyped(std::string_view typed)
{
    return Num::grouped(typed);
}

std::optional<Decimal> Calculator::apply(const Decimal& lhs, Operation operation, const Decimal& rhs)
{
    switch (operation) {
    case Operation::add:
        return lhs + rhs;
    case Operation::subtract:
        return lhs - rhs;
    case Operation::multiply:
        return lhs * rhs;
    case Operation::divide:
        return Num::divide(lhs, rhs);
    }
    return std::nullopt;
}

Decimal Calculator::value() const
{
    return m_typed.empty() ? m_current : Num::parse(m_typed).value_or(0);
}

std::string Calculator::display() const
{
    if (m_error)
        return std::string(divisionByZeroText);
    return m_typed.empty() ? format(m_current) : formatTyped(m_typed);
}

std::string Calculator::expression() const
{
    if (m_error || !m_pending)
        return {};
    return expressionText(m_pending->operand, m_pending->operation);
}

void Calculator::digit(int d)
{
    if (d < 0 || d > 9)
        return;
    beginTyping();
    if (m_typed == "0" || m_typed == "-0")
        m_typed.pop_back();
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (std::ranges::count_if(m_typed, isDigit) < maxDigits)
        m_typed += static_cast<char>('0' + d);
}

void Calculator::decimalPoint()
{
    beginTyping();
    if (m_typed.empty())
        m_typed = "0";
    if (m_typed.find('.') == std::string::npos)
        m_typed += '.';
}

void Calculator::toggleSign()
{
    if (m_error)
        return;
    if (m_typed.empty())
        m_current = -m_current;
    else if (m_typed.starts_with('-'))
        m_typed.erase(0, 1);
    else
        m_typed.insert(0, 1, '-');
}

void Calculator::backspace()
{
    if (m_error) {
        clearAll();
        return;
    }
    if (!m_typed.empty())
        m_typed.pop_back();
    if (m_typed.empty() || m_typed == "-")
        show(0);
}

void Calculator::clearEntry()
{
    m_error = false;
    show(0);
}

void Calculator::clearAll()
{
    m_pending.reset();
    m_repeat.reset();
    clearEntry();
}

void Calculator::clearTape()
{
    m_tape.clear();
}

void Calculator::operation(Operation operation)
{
    if (m_error)
        return;
    Decimal left = value();
    if (m_pending && !m_startsNewEntry) {
        const std::optional<Decimal> result = complete(m_pending->operand, m_pending->operation, left);
        if (!result)
            return;
        left = *result;
    }
    m_pending = HalfOperation {left, operation};
    show(left);
}

void Calculator::equals()
{
    if (m_error)
        return;
    const Decimal entered = value();
    if (m_pending) {
        const HalfOperation left = *m_pending;
        const std::optional<Decimal> result = complete(left.operand, left.operation, entered);
        if (!result)
            return;
        m_repeat = HalfOperation {entered, left.operation};
        m_pending.reset();
        show(*result);
    } else if (m_repeat) {
        if (const auto result = complete(entered, m_repeat->operation, m_repeat->operand))
            show(*result);
    } else {
        show(entered);
    }
}

void Calculator::percent()
{
    if (m_error)
        return;
    Decimal share = value();
    // "200 + 10 %" means 10 % of 200.
    if (m_pending && (m_pending->operation == Operation::add || m_pending->operation == Operation::subtract))
        share = m_pending->operand * share;
    show(share / 100);
    // It counts as entered: the next operator completes the pending operation with it.
    m_startsNewEntry = false;
}

void Calculator::load(const Decimal& value)
{
    m_error = false;
    show(value);
}

std::optional<Decimal> Calculator::complete(const Decimal& lhs, Operation operation, const Decimal& rhs)
{
    const std::optional<Decimal> result = apply(lhs, operation, rhs);
    if (!result) {
        m_error = true;
        m_typed.clear();
        return std::nullopt;
    }
    m_tape.push_front({++m_lastTapeId, expressionText(lhs, operation) + " " + format(rhs), *result});
    if (m_tape.size() > maxTapeEntries)
        m_tape.pop_back();
    return result;
}

void Calculator::beginTyping()
{
    if (m_error)
        clearAll();
    m_startsNewEntry = false;
}

void Calculator::show(const Decimal& value)
{
    m_current = value;
    m_typed.clear();
    m_startsNewEntry = true;
}

} // namespace zelta
