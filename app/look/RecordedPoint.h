#pragma once

#include <cstdint>

namespace zelta {

/// The width and height of each drawing in units of its own.
constexpr int drawingUnits = 24;

/// What the build records of a line drawing: a file is a row of these and nothing else, the corners of
/// outlines that nowhere cross. What lies in an odd number of them is to be filled.
struct RecordedPoint
{
    static constexpr double scale = 1024; ///< to a unit

    std::int16_t x;
    std::int16_t y;

    friend bool operator==(const RecordedPoint&, const RecordedPoint&) = default;
};

/// Stands before the first point of an outline.
constexpr RecordedPoint outlineBegins {INT16_MIN, INT16_MIN};

} // namespace zelta
