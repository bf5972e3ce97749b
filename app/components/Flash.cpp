#include "app/components/Flash.h"

#include "app/components/Announcement.h"
#include "app/components/SymbolIcon.h"

#include <QHBoxLayout>

namespace zelta {

Flash::Flash(Clock& clock, std::chrono::milliseconds duration, QWidget* parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_duration(duration)
    , m_icon(new SymbolIcon("checkmark", 14, Theme::Token::upInk, this))
    , m_label(new Announcement({}, Theme::FontRole::captionMedium, Theme::Token::upInk, this))
{
    constexpr int gap = 6;
    constexpr int height = 16;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    row->addWidget(m_icon);
    row->addWidget(m_label);
    for (QWidget* part : {static_cast<QWidget*>(m_icon), static_cast<QWidget*>(m_label)}) {
        QSizePolicy policy = part->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        part->setSizePolicy(policy);
        part->hide();
    }
    setMinimumHeight(height);
}

void Flash::flash(const QString& text)
{
    hold(text);
    m_end = m_clock.after(m_duration, [this] { clear(); });
}

void Flash::hold(const QString& text)
{
    m_end.cancel();
    m_label->setText(text);
    m_label->announce(); // one that is seen already takes another text, or counts once more
    setShowing(true);
}

void Flash::clear()
{
    m_end.cancel();
    setShowing(false);
}

bool Flash::isShowing() const
{
    return m_isShowing;
}

QString Flash::text() const
{
    return m_isShowing ? m_label->text() : QString();
}

void Flash::setShowing(bool showing)
{
    m_icon->setVisible(showing);
    m_label->setVisible(showing);
    if (m_isShowing == showing)
        return;
    m_isShowing = showing;
    Q_EMIT showingChanged(showing);
}

} // namespace zelta
