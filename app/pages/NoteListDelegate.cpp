#include "app/pages/NoteListDelegate.h"

#include "app/look/Surface.h"
#include "app/look/TextLine.h"
#include "app/look/Theme.h"
#include "app/pages/NoteListModel.h"

#include <QPainter>
#include <QTextLayout>
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

/// One line, as much of it as there is room for. Shaping is what is slow about text: it is done once, and of
/// a text that may be a whole paragraph only for what usual letters need to fill the line.
class FittedLine
{
public:
    FittedLine(const QString& text, const QFont& font, Qt::LayoutDirection direction, int width)
    {
        QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
        option.setTextDirection(direction);
        option.setWrapMode(QTextOption::WrapAnywhere);
        m_layout.setFont(font);
        m_layout.setTextOption(option);
        const int narrow = std::max(1, font.pixelSize() * 2 / 5);
        const QString start = text.left(width / narrow);
        if (fit(start, width) && start.size() < text.size())
            fit(text, width);
    }

    void draw(QPainter& painter, const QRect& area, Qt::Alignment side) const
    {
        const QTextLine line = m_layout.lineAt(0);
        const double text = line.horizontalAdvance();
        const double mark = m_ellipsis.advance();
        const double left = side & Qt::AlignRight ? area.right() + 1 - text - mark : area.left();
        const bool isMarkFirst = m_layout.textOption().textDirection() == Qt::RightToLeft;
        const double top = area.top() + (area.height() - line.height()) / 2;
        line.draw(&painter, QPointF(isMarkFirst ? left + mark : left, top));
        m_ellipsis.draw(painter, isMarkFirst ? left : left + text, top + line.ascent());
    }

private:
    /// Whether all of the text fits; otherwise it is cut, and there is an ellipsis.
    bool fit(const QString& text, int width)
    {
        m_layout.setText(text);
        m_layout.beginLayout();
        QTextLine line = m_layout.createLine();
        line.setLineWidth(width);
        const bool fits = line.textLength() == text.size();
        if (!fits) {
            m_ellipsis.set(QStringLiteral("…"), m_layout.font());
            line.setLineWidth(width - m_ellipsis.advance());
        }
        m_layout.endLayout();
        return fits;
    }

    QTextLayout m_layout;
    TextLine m_ellipsis;
};

void drawLine(QPainter& painter, const QRect& area, QString text, Theme::FontRole role, Theme::Token token,
              Qt::LayoutDirection direction, Qt::Alignment side)
{
    text.replace(QChar::Tabulation, QChar::Space);
    text.remove(QChar::SoftHyphen); // a line that ends with one shows it
    painter.setPen(Theme::color(token));
    FittedLine(text, Theme::font(role), direction, area.width()).draw(painter, area, side);
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
