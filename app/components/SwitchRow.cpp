#include "app/components/SwitchRow.h"

#include "app/components/Label.h"
#include "app/components/Switch.h"

#include <QVBoxLayout>

namespace zelta {

SwitchRow::SwitchRow(const QString& label, const QString& caption, QWidget* card)
    : m_switch(new Switch(label, caption, card))
{
    constexpr int gap = 14;
    constexpr int lineGap = 3;
    // The switch keeps room for its ring around it; its track stands flush with the text above.
    setContentsMargins(-Switch::margin, 0, 0, 0);
    setSpacing(gap - Switch::margin);
    addWidget(m_switch, 0, Qt::AlignVCenter);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    texts->addWidget(new Label(label, card));
    texts->addWidget(new Label(caption, Theme::FontRole::caption, Theme::Token::textSecondary, card));
    addLayout(texts);
    addStretch(1);
}

} // namespace zelta
