#include "app/look/Style.h"

#include "app/look/StyleParts.h"
#include "app/look/SymbolIconEngine.h"
#include "app/look/Theme.h"

#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTextLayout>
#include <algorithm>

namespace zelta {

using Theme::Token;

namespace {

/// How far above its place Qt's line edit draws a text in which a taller font stands beside the field's own:
/// it takes the difference of the ascents off twice.
int raisedBy(const QLineEdit& field)
{
    constexpr qsizetype enough = 200; // to meet each font
    constexpr char16_t firstNotLatin = 0x250;
    const QString text = field.text().left(enough);
    if (std::ranges::all_of(text, [](QChar character) { return character.unicode() < firstNotLatin; }))
        return 0;
    QTextLayout layout(text, field.font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return std::max(0, qRound(line.ascent() - QFontMetricsF(field.font()).ascent()));
}

} // namespace

Style::Style()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{ }

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_MenuPanelWidth:
    case PM_MenuDesktopFrameWidth:
        return 0;
    case PM_MenuBarHMargin:
        return 6;
    case PM_MenuBarVMargin:
        return 4;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return StyleParts::menuPadding;
    case PM_ScrollBarExtent:
        return Metric::scrollBarWidth;
    case PM_ToolTipLabelFrameWidth:
        return 5;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_Menu_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returnData); mask && option)
            mask->region = StyleParts::popupMask(option->rect, Metric::rowRadius);
        return 1;
    case SH_ToolTip_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returnData); mask && option)
            mask->region = StyleParts::popupMask(option->rect, Metric::tipRadius);
        return 1;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
    case SH_Widget_Animation_Duration:
    case SH_Menu_SubMenuPopupDelay:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const
{
    switch (type) {
    case CT_MenuBarItem:
        return {contents.width() + 2 * StyleParts::menuBarItemPadding,
                Metric::menuBarHeight - 2 * pixelMetric(PM_MenuBarVMargin, option, widget)};
    case CT_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            constexpr int separatorHeight = 11;
            if (item->menuItemType == QStyleOptionMenuItem::Separator)
                return {contents.width(), separatorHeight};
            // The menu itself adds the shortcuts' width.
            const int gap = item->text.contains(QLatin1Char('\t')) ? StyleParts::shortcutGap : 0;
            return {contents.width() + gap + 2 * StyleParts::menuItemPadding, Metric::menuItemHeight};
        }
        return contents;
    case CT_LineEdit:
        return {contents.width(), Metric::fieldHeight};
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl subControl,
                            const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !slider)
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    const bool vertical = slider->orientation == Qt::Vertical;
    const QRect handle = StyleParts::scrollHandle(*slider);
    QRect area = option->rect;
    switch (subControl) {
    case SC_ScrollBarSlider:
        return handle;
    case SC_ScrollBarGroove:
        return area;
    case SC_ScrollBarSubPage:
        vertical ? area.setBottom(handle.top() - 1) : area.setRight(handle.left() - 1);
        return area;
    case SC_ScrollBarAddPage:
        vertical ? area.setTop(handle.bottom() + 1) : area.setLeft(handle.right() + 1);
        return area;
    default:
        return {}; // no arrow buttons
    }
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    constexpr int fieldPadding = 9; // Qt's line edit adds 2 of its own
    constexpr int narrowPadding = 2;
    constexpr int narrowField = 80;
    if (element == SE_LineEditContents) {
        const int padding = option->rect.width() < narrowField ? narrowPadding : fieldPadding;
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        const int lower = field == nullptr ? 0 : raisedBy(*field);
        return option->rect.adjusted(padding, 1, -padding, -1).translated(0, lower);
    }
    // The whole control is what is pressed, and what assistive technology frames.
    if (element == SE_CheckBoxClickRect || element == SE_RadioButtonClickRect)
        return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

QIcon Style::standardIcon(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const
{
    // Every menu bar asks for it at once, and for Qt's own picture the readers of all image formats are
    // loaded.
    if (pixmap == SP_ToolBarHorizontalExtensionButton)
        return symbolIcon("chevron-right", Token::textSecondary);
    return QProxyStyle::standardIcon(pixmap, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const
{
    switch (element) {
    case PE_PanelMenu:
        StyleParts::drawPopup(*painter, option->rect);
        return;
    case PE_PanelTipLabel:
        StyleParts::drawTip(*painter, option->rect);
        return;
    case PE_PanelLineEdit:
        // A frameless field draws on what is below it.
        if (const auto* field = qobject_cast<const QLineEdit*>(widget); !field || field->hasFrame())
            StyleParts::drawField(*painter, option->rect, option->state.testFlag(State_HasFocus));
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const
{
    switch (element) {
    case CE_MenuBarEmptyArea:
        painter->fillRect(option->rect, Theme::color(Token::chrome));
        return;
    case CE_MenuBarItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            StyleParts::drawMenuBarItem(*painter, *item);
            return;
        }
        break;
    case CE_MenuItem:
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            StyleParts::drawMenuItem(*painter, *item);
            return;
        }
        break;
    case CE_MenuEmptyArea:
        return;
    case CE_Splitter:
        painter->fillRect(option->rect, Theme::color(Token::outline));
        return;
    case CE_ShapedFrame:
        if (widget && widget->inherits("QComboBoxPrivateContainer")) {
            StyleParts::drawPopup(*painter, option->rect);
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const
{
    if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        control == CC_ScrollBar && slider)
        StyleParts::drawScrollBar(*painter, *slider);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void Style::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget))
        widget->setMinimumWidth(StyleParts::menuWidth);
    if (widget->inherits("QComboBoxPrivateContainer")) {
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::transparent);
        widget->setPalette(palette);
    }
}

} // namespace zelta
