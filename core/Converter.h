#pragma once

#include "core/ResultRow.h"
#include "core/Units.h"

#include <string>
#include <string_view>
#include <vector>

/// What the converter answers, as text: the rows of one conversion and the lines it offers for reference.
namespace zelta::Converter {

/// The units chosen when a kind is opened: its first common conversion, else its first two units.
UnitPair startingPair(UnitKind kind);

/// The typed amount converted, then one unit in the other, then the other way round:
///
///     rows(UnitKind::length, "mi", "km", "5")
///     // 5 mi in kilometre: 8.04672 km
///     // 1 mi =: 1.609344 km
///     // 1 km =: 0.6213712 mi
///
/// Two rows when both units are the same; none when an id is unknown or the amount cannot be read.
std::vector<ResultRow> rows(UnitKind kind, std::string_view fromId, std::string_view toId,
                            std::string_view amountText);

/// One line for each common conversion of the kind: "1 ft = 0.3048 m".
std::vector<std::string> referenceEntries(UnitKind kind);

/// Everyday temperatures from frost to boiling: "37 °C = 98.6 °F".
std::vector<std::string> temperatureLadder();

} // namespace zelta::Converter
