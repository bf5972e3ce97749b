#include "app/components/CopyableText.h"

#include "app/components/Clipboard.h"
#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/TextWidth.h"
#include "app/look/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace zelta {

namespace {

constexpr int lineHeight = 25;
constexpr int gap = 9;
constexpr int symbolSize = 14;
constexpr int sidePadding = 4; // room for the focus ring
constexpr std::string_view onlyKey = "text";

} // namespace

CopyableText::CopyableText(Clock& clock, const QString& help, QWidget* parent)
    : QAbstractButton(parent)
    , m_mark(clock, [this] { update(); })
{
    setFont(Theme::font(Theme::FontRole::bodyBold));
    setToolTip(help);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] {
        copyText(text());
        m_mark.set(std::string(onlyKey));
    });
}

void CopyableText::setCopyText(const QString& text)
{
    setText(text);
    setAccessibleName(text);
    updateGeometry();
}

QSize CopyableText::sizeHint() const
{
    return {2 * sidePadding + textWidth(font(), text()) + gap + symbolSize, lineHeight};
}

QSize CopyableText::minimumSizeHint() const
{
    return {2 * sidePadding + gap + symbolSize, lineHeight};
}

void CopyableText::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void CopyableText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const int room = width() - 2 * sidePadding - gap - symbolSize;
    const int shownWidth = std::min(room, textWidth(font(), text()));
    painter.setPen(Theme::color(Theme::Token::text));
    painter.drawText(QRect(sidePadding, 0, shownWidth, height()), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, shownWidth));
    const bool copied = m_mark.isOn(onlyKey);
    const Theme::Token ink = copied ? Theme::Token::upInk
        : underMouse()              ? Theme::Token::text
                                    : Theme::Token::textSecondary;
    Symbols::draw(painter, QRect(sidePadding + shownWidth + gap, 0, symbolSize, height()),
                  copied ? "checkmark" : "doc.on.doc", symbolSize, Theme::color(ink));
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, rect(), Metric::tipRadius);
}

} // namespace zelta
