#include "app/components/ModuleGlyph.h"

#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"

#include <QLinearGradient>
#include <QPainter>

namespace zelta {

ModuleGlyph::ModuleGlyph(std::string_view symbol, const QColor& tint, int size, QWidget* parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_tint(tint)
{
    setFixedSize(size, size);
}

void ModuleGlyph::draw(QPainter& painter, const QRectF& rect, std::string_view symbol, const QColor& tint)
{
    constexpr float faded = 0.72F;
    constexpr double symbolShare = 0.56;
    QColor end = tint;
    end.setAlphaF(faded);
    QLinearGradient gradient(rect.topLeft(), rect.bottomRight());
    gradient.setColorAt(0, tint);
    gradient.setColorAt(1, end);
    Surface::draw(painter, rect, rect.width() * Metric::badgeRadius, gradient);
    Symbols::draw(painter, rect, symbol, qRound(rect.width() * symbolShare), Qt::white,
                  Symbols::Stroke::bold);
}

void ModuleGlyph::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    draw(painter, rect(), m_symbol, m_tint);
}

} // namespace zelta
