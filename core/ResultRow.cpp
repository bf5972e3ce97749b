#include "core/ResultRow.h"

namespace zelta {

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
