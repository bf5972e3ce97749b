#include "app/pages/NoteListDelegate.h"

#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/pages/NoteListModel.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace zelta {

namespace {

constexpr int firstHeadingHeight = 26;
constexpr int headingHeight = 30;
constexpr int headingTextHeight = 15;
constexpr int headingBelow = 5;
constexpr int rowHeight = 70;
constexpr int textMargin = 11;
// Tops and heights of the three lines of a row.
constexpr int titleTop = 9;
constexpr int titleHeight = 17;
constexpr int previewTop = 28;
constexpr int previewHeight = 16;
constexpr int dateTop = 47;
constexpr int dateHeight = 14;

QColor blended(QColor color, qreal opacity)
{
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

/// A title may be a whole paragraph: at first only as much of it is measured as usual letters need to fill
/// the line.
QString elided(const QString& text, const QFontMetrics& metrics, int width)
{
    const int narrow = std::max(1, metrics.averageCharWidth() * 2 / 3);
    const QString start = text.left(width / narrow);
    QString shown = metrics.elidedText(start, Qt::ElideRight, width);
    const bool isCut = shown != start || start.size() == text.size();
    return isCut ? shown : metrics.elidedText(text, Qt::ElideRight, width);
}

void drawLine(QPainter& painter, const QRect& area, const QString& text, Theme::FontRole role,
              Theme::Token token, Qt::LayoutDirection direction, Qt::Alignment alignment)
{
    QString shown = text;
    shown.remove(QChar(0x9c)); // behind this one Qt expects a shorter text to show instead
    painter.setFont(Theme::font(role));
    painter.setPen(Theme::color(token));
    painter.setLayoutDirection(direction);
    // Not clipped: the letters of many scripts are taller than a Latin line.
    painter.drawText(area,
                     static_cast<int>(alignment | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine
                         | Qt::TextDontClip,
                     elided(shown, painter.fontMetrics(), area.width()));
}

} // namespace

QSize NoteListDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const
{
    if (!index.data(NoteListModel::isHeadingRole).toBool())
        return {0, rowHeight};
    return {0, index.row() == 0 ? firstHeadingHeight : headingHeight};
}

void NoteListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    painter->save();
    if (index.data(NoteListModel::isHeadingRole).toBool())
        paintHeading(*painter, option.rect, index);
    else
        paintNote(*painter, option.rect, option, index);
    painter->restore();
}

void NoteListDelegate::paintHeading(QPainter& painter, const QRect& area, const QModelIndex& index)
{
    const QRect line(area.left() + textMargin, area.bottom() + 1 - headingBelow - headingTextHeight,
                     area.width() - 2 * textMargin, headingTextHeight);
    drawLine(painter, line, index.data().toString(), Theme::FontRole::sectionLabel,
             Theme::Token::textSecondary, Qt::LeftToRight, Qt::AlignLeft);
}

void NoteListDelegate::paintNote(QPainter& painter, const QRect& area, const QStyleOptionViewItem& option,
                                 const QModelIndex& index)
{
    constexpr qreal selectedFill = 0.14;
    constexpr qreal selectedLine = 0.34;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    if (isSelected) {
        const QColor tint = Theme::tint(Module::notes);
        Surface::draw(painter, area, Metric::controlRadius, blended(tint, selectedFill),
                      blended(tint, selectedLine));
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
        Surface::drawPress(painter, area, Metric::controlRadius, Surface::Press::hovered);
    }
    if (isSelected && option.widget != nullptr && Surface::showsFocus(*option.widget))
        Surface::drawFocusRing(painter, area, Metric::controlRadius);

    const auto direction = [&index](NoteListModel::Role isRightToLeft) {
        return index.data(isRightToLeft).toBool() ? Qt::RightToLeft : Qt::LeftToRight;
    };
    const Qt::LayoutDirection titleDirection = direction(NoteListModel::isRightToLeftRole);
    const Qt::Alignment side = titleDirection == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    const auto line = [&area](int top, int height) {
        return QRect(area.left() + textMargin, area.top() + top, area.width() - 2 * textMargin, height);
    };
    drawLine(painter, line(titleTop, titleHeight), index.data().toString(), Theme::FontRole::rowTitle,
             Theme::Token::text, titleDirection, side);
    drawLine(painter, line(previewTop, previewHeight), index.data(NoteListModel::previewRole).toString(),
             Theme::FontRole::menu, Theme::Token::textSecondary,
             direction(NoteListModel::isPreviewRightToLeftRole), side);
    drawLine(painter, line(dateTop, dateHeight), index.data(NoteListModel::dateRole).toString(),
             Theme::FontRole::note, Theme::Token::textSecondary, Qt::LeftToRight, side);
}

} // namespace zelta
