#include "app/components/EmptyState.h"

#include "app/components/Announcement.h"
#include "app/components/Label.h"
#include "app/components/SymbolIcon.h"

#include <QVBoxLayout>

namespace zelta {

EmptyState::EmptyState(std::string_view symbol, const QString& title, const QString& text, QWidget* parent,
                       int keptAbove)
    : QWidget(parent)
{
    constexpr int symbolSize = 28;
    constexpr int above = 28;
    constexpr int side = 12;
    constexpr int belowSymbol = 8;
    constexpr int belowTitle = 4;
    constexpr int below = 20;
    constexpr int lineHeight = 18;
    auto* heading = new Announcement(title, Theme::FontRole::bodyBold, Theme::Token::text, this);
    heading->setAlignment(Qt::AlignHCenter);
    auto* sentence = new Label(text, Theme::FontRole::menu, Theme::Token::textSecondary, this);
    sentence->setAlignment(Qt::AlignHCenter);
    sentence->setWrapped(lineHeight);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(side, above - keptAbove, side, below);
    column->setSpacing(0);
    column->addWidget(new SymbolIcon(symbol, symbolSize, Theme::Token::textSecondary, this), 0,
                      Qt::AlignHCenter);
    column->addSpacing(belowSymbol);
    column->addWidget(heading);
    column->addSpacing(belowTitle);
    column->addWidget(sentence);
    column->addStretch(1);
}

} // namespace zelta
