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
constexpr std::size_t maxSubtitleLines = 2;
constexpr int textLeft = padding + badgeSize + badgeGap;
constexpr int idealWidth = 266;

} // namespace

SidebarRow::SidebarRow(Module module, const QString& subtitle, QWidget* parent)
    : QRadioButton(toQt(title(module)), parent)
    , m_module(module)
{
    setSubtitle(subtitle);
    setFont(Theme::font(Theme::FontRole::rowTitle));
    // Not a fixed height: that would be the one at the ideal width.
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SidebarRow::setSubtitle(const QString& subtitle)
{
    m_subtitle.set(subtitle, Theme::font(Theme::FontRole::note), QTextOption::WordWrap, subtitleLineHeight);
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
    const std::size_t lines = m_subtitle.lines(width - textLeft - padding).size();
    const int textHeight = titleHeight + subtitleGap
        + static_cast<int>(std::min(lines, maxSubtitleLines)) * subtitleLineHeight;
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

void SidebarRow::paintSubtitle(QPainter& painter, int top)
{
    const int room = width() - textLeft - padding;
    const std::vector<WrappedText::Line>& lines = m_subtitle.lines(room);
    const bool isCut = lines.size() > maxSubtitleLines;
    for (std::size_t i = 0; i < std::min(lines.size(), maxSubtitleLines - (isCut ? 1 : 0)); ++i)
        m_subtitle.draw(painter, QPointF(textLeft, top + lines[i].top), i);
    if (!isCut)
        return;
    const WrappedText::Line& last = lines[maxSubtitleLines - 1];
    TextLine line;
    const QString rest = m_subtitle.text().mid(last.from);
    const QFont font = m_subtitle.font();
    line.set(QFontMetrics(font).elidedText(rest, Qt::ElideRight, room), font);
    line.draw(painter, QRectF(textLeft, top + last.top, room, subtitleLineHeight));
}

} // namespace zelta
