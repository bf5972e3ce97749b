#include "app/components/Label.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <QtMath>

namespace zelta {

Label::Label(const QString& text, QWidget* parent)
    : Label(text, Theme::FontRole::body, Theme::Token::text, parent)
{ }

Label::Label(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFont(Theme::font(role));
    setToken(token);
    setText(text);
}

void Label::setRole(Theme::FontRole role)
{
    setFont(Theme::font(role));
}

void Label::setToken(Theme::Token token)
{
    m_token = token;
    applyToken();
}

void Label::setOpacity(double opacity)
{
    m_opacity = static_cast<float>(opacity);
    applyToken();
}

void Label::setWrapped(int pixels)
{
    m_lineHeight = pixels;
    setWordWrap(true);
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    updateGeometry();
}

bool Label::hasHeightForWidth() const
{
    return m_lineHeight > 0 || QLabel::hasHeightForWidth();
}

int Label::heightForWidth(int width) const
{
    if (m_lineHeight == 0)
        return QLabel::heightForWidth(width);
    QTextLayout layout(text(), font());
    return qCeil(layOut(layout, width));
}

void Label::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyToken();
}

void Label::paintEvent(QPaintEvent* event)
{
    if (m_lineHeight == 0) {
        QLabel::paintEvent(event);
        return;
    }
    QTextLayout layout(text(), font());
    layOut(layout, width());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, {});
}

/// Text and secondary text have palette roles of their own and cost nothing; the inks are set on the label.
/// Each step is skipped when it changes nothing, because it announces a palette change that leads here again.
void Label::applyToken()
{
    const bool secondary = m_token == Theme::Token::textSecondary;
    const QPalette::ColorRole role = secondary ? QPalette::PlaceholderText : QPalette::WindowText;
    if (foregroundRole() != role)
        setForegroundRole(role);
    if (secondary || m_token == Theme::Token::text) {
        if (testAttribute(Qt::WA_SetPalette))
            setPalette(QPalette());
        return;
    }
    QColor color = Theme::color(m_token);
    color.setAlphaF(m_opacity);
    if (palette().color(role).rgba() == color.rgba())
        return;
    QPalette own;
    own.setColor(role, color);
    setPalette(own);
}

/// The height of the text in lines of `m_lineHeight`.
double Label::layOut(QTextLayout& layout, double width) const
{
    QTextOption option(alignment());
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    double y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y + (m_lineHeight - line.height()) / 2));
        y += m_lineHeight;
    }
    layout.endLayout();
    return y;
}

} // namespace zelta
