#include "core/Units.h"

#include "core/Num.h"

#include <algorithm>

namespace zelta {

namespace {

/// 5/9 to 28 places, as the conversion tables of Fahrenheit and Rankine are defined: not the quotient.
constexpr Decimal fiveNinths = 0.5555555555555555555555555556_dec;

constexpr auto lengthUnits = std::to_array<UnitDef>({
    {"km", "Kilometre", "km", 1000_dec, {}},
    {"m", "Metre", "m", 1_dec, {}},
    {"cm", "Centimetre", "cm", 0.01_dec, {}},
    {"mm", "Millimetre", "mm", 0.001_dec, {}},
    {"um", "Micrometre", "\u00B5m", 0.000001_dec, {}},
    {"nm", "Nanometre", "nm", 0.000000001_dec, {}},
    {"mi", "Mile", "mi", 1609.344_dec, {}},
    {"yd", "Yard", "yd", 0.9144_dec, {}},
    {"ft", "Foot", "ft", 0.3048_dec, {}},
    {"in", "Inch", "in", 0.0254_dec, {}},
    {"nmi", "Nautical mile", "nmi", 1852_dec, {}},
});

constexpr auto massUnits = std::to_array<UnitDef>({
    {"t", "Tonne", "t", 1000_dec, {}},
    {"kg", "Kilogram", "kg", 1_dec, {}},
    {"g", "Gram", "g", 0.001_dec, {}},
    {"mg", "Milligram", "mg", 0.000001_dec, {}},
    {"lb", "Pound", "lb", 0.45359237_dec, {}},
    {"oz", "Ounce", "oz", 0.028349523125_dec, {}},
    {"st", "Stone", "st", 6.35029318_dec, {}},
    {"ton_us", "Short ton (US)", "ton (US)", 907.18474_dec, {}},
    {"ton_uk", "Long ton (UK)", "ton (UK)", 1016.0469088_dec, {}},
    {"ct", "Carat", "ct", 0.0002_dec, {}},
});

constexpr auto temperatureUnits = std::to_array<UnitDef>({
    {"celsius", "Celsius", "°C", 1_dec, 273.15_dec},
    {"kelvin", "Kelvin", "K", 1_dec, {}},
    {"fahrenheit", "Fahrenheit", "°F", fiveNinths, 459.67_dec},
    {"rankine", "Rankine", "°R", fiveNinths, {}},
});

constexpr auto lengthPairs
    = std::to_array<UnitPair>({{"mi", "km"}, {"ft", "m"}, {"in", "cm"}, {"nmi", "km"}, {"yd", "m"}});

constexpr auto massPairs
    = std::to_array<UnitPair>({{"kg", "lb"}, {"oz", "g"}, {"st", "kg"}, {"t", "kg"}, {"ct", "g"}});

constexpr auto temperaturePairs = std::to_array<UnitPair>({{"celsius", "fahrenheit"}});

constexpr int leastPlaces = 6;
constexpr int mostPlaces = 24;

} // namespace

std::string_view title(UnitKind kind)
{
    switch (kind) {
    case UnitKind::length:
        return "Length";
    case UnitKind::mass:
        return "Weight";
    case UnitKind::temperature:
        return "Temperature";
    }
    return {};
}

std::span<const UnitDef> units(UnitKind kind)
{
    switch (kind) {
    case UnitKind::length:
        return lengthUnits;
    case UnitKind::mass:
        return massUnits;
    case UnitKind::temperature:
        return temperatureUnits;
    }
    return {};
}

std::optional<UnitDef> UnitConvert::unit(std::string_view id, UnitKind kind)
{
    const auto all = units(kind);
    const auto found = std::ranges::find(all, id, &UnitDef::id);
    if (found == all.end())
        return std::nullopt;
    return *found;
}

std::optional<Decimal> UnitConvert::convert(const Decimal& value, const UnitDef& from, const UnitDef& to,
                                            UnitKind kind)
{
    if (kind != UnitKind::temperature)
        return Num::divide(value * from.factor, to.factor);
    const auto shifted = Num::divide((value + from.offset) * from.factor, to.factor);
    if (!shifted)
        return std::nullopt;
    return *shifted - to.offset;
}

std::string UnitConvert::figure(const Decimal& value)
{
    Decimal magnitude = Num::abs(value);
    int places = leastPlaces;
    while (magnitude != 0 && magnitude < 1 && places < mostPlaces) {
        magnitude = magnitude * 10;
        ++places;
    }
    return Num::string(value, places, true);
}

std::span<const UnitPair> UnitConvert::pairs(UnitKind kind)
{
    switch (kind) {
    case UnitKind::length:
        return lengthPairs;
    case UnitKind::mass:
        return massPairs;
    case UnitKind::temperature:
        return temperaturePairs;
    }
    return {};
}

} // namespace zelta
