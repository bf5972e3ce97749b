#include "app/components/CopyChip.h"

#include "app/components/Clipboard.h"
#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/TextWidth.h"
#include "app/look/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace zelta {

namespace {

constexpr int chipHeight = 30;
constexpr int padding = 13;
constexpr int gap = 8;
constexpr int symbolSize = 14;
constexpr std::string_view onlyKey = "text";

} // namespace

CopyChip::CopyChip(Clock& clock, Module tint, QWidget* parent)
    : QAbstractButton(parent)
    , m_tint(tint)
    , m_mark(clock, [this] { update(); })
{
    setFont(Theme::font(Theme::FontRole::control));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] {
        copyText(text());
        m_mark.set(std::string(onlyKey));
    });
}

void CopyChip::setCopyText(const QString& text)
{
    setText(text);
    setAccessibleName(text);
    setToolTip(QStringLiteral("Click to copy “%1”").arg(text));
    updateGeometry();
}

QSize CopyChip::sizeHint() const
{
    return {2 * padding + textWidth(font(), text()) + gap + symbolSize, chipHeight};
}

QSize CopyChip::minimumSizeHint() const
{
    return {2 * padding + gap + symbolSize, chipHeight};
}

void CopyChip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void CopyChip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const double radius = chipHeight / 2.0;
    const QRectF area = rect();
    Surface::draw(painter, area, radius, Theme::color(Theme::Token::inset),
                  Theme::color(Theme::Token::outline));
    Surface::drawPress(painter, area, radius,
                       isDown()           ? Surface::Press::pressed
                           : underMouse() ? Surface::Press::hovered
                                          : Surface::Press::none);

    const QColor ink = Theme::ink(m_tint);
    const QRect content = rect().adjusted(padding, 0, -padding, 0);
    const QRect textArea = content.adjusted(0, 0, -gap - symbolSize, 0);
    painter.setPen(ink);
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, textArea.width()));
    Symbols::draw(painter, QRect(content.right() + 1 - symbolSize, 0, symbolSize, chipHeight),
                  m_mark.isOn(onlyKey) ? "checkmark" : "doc.on.doc", symbolSize, ink);
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, area, radius);
}

} // namespace zelta
