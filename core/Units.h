#pragma once

#include "core/Decimal.h"
#include "core/Enumeration.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace zelta {

/// A category of units, in the order of its tabs. Its stored text is its id.
enum class UnitKind { length, mass, temperature };

template <> struct EnumerationTable<UnitKind>
{
    static constexpr auto all = std::to_array<std::pair<UnitKind, std::string_view>>(
        {{UnitKind::length, "length"}, {UnitKind::mass, "mass"}, {UnitKind::temperature, "temperature"}});
};

/// One unit: (value + offset) × factor is the value in the base unit of its kind, which is the metre, the
/// kilogram or the kelvin. Only Celsius and Fahrenheit have an offset.
struct UnitDef
{
    std::string_view id; ///< ASCII, unique within its kind: "um".
    std::string_view name; ///< "Micrometre"
    std::string_view symbol; ///< "µm"
    Decimal factor;
    Decimal offset;

    friend bool operator==(const UnitDef&, const UnitDef&) = default;
};

/// The ids of two units that are commonly converted into each other.
struct UnitPair
{
    std::string_view from;
    std::string_view to;

    friend bool operator==(const UnitPair&, const UnitPair&) = default;
};

/// What people call the kind: "Length", "Weight" (for mass), "Temperature".
std::string_view title(UnitKind kind);

/// The kind's units in the order in which they are offered.
std::span<const UnitDef> units(UnitKind kind);

namespace UnitConvert {

/// The kind's unit with exactly this id; letter case counts. Nothing when there is none.
std::optional<UnitDef> unit(std::string_view id, UnitKind kind);

/// `value` of one unit in another of the same kind: into the base unit first, then out of it, each step
/// rounded to 38 digits. Only temperatures apply offsets. Nothing when the target's factor is zero.
std::optional<Decimal> convert(const Decimal& value, const UnitDef& from, const UnitDef& to, UnitKind kind);

/// A converted value as it is shown: 6 digits after the point, or below 1 after the first digit that is not
/// 0; never more than 24 after the point: "0.6213712", "0.000000001", "1,852".
std::string figure(const Decimal& value);

/// The kind's common conversions; the first one is where the converter starts.
std::span<const UnitPair> pairs(UnitKind kind);

} // namespace UnitConvert

} // namespace zelta
