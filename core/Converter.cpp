#include "core/Converter.h"

#include "core/Num.h"
#include "core/Unicode.h"

#include <array>
#include <optional>

namespace zelta::Converter {

namespace {

constexpr std::array everydayCelsius {-40, 0, 20, 37, 100};

std::string withSymbol(const std::string& figure, const UnitDef& unit)
{
    return figure + " " + std::string(unit.symbol);
}

/// A line of the answer; the tone goes by the value itself, so that "-0.0…" shown as 0 is still below zero.
ResultRow row(std::string label, const Decimal& value, const UnitDef& unit, Weight weight)
{
    const Tone tone = value < 0 ? Tone::down : Tone::neutral;
    return {std::move(label), withSymbol(UnitConvert::figure(value), unit), std::nullopt, weight, tone};
}

std::optional<ResultRow> oneUnitRow(const UnitDef& from, const UnitDef& to, UnitKind kind)
{
    const auto value = UnitConvert::convert(1, from, to, kind);
    if (!value)
        return std::nullopt;
    return row(withSymbol("1", from) + " =", *value, to, Weight::primary);
}

} // namespace

UnitPair startingPair(UnitKind kind)
{
    if (const auto pairs = UnitConvert::pairs(kind); !pairs.empty())
        return pairs.front();
    const auto all = units(kind);
    return {all.front().id, all.size() > 1 ? all[1].id : all.front().id};
}

std::vector<ResultRow> rows(UnitKind kind, std::string_view fromId, std::string_view toId,
                            std::string_view amountText)
{
    const auto from = UnitConvert::unit(fromId, kind);
    const auto to = UnitConvert::unit(toId, kind);
    const auto amount = Num::parse(amountText);
    if (!from || !to || !amount)
        return {};
    const auto converted = UnitConvert::convert(*amount, *from, *to, kind);
    if (!converted)
        return {};

    const std::string question
        = withSymbol(Num::string(*amount, 6, true), *from) + " in " + Unicode::lowerCase(to->name);
    std::vector<ResultRow> rows {row(question, *converted, *to, Weight::headline)};
    if (auto there = oneUnitRow(*from, *to, kind))
        rows.push_back(std::move(*there));
    if (fromId != toId) {
        if (auto back = oneUnitRow(*to, *from, kind))
            rows.push_back(std::move(*back));
    }
    return rows;
}

std::vector<std::string> referenceEntries(UnitKind kind)
{
    std::vector<std::string> entries;
    for (const auto& [fromId, toId] : UnitConvert::pairs(kind)) {
        const auto from = UnitConvert::unit(fromId, kind);
        const auto to = UnitConvert::unit(toId, kind);
        if (!from || !to)
            continue;
        if (const auto one = oneUnitRow(*from, *to, kind))
            entries.push_back(one->label + " " + one->value);
    }
    return entries;
}

std::vector<std::string> temperatureLadder()
{
    const auto celsius = UnitConvert::unit("celsius", UnitKind::temperature);
    const auto fahrenheit = UnitConvert::unit("fahrenheit", UnitKind::temperature);
    std::vector<std::string> lines;
    for (const int degrees : everydayCelsius) {
        const auto value
            = UnitConvert::convert(Decimal(degrees), *celsius, *fahrenheit, UnitKind::temperature);
        lines.push_back(withSymbol(Num::integer(degrees), *celsius) + " = "
                        + withSymbol(UnitConvert::figure(*value), *fahrenheit));
    }
    return lines;
}

} // namespace zelta::Converter
