#include "app/components/WrappingRow.h"

namespace zelta {

WrappingRow::WrappingRow(QWidget* parent, int spacing, int lineSpacing)
    : QWidget(parent)
{
    new FlowLayout(this, spacing, lineSpacing);
}

void WrappingRow::add(QWidget* child)
{
    layout()->addWidget(child);
}

} // namespace zelta
