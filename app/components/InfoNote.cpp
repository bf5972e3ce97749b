#include "app/components/InfoNote.h"

#include "app/components/Label.h"
#include "app/components/SymbolIcon.h"

#include <QHBoxLayout>

namespace zelta {

InfoNote::InfoNote(const QString& text, QWidget* parent)
    : InfoNote(text, "info-circle", Place::belowCard, parent)
{ }

InfoNote::InfoNote(const QString& text, std::string_view symbol, Place place, QWidget* parent)
    : QWidget(parent)
    , m_text(new Label(text, Theme::FontRole::note, Theme::Token::textSecondary, this))
{
    constexpr int symbolSize = 14;
    constexpr int gap = 8;
    constexpr int lineHeight = 16;
    const int indent = place == Place::belowCard ? 4 : 0;
    m_text->setWrapped(lineHeight);
    auto* icon = new SymbolIcon(symbol, symbolSize, Theme::Token::textSecondary, this);
    auto* iconColumn = new QVBoxLayout;
    iconColumn->setContentsMargins(0, 1, 0, 0);
    iconColumn->addWidget(icon, 0, Qt::AlignTop);
    iconColumn->addStretch(1);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(indent, 0, indent, 0);
    row->setSpacing(gap);
    row->addLayout(iconColumn);
    row->addWidget(m_text, 1);
}

void InfoNote::setText(const QString& text)
{
    m_text->setText(text);
}

} // namespace zelta
