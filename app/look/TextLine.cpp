#include "app/look/TextLine.h"

#include <QPainter>
#include <QTextOption>

namespace zelta {

void TextLine::set(const QString& text, const QFont& font)
{
    if (m_layout.lineCount() > 0 && text == m_layout.text() && font == m_layout.font())
        return;
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::ManualWrap);
    m_layout.setCacheEnabled(true);
    m_layout.setTextOption(option);
    m_layout.setFont(font);
    m_layout.setText(text);
    m_layout.beginLayout();
    QTextLine line = m_layout.createLine();
    constexpr double unlimited = 1 << 24;
    line.setLineWidth(unlimited);
    m_layout.endLayout();
    m_advance = line.horizontalAdvance();
}

void TextLine::draw(QPainter& painter, double x, double baseline) const
{
    if (m_layout.lineCount() == 0)
        return;
    const QTextLine line = m_layout.lineAt(0);
    line.draw(&painter, QPointF(x, baseline - line.ascent()));
}

void TextLine::draw(QPainter& painter, const QRectF& area) const
{
    if (m_layout.lineCount() == 0)
        return;
    const QTextLine line = m_layout.lineAt(0);
    line.draw(&painter, QPointF(area.left(), area.top() + (area.height() - line.height()) / 2));
}

} // namespace zelta
