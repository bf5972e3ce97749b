#include "app/components/Button.h"

#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/model/Text.h"

#include <QDialog>
#include <QKeyEvent>
#include <QPainter>

namespace zelta {

Button::Button(const QString& label, QWidget* parent)
    : Button(label, std::string_view(), parent)
{ }

Button::Button(const QString& label, std::string_view symbol, QWidget* parent)
    : QPushButton(parent)
    , m_symbol(symbol)
{
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFont(Theme::font(Theme::FontRole::control));
    setLabel(label);
}

QString Button::label() const
{
    return m_label;
}

void Button::setLabel(const QString& label)
{
    m_label = label;
    setText(withoutMnemonic(shownLabel()));
    updateGeometry();
}

void Button::setSymbol(std::string_view symbol)
{
    m_symbol = symbol;
    updateGeometry();
    update();
}

void Button::setLook(Look look)
{
    m_look = look;
    update();
}

void Button::setSize(Size size)
{
    m_size = size;
    setFont(Theme::font(size == Size::small ? Theme::FontRole::captionMedium : Theme::FontRole::control));
    updateGeometry();
}

void Button::setHeight(int pixels)
{
    m_height = pixels;
    updateGeometry();
}

void Button::setInk(Theme::Token token)
{
    setInk([token] { return Theme::color(token); });
}

void Button::setInk(std::function<QColor()> ink)
{
    m_ink = std::move(ink);
    update();
}

void Button::showConfirmation(const QString& label)
{
    m_confirmation = label;
    setLabel(m_label);
    update();
}

void Button::clearConfirmation()
{
    if (!m_confirmation)
        return;
    m_confirmation.reset();
    setLabel(m_label);
    update();
}

/// The width of its own label, also while it confirms, so that its neighbours stay where they are.
QSize Button::sizeHint() const
{
    const int own = m_size == Size::small ? Metric::smallButtonHeight : Metric::buttonHeight;
    m_line.set(m_label, font());
    return {2 * padding() + contentWidth(m_line, m_symbol), m_height.value_or(own)};
}

/// Enter presses as Space does, once however long it is held; in a dialog it is the dialog's.
void Button::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || qobject_cast<QDialog*>(window()))
        QPushButton::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        click();
}

void Button::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintSurface(painter);
    TextLine& line = m_confirmation ? m_confirmationLine : m_line;
    line.set(shownLabel(), font());
    const QColor ink = inkColor();
    double x = (width() - contentWidth(line, shownSymbol())) / 2.0;
    if (!shownSymbol().empty()) {
        const QRectF box(x, 0, symbolSize(), height());
        Symbols::draw(painter, box, shownSymbol(), symbolSize(), ink);
        x += symbolSize() + gap();
    }
    painter.setPen(ink);
    line.draw(painter, QRectF(x, 0, width() - x, height()));
}

void Button::paintSurface(QPainter& painter) const
{
    const QRectF area = rect();
    const bool focused = Surface::showsFocus(*this);
    if (m_look == Look::destructive)
        Surface::draw(painter, area, cornerRadius(), Theme::color(Theme::Token::dangerFill));
    else if (m_look == Look::bordered)
        Surface::draw(painter, area, cornerRadius(), Theme::color(Theme::Token::button),
                      Theme::color(Theme::Token::buttonOutline));
    Surface::drawPress(painter, area, cornerRadius(), Surface::pressOf(*this));
    if (focused && m_look == Look::destructive)
        Surface::drawOutline(painter, area.adjusted(2, 2, -2, -2), cornerRadius() - 2,
                             Theme::color(Theme::Token::onAccent), 2);
    else if (focused)
        Surface::drawFocusRing(painter, area, cornerRadius());
}

QColor Button::inkColor() const
{
    if (!isEnabled())
        return Theme::color(Theme::Token::textOff);
    if (m_confirmation)
        return Theme::color(Theme::Token::upInk);
    if (m_ink)
        return m_ink();
    return Theme::color(m_look == Look::destructive ? Theme::Token::onAccent : Theme::Token::text);
}

bool Button::isConfirming() const
{
    return m_confirmation.has_value();
}

Button::Look Button::look() const
{
    return m_look;
}

double Button::cornerRadius() const
{
    return m_size == Size::small ? Metric::smallRadius : Metric::controlRadius;
}

std::string_view Button::shownSymbol() const
{
    return m_confirmation ? std::string_view("checkmark") : std::string_view(m_symbol);
}

QString Button::shownLabel() const
{
    return m_confirmation.value_or(m_label);
}

int Button::contentWidth(const TextLine& line, std::string_view symbol) const
{
    return line.width() + (symbol.empty() ? 0 : symbolSize() + gap());
}

int Button::padding() const
{
    return m_size == Size::small ? 11 : 13; // the line's pixel included
}

int Button::gap() const
{
    return m_size == Size::small ? 6 : 7;
}

int Button::symbolSize() const
{
    return m_size == Size::small ? 14 : 16;
}

} // namespace zelta
