#include "core/PercentMath.h"

#include "core/Num.h"

#include <string>

namespace zelta::PercentMath {

namespace {

std::string percentText(const Decimal& value)
{
    return Num::percent(value, 4, false);
}

std::string amountText(const Decimal& value)
{
    return Num::string(value, 6, true);
}

std::string amountOrDash(const std::optional<Decimal>& value)
{
    return value ? amountText(*value) : "—";
}

} // namespace

std::optional<Decimal> Relationship::aOfB() const
{
    return Num::divide(a * 100, b);
}

std::optional<Decimal> Relationship::bOfA() const
{
    return Num::divide(b * 100, a);
}

std::optional<Decimal> Relationship::changeAToB() const
{
    return Num::divide((b - a) * 100, Num::abs(a));
}

Decimal Relationship::absoluteDifference() const
{
    return b - a;
}

std::vector<ResultRow> Relationship::rows() const
{
    std::vector<ResultRow> rows;
    if (const auto share = aOfB())
        rows.push_back({"X is this much of Y", percentText(*share), {}, Weight::headline});
    else
        rows.push_back({"X is this much of Y", "undefined", "Y is zero", Weight::headline});
    if (const auto share = bOfA())
        rows.push_back({"Y is this much of X", percentText(*share), {}});
    if (const auto change = changeAToB()) {
        // No change at all counts as an increase; its neutral tone says that nothing moved.
        const char* note = *change < 0 ? "decrease" : "increase";
        rows.push_back(ResultRow::withSign("Change X → Y", Num::percent(*change, 4, true), *change, note));
    }
    const Decimal difference = absoluteDifference();
    rows.push_back(ResultRow::withSign("Difference (Y − X)", amountText(difference), difference));
    return rows;
}

std::vector<ResultRow> ChangeResult::rows() const
{
    const std::string share = percentText(percent);
    const std::string amount = amountText(delta);
    // The signs in the notes name the direction, not the sign of the amount: a negative percentage reads
    // "+-5".
    return {
        {"Increased by " + share, amountText(increased), "+" + amount, Weight::headline, Tone::up},
        {"Decreased by " + share, amountText(decreased), "−" + amount, Weight::headline, Tone::down},
        {"Amount of the change", amount, {}, Weight::primary},
        {"Before a " + share + " increase", amountOrDash(reverseChange(original, percent)),
         "reverse: original was this before the rise", Weight::detail},
        {"Before a " + share + " decrease", amountOrDash(reverseChange(original, -percent)),
         "reverse: original was this before the drop", Weight::detail},
    };
}

ChangeResult change(const Decimal& value, const Decimal& percent)
{
    const Decimal delta = value * percent / 100;
    return {value, percent, value + delta, value - delta, delta};
}

std::optional<Decimal> reverseChange(const Decimal& final, const Decimal& percent)
{
    return Num::divide(final, 1 + percent / 100);
}

} // namespace zelta::PercentMath
