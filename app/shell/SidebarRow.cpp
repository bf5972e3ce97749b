#include "app/shell/SidebarRow.h"

#include "app/components/ModuleGlyph.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace zelta {
namespace {

constexpr int padding = 7; ///< 6 and the 1 px line of the selected row.
constexpr int badgeSize = 30;
constexpr int badgeGap = 10;
constexpr int subtitleGap = 2;
constexpr int subtitleLineHeight = 14;
constexpr int maxSubtitleLines = 2;
constexpr int textLeft = padding + badgeSize + badgeGap;
constexpr int idealWidth = 266;

} // namespace

SidebarRow::SidebarRow(Module module, const QString& subtitle, QWidget* parent)
    : QRadioButton(toQt(title(module)), parent)
    , m_module(module)
{
    setSubtitle(subtitle);
    setFont(Theme::font(Theme::FontRole::rowTitle));
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SidebarRow::setSubtitle(const QString& subtitle)
{
    m_subtitle = subtitle;
    m_brokenFor = -1;
    setAccessibleDescription(subtitle);
    updateGeometry();
    update();
}

QSize SidebarRow::sizeHint() const
{
    return {idealWidth, heightForWidth(idealWidth)};
}

QSize SidebarRow::minimumSizeHint() const
{
    // The badge's height: the text's follows the width, and asked for too early it would take two lines for
    // all rows.
    return {textLeft, 2 * padding + badgeSize};
}

int SidebarRow::heightForWidth(int width) const
{
    const int titleHeight = QFontMetrics(font()).height();
    const int lines = static_cast<int>(subtitleLines(width).size());
    return 2 * padding + std::max(badgeSize, titleHeight + subtitleGap + lines * subtitleLineHeight);
}

void SidebarRow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_brokenFor = -1;
    QRadioButton::changeEvent(event);
}

bool SidebarRow::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void SidebarRow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked())
        Surface::draw(painter, rect(), Metric::rowRadius, Theme::color(Theme::Token::raised),
                      Theme::color(Theme::Token::outline));
    else if (underMouse())
        Surface::drawPress(painter, rect(), Metric::rowRadius, Surface::Press::hovered);
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, rect(), Metric::rowRadius);

    ModuleGlyph::draw(painter, QRectF(padding, padding, badgeSize, badgeSize), symbol(m_module),
                      Theme::tint(m_module));
    painter.setFont(font());
    painter.setPen(Theme::color(Theme::Token::text));
    const QFontMetrics titleMetrics(font());
    painter.drawText(textLeft, padding + titleMetrics.ascent(), text());

    const QFont noteFont = Theme::font(Theme::FontRole::note);
    const QFontMetrics noteMetrics(noteFont);
    painter.setFont(noteFont);
    painter.setPen(Theme::color(Theme::Token::textSecondary));
    int baseline = padding + titleMetrics.height() + subtitleGap + noteMetrics.ascent()
        + (subtitleLineHeight - noteMetrics.height()) / 2;
    for (const QString& line : subtitleLines(width())) {
        painter.drawText(textLeft, baseline, line);
        baseline += subtitleLineHeight;
    }
}

const QStringList& SidebarRow::subtitleLines(int width) const
{
    // Layouts ask for heights again and again, and breaking lines was two fifths of the start.
    if (width == m_brokenFor)
        return m_lines;
    m_brokenFor = width;
    m_lines.clear();
    const QFont noteFont = Theme::font(Theme::FontRole::note);
    const int available = width - textLeft - padding;
    QTextLayout layout(m_subtitle, noteFont);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(available);
        if (m_lines.size() == maxSubtitleLines - 1) {
            m_lines << QFontMetrics(noteFont).elidedText(m_subtitle.mid(line.textStart()), Qt::ElideRight,
                                                         available);
            break;
        }
        m_lines << m_subtitle.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return m_lines;
}

} // namespace zelta
