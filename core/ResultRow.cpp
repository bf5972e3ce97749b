#include "core/ResultRow.h"

#include <utility>

namespace zelta {

ResultRow ResultRow::withSign(std::string label, std::string value, const Decimal& number,
                              std::optional<std::string> note, Weight weight)
{
    const Tone tone = number > 0 ? Tone::up : number < 0 ? Tone::down : Tone::neutral;
    return {std::move(label), std::move(value), std::move(note), weight, tone};
}

std::string plainText(const ResultRow& row)
{
    std::string text = row.label + ": " + row.value;
    if (row.note)
        text += "  (" + *row.note + ")";
    return text;
}

std::string plainText(std::span<const ResultRow> rows)
{
    std::string text;
    for (const ResultRow& row : rows) {
        if (!text.empty())
            text += '\n';
        text += plainText(row);
    }
    return text;
}

} // namespace zelta
