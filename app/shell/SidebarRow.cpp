#include "app/shell/SidebarRow.h"

#include "app/components/ModuleGlyph.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"

#include <QFontMetrics>
#include <QPainter>
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
    m_subtitle.setCacheEnabled(true);
    m_subtitle.setFont(Theme::font(Theme::FontRole::note));
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
    m_subtitle.setText(subtitle);
    breakSubtitle(QWIDGETSIZE_MAX);
    m_subtitleWidth = m_subtitle.lineCount() > 0 ? m_subtitle.lineAt(0).horizontalAdvance() : 0;
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
    const int textHeight = titleHeight + subtitleGap + subtitleLines(width) * subtitleLineHeight;
    return 2 * padding + std::max(badgeSize, textHeight);
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
    painter.setPen(Theme::color(Theme::Token::text));
    const QFontMetrics titleMetrics(font());
    m_title.set(text(), font());
    m_title.draw(painter, textLeft, padding + titleMetrics.ascent());

    painter.setPen(Theme::color(Theme::Token::textSecondary));
    paintSubtitle(painter, padding + titleMetrics.height() + subtitleGap);
}

/// How many lines the subtitle takes in a row of that width. Layouts ask again and again, so nothing is
/// broken for it.
int SidebarRow::subtitleLines(int width) const
{
    return m_subtitleWidth <= width - textLeft - padding ? 1 : maxSubtitleLines;
}

void SidebarRow::breakSubtitle(double width)
{
    m_brokenFor = width;
    m_subtitle.beginLayout();
    for (QTextLine line = m_subtitle.createLine(); line.isValid(); line = m_subtitle.createLine())
        line.setLineWidth(width);
    m_subtitle.endLayout();
}

void SidebarRow::paintSubtitle(QPainter& painter, int top)
{
    const double room = width() - textLeft - padding;
    if (room != m_brokenFor && std::min(room, m_brokenFor) < m_subtitleWidth)
        breakSubtitle(room);
    const int lines = std::min(m_subtitle.lineCount(), maxSubtitleLines);
    for (int i = 0; i < lines; ++i) {
        const QTextLine line = m_subtitle.lineAt(i);
        const int y = top + i * subtitleLineHeight + (subtitleLineHeight - qRound(line.height())) / 2;
        if (i < lines - 1 || lines == m_subtitle.lineCount()) {
            line.draw(&painter, QPointF(textLeft, y));
            continue;
        }
        const QFont& font = m_subtitle.font();
        painter.setFont(font);
        const QString rest = m_subtitle.text().mid(line.textStart());
        const QString shown
            = QFontMetrics(font).elidedText(rest, Qt::ElideRight, width() - textLeft - padding);
        painter.drawText(QPointF(textLeft, y + line.ascent()), shown);
    }
}

} // namespace zelta
