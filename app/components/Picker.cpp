#include "app/components/Picker.h"

#include "app/look/StyleParts.h"
#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"

#include <QAbstractItemView>
#include <QLayout>
#include <QPainter>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <QtMath>
#include <algorithm>

namespace zelta {

namespace {

constexpr int secondRole = Qt::UserRole + 1;
constexpr int itemHeight = 32;
constexpr int itemPadding = 10;
constexpr int itemMargin = 5;

/// Paints an entry of the open list the way menu items look.
class EntryDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), itemHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        const QRectF area = QRectF(option.rect).adjusted(itemMargin, 0, -itemMargin, 0);
        if (chosen)
            Surface::draw(*painter, area, Metric::tipRadius, Theme::color(Theme::Token::accentFill));
        const QRectF line = area.adjusted(itemPadding, 0, -itemPadding, 0);
        painter->setPen(Theme::color(chosen ? Theme::Token::onAccent : Theme::Token::text));
        painter->setFont(Theme::font(Theme::FontRole::menu));
        painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, index.data(Qt::DisplayRole).toString());
        painter->setPen(Theme::color(chosen ? Theme::Token::onAccent : Theme::Token::textSecondary));
        painter->setFont(Theme::font(Theme::FontRole::caption));
        painter->drawText(line, Qt::AlignRight | Qt::AlignVCenter, index.data(secondRole).toString());
    }
};

} // namespace

Picker::Picker(const QString& name, QWidget* parent)
    : QComboBox(parent)
{
    setAccessibleName(name);
    setFont(Theme::font(Theme::FontRole::body));
    setFixedHeight(Metric::fieldHeight);
    setMaxVisibleItems(16);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::currentIndexChanged, this,
            [this] { setAccessibleDescription(currentData(secondRole).toString()); });
}

void Picker::addEntry(const QString& name, const QString& second, const QString& value)
{
    addItem(name, value);
    if (second.isEmpty())
        return;
    setItemData(count() - 1, second, secondRole);
    setItemData(count() - 1, second, Qt::AccessibleDescriptionRole);
    if (currentIndex() == count() - 1)
        setAccessibleDescription(second);
}

QSize Picker::sizeHint() const
{
    return {QComboBox::sizeHint().width(), Metric::fieldHeight};
}

/// The longest entry shows in full. Qt would measure each of them once more to say the same.
QSize Picker::minimumSizeHint() const
{
    return sizeHint();
}

/// Qt's list, a little apart from the field, with room above and below its entries, cut to the shape of a
/// menu.
void Picker::showPopup()
{
    constexpr int distance = 4;
    if (dynamic_cast<EntryDelegate*>(itemDelegate()) == nullptr)
        setItemDelegate(new EntryDelegate(this));
    QComboBox::showPopup();
    QWidget* popup = view()->window();
    popup->layout()->setContentsMargins(0, itemMargin, 0, itemMargin);
    QRect area = popup->geometry();
    if (area.top() >= mapToGlobal(rect().bottomLeft()).y())
        area.adjust(0, distance, 0, distance + 2 * itemMargin);
    else
        area.adjust(0, -distance - 2 * itemMargin, 0, -distance);
    const QRect room = screen()->availableGeometry();
    area.moveTop(std::clamp(area.top(), room.top(), std::max(room.top(), room.bottom() + 1 - area.height())));
    popup->setGeometry(area);
    popup->setMask(StyleParts::popupMask(popup->rect(), Metric::rowRadius));
}

/// Qt would make the list only to give it the new font; a picker that is never opened does without one.
void Picker::changeEvent(QEvent* event)
{
    if (event->type() != QEvent::FontChange || findChild<QAbstractItemView*>() != nullptr) {
        QComboBox::changeEvent(event);
        return;
    }
    updateGeometry();
    update();
}

/// Scrolling the page must not change a unit that happens to pass below the pointer.
void Picker::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void Picker::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int left = 13;
    constexpr int right = 11;
    constexpr int gap = 8;
    constexpr int symbolSize = 14;
    QPainter painter(this);
    const QRectF area = rect();
    Surface::draw(painter, area, Metric::controlRadius, Theme::color(Theme::Token::button),
                  Theme::color(Theme::Token::fieldOutline));
    if (isEnabled() && underMouse())
        Surface::drawPress(painter, area, Metric::controlRadius, Surface::Press::hovered);
    if (hasFocus())
        Surface::drawFocusRing(painter, area, Metric::controlRadius);

    QRectF line = area.adjusted(left, 0, -right, 0);
    const QColor quiet = Theme::color(isEnabled() ? Theme::Token::textSecondary : Theme::Token::textOff);
    const QRectF arrow(line.right() - symbolSize, line.top(), symbolSize, line.height());
    Symbols::draw(painter, arrow, "chevron-up-down", symbolSize, quiet);
    line.setRight(arrow.left() - gap);
    const QString second = currentData(secondRole).toString();
    if (!second.isEmpty()) {
        painter.setFont(Theme::font(Theme::FontRole::menu));
        painter.setPen(quiet);
        painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, second);
        line.setRight(line.right() - QFontMetricsF(painter.font()).horizontalAdvance(second) - gap);
    }
    painter.setFont(font());
    painter.setPen(isEnabled() ? Theme::color(Theme::Token::text) : quiet);
    // One lower: on one baseline with a label beside it.
    painter.drawText(line.translated(0, 1), Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(currentText(), Qt::ElideRight, qFloor(line.width())));
}

} // namespace zelta
