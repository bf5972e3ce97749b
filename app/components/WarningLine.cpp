#include "app/components/WarningLine.h"

#include "app/components/Announcement.h"
#include "app/components/SymbolIcon.h"

#include <QHBoxLayout>

namespace zelta {

WarningLine::WarningLine(const QString& text, std::string_view symbol, QWidget* parent)
    : QWidget(parent)
{
    constexpr int symbolSize = 14;
    constexpr int gap = 6;
    constexpr double opacity = 0.8;
    auto* icon = new SymbolIcon(symbol, symbolSize, Theme::Token::warnInk, this);
    auto* label = new Announcement(text, Theme::FontRole::caption, Theme::Token::warnInk, this);
    icon->setOpacity(opacity);
    label->setOpacity(opacity);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(icon);
    row->addWidget(label);
    row->addStretch(1);
}

} // namespace zelta
