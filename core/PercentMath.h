#pragma once

#include "core/Decimal.h"
#include "core/ResultRow.h"

#include <optional>
#include <vector>

/// The two questions about percentages: how two numbers compare, and what a percentage does to a number.
///
///     PercentMath::Relationship {50, 75}.rows();   // 66.6667%, 150%, +50% (increase), 25
///     PercentMath::change(200, 15).rows();         // 230 (+30), 170 (−30), 30, 173.913043, 235.294118
///
/// Percentages show up to 4 places, amounts up to 6. A question without an answer (dividing by zero) gives
/// nothing; its row says "undefined", shows "—" or is left out. A result out of range is shown as "NaN".
namespace zelta::PercentMath {

/// Two numbers side by side: X, the part or the starting point, and Y, the whole or the comparison.
struct Relationship
{
    Decimal a; ///< X
    Decimal b; ///< Y

    /// What percentage of Y is X: a × 100 ÷ b. Nothing when b is zero.
    [[nodiscard]] std::optional<Decimal> aOfB() const;
    /// What percentage of X is Y: b × 100 ÷ a. Nothing when a is zero.
    [[nodiscard]] std::optional<Decimal> bOfA() const;
    /// The move from X to Y in percent of |X|, so that −50 to −25 is a rise. Nothing when a is zero.
    [[nodiscard]] std::optional<Decimal> changeAToB() const;
    /// b − a, with its sign.
    [[nodiscard]] Decimal absoluteDifference() const;

    /// Four rows; two when a is zero, because nothing can be measured against it.
    [[nodiscard]] std::vector<ResultRow> rows() const;

    friend bool operator==(const Relationship&, const Relationship&) = default;
};

/// A value raised and cut by a percentage.
struct ChangeResult
{
    Decimal original;
    Decimal percent;
    Decimal increased; ///< original + delta
    Decimal decreased; ///< original − delta
    Decimal delta; ///< original × percent ÷ 100

    /// Always five rows: raised, cut, the amount, and what the value was before such a rise or cut.
    [[nodiscard]] std::vector<ResultRow> rows() const;

    friend bool operator==(const ChangeResult&, const ChangeResult&) = default;
};

/// `value` raised and cut by `percent` percent.
ChangeResult change(const Decimal& value, const Decimal& percent);

/// The number that, changed by `percent` percent, gives `final`: final ÷ (1 + percent ÷ 100).
/// Nothing for −100, since a drop to zero cannot be undone.
std::optional<Decimal> reverseChange(const Decimal& final, const Decimal& percent);

} // namespace zelta::PercentMath
