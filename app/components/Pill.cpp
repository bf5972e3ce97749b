#include "app/components/Pill.h"

#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"

#include <QPainter>

namespace zelta {

namespace {

constexpr int before = 11;
constexpr int after = 14;
constexpr int gap = 7;
constexpr int symbolSize = 14;
constexpr double radius = Metric::pillHeight / 2.0;

} // namespace

Pill::Pill(const PillTabs::Tab& tab, Module module, PillTabs* row)
    : QRadioButton(withoutMnemonic(tab.label), row)
    , m_tab(tab)
    , m_module(module)
{
    setFont(Theme::font(Theme::FontRole::captionBold));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

const QString& Pill::value() const
{
    return m_tab.value;
}

QSize Pill::sizeHint() const
{
    m_checkedLine.set(m_tab.label, font());
    return {before + symbolSize + gap + m_checkedLine.width() + after, Metric::pillHeight};
}

bool Pill::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void Pill::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRectF area = rect();
    if (isChecked())
        Surface::draw(painter, area, radius, Theme::fill(m_module));
    else
        Surface::drawPress(painter, area, radius, Surface::pressOf(*this));
    const QColor ink = Theme::color(isChecked() ? Theme::Token::onAccent : Theme::Token::text);
    Symbols::draw(painter, QRectF(before, 0, symbolSize, height()), m_tab.symbol, symbolSize, ink);
    painter.setPen(ink);
    constexpr int textStart = before + symbolSize + gap;
    TextLine& line = isChecked() ? m_checkedLine : m_clearLine;
    line.set(m_tab.label, isChecked() ? font() : Theme::font(Theme::FontRole::captionMedium));
    line.draw(painter, QRectF(textStart, 0, width() - textStart, height()));
    if (!Surface::showsFocus(*this))
        return;
    if (isChecked())
        Surface::drawOutline(painter, area.adjusted(2, 2, -2, -2), radius - 2, ink, 1.5);
    else
        Surface::drawFocusRing(painter, area, radius);
}

} // namespace zelta
