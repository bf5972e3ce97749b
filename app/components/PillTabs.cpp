#include "app/components/PillTabs.h"

#include "app/components/Pill.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>

namespace zelta {

namespace {

constexpr int padding = 4;
constexpr int dividerSpace = 9; // a line of 1 with 4 on either side
constexpr int dividerHeight = 14;

} // namespace

PillTabs::PillTabs(const std::vector<Tab>& tabs, Module module, QWidget* parent)
    : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(padding, padding, padding, padding);
    row->setSpacing(dividerSpace);
    for (const Tab& tab : tabs) {
        auto* pill = new Pill(tab, module, this);
        // Not `clicked`: assistive technology checks a button without a click.
        connect(pill, &QAbstractButton::toggled, this, [this, pill](bool isOn) {
            if (isOn)
                choose(*pill);
        });
        row->addWidget(pill);
        m_pills.push_back(pill);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (!tabs.empty())
        setSelection(tabs.front().value);
}

QString PillTabs::selection() const
{
    return m_selected ? m_selected->value() : QString();
}

void PillTabs::setSelection(const QString& value)
{
    const auto found = std::ranges::find(m_pills, value, &Pill::value);
    if (found == m_pills.end())
        return;
    m_selected = *found;
    // One tab stop, the selected pill; a focus in the row goes with the selection.
    const bool hadFocus = std::ranges::any_of(m_pills, [](const Pill* pill) { return pill->hasFocus(); });
    for (Pill* pill : m_pills) {
        pill->setChecked(pill == m_selected);
        pill->setFocusPolicy(pill == m_selected ? Qt::TabFocus : Qt::NoFocus);
    }
    if (hadFocus)
        (*found)->setFocus();
}

void PillTabs::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), height() / 2.0, Theme::color(Theme::Token::pillBack));
    const QColor line = Theme::color(Theme::Token::buttonOutline);
    for (std::size_t i = 1; i < m_pills.size(); ++i) {
        const QRect pill = m_pills[i]->geometry();
        painter.fillRect(
            QRectF(pill.left() - padding - 1, (height() - dividerHeight) / 2.0, 1, dividerHeight), line);
    }
}

void PillTabs::choose(const Pill& pill)
{
    if (&pill == m_selected)
        return;
    setSelection(pill.value());
    Q_EMIT selected(pill.value());
}

} // namespace zelta
