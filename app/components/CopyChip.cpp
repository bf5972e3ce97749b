#include "app/components/CopyChip.h"

#include "app/look/Surface.h"

#include <QPainter>

namespace zelta {

namespace {

constexpr int chipHeight = 30;
constexpr int padding = 13;
constexpr int gap = 8;

} // namespace

CopyChip::CopyChip(Clock& clock, Module tint, QWidget* parent)
    : CopyButton(clock, Theme::FontRole::control, parent)
    , m_tint(tint)
{ }

void CopyChip::setCopyText(const QString& text)
{
    CopyButton::setCopyText(text);
    setToolTip(QStringLiteral("Click to copy “%1”").arg(text));
}

QSize CopyChip::sizeHint() const
{
    return {2 * padding + textWidth() + gap + symbolSize, chipHeight};
}

QSize CopyChip::minimumSizeHint() const
{
    return {2 * padding + gap + symbolSize, chipHeight};
}

void CopyChip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const double radius = chipHeight / 2.0;
    const QRectF area = rect();
    Surface::draw(painter, area, radius, Theme::color(Theme::Token::inset),
                  Theme::color(Theme::Token::outline));
    Surface::drawPress(painter, area, radius, Surface::pressOf(*this));

    const QColor ink = Theme::ink(m_tint);
    const QRect content = rect().adjusted(padding, 0, -padding, 0);
    const QRect textArea = content.adjusted(0, 0, -gap - symbolSize, 0);
    painter.setPen(ink);
    drawText(painter, textArea);
    drawSymbol(painter, QRect(content.right() + 1 - symbolSize, 0, symbolSize, chipHeight), ink);
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, area, radius);
}

} // namespace zelta
