#include "app/components/Card.h"

#include "app/components/Label.h"
#include "app/components/SymbolIcon.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace zelta {

Card::Card(QWidget* parent)
    : QWidget(parent)
    , m_content(new QVBoxLayout)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metric::cardPadding, Metric::cardPadding, Metric::cardPadding,
                               Metric::cardPadding);
    column->setSpacing(0);
    m_content->setSpacing(0);
    column->addLayout(m_content, 1); // a card that is made taller keeps its title row at the top
}

Card::Card(const QString& title, std::string_view symbol, QWidget* parent)
    : Card(parent)
{
    constexpr int symbolSize = 14;
    constexpr int symbolGap = 7;
    constexpr int rowHeight = 16;
    constexpr int belowRow = 12;
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, belowRow);
    row->setSpacing(symbolGap);
    if (!symbol.empty())
        row->addWidget(new SymbolIcon(symbol, symbolSize, Theme::Token::textSecondary, this));
    auto* label = new Label(title, Theme::FontRole::sectionLabel, Theme::Token::textSecondary, this);
    label->setMinimumHeight(rowHeight);
    row->addWidget(label);
    row->addStretch(1);
    static_cast<QVBoxLayout*>(layout())->insertLayout(0, row);
}

QVBoxLayout* Card::content() const
{
    return m_content;
}

void Card::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), Metric::cardRadius, Theme::color(Theme::Token::card),
                  Theme::color(Theme::Token::outline));
}

} // namespace zelta
