#include "app/components/CopyButton.h"

#include "app/components/Clipboard.h"
#include "app/look/Symbols.h"

#include <QKeyEvent>
#include <QPainter>

namespace zelta {

namespace {

constexpr std::string_view onlyKey = "text";

} // namespace

CopyButton::CopyButton(Clock& clock, Theme::FontRole role, QWidget* parent)
    : QAbstractButton(parent)
    , m_mark(clock, [this] { showMark(); })
{
    setFont(Theme::font(role));
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, [this] {
        copyText(text());
        m_mark.set(std::string(onlyKey));
    });
}

void CopyButton::setCopyText(const QString& text)
{
    setText(text);
    setAccessibleName(text);
    updateGeometry();
}

/// Those who cannot see the check mark are told; else the hover help describes the button.
void CopyButton::showMark()
{
    setAccessibleDescription(showsMark() ? QStringLiteral("Copied") : QString());
    update();
}

bool CopyButton::showsMark() const
{
    return m_mark.isOn(onlyKey);
}

int CopyButton::textWidth() const
{
    m_line.set(text(), font());
    return m_line.width();
}

void CopyButton::drawText(QPainter& painter, const QRect& area) const
{
    if (textWidth() <= area.width())
        m_line.draw(painter, area);
    else
        painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}

void CopyButton::drawSymbol(QPainter& painter, const QRect& area, const QColor& ink) const
{
    Symbols::draw(painter, area, showsMark() ? "checkmark" : "doc.on.doc", symbolSize, ink);
}

void CopyButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace zelta
