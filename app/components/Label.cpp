#include "app/components/Label.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QtMath>
#include <cmath>

namespace zelta {

namespace {

constexpr double unlimited = QWIDGETSIZE_MAX;

/// How far from the edge a text begins that leaves `room` free, in whole pixels of the screen, where it is
/// sharp.
double inset(double room, bool atEnd, bool centred, double scale)
{
    const double all = atEnd ? room : centred ? room / 2 : 0;
    return std::round(all * scale) / scale;
}

} // namespace

Label::Label(const QString& text, QWidget* parent)
    : Label(text, Theme::FontRole::body, Theme::Token::text, parent)
{ }

Label::Label(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFont(Theme::font(role));
    setToken(token);
    setText(text);
}

void Label::setRole(Theme::FontRole role)
{
    setFont(Theme::font(role));
}

void Label::setToken(Theme::Token token)
{
    m_token = token;
    applyToken();
}

void Label::setOpacity(double opacity)
{
    m_opacity = static_cast<float>(opacity);
    applyToken();
}

void Label::setSelectable()
{
    m_isSelectable = true;
    setCursor(Qt::IBeamCursor);
}

void Label::setWrapped(int pixels)
{
    m_lineHeight = pixels;
    m_wrapMode = QTextOption::WrapAtWordBoundaryOrAnywhere;
    setWordWrap(true);
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    updateGeometry();
}

QSize Label::sizeHint() const
{
    if (isQts())
        return QLabel::sizeHint();
    WrappedText& wrapped = measured();
    if (!wordWrap())
        return withMargins(wrapped.natural());
    // A short text takes one or two lines of what is a comfortable measure for a long one.
    const double measure = 80.0 * fontMetrics().averageCharWidth();
    const double natural = wrapped.natural().width();
    const double share = natural > 3 * measure ? 1 : natural > measure / 2 ? 0.5 : 0.25;
    return withMargins(wrapped.size(share * measure));
}

QSize Label::minimumSizeHint() const
{
    if (isQts())
        return QLabel::minimumSizeHint();
    const WrappedText& wrapped = measured();
    const QSizeF& line = wrapped.natural();
    return withMargins({wordWrap() ? wrapped.longestWord() : line.width(), line.height()});
}

int Label::heightForWidth(int width) const
{
    if (isQts() || !wordWrap())
        return QLabel::heightForWidth(width);
    const QMargins margins = contentsMargins();
    return withMargins(measured().size(width - margins.left() - margins.right())).height();
}

/// Qt keeps a whole document for what can be selected: made when the pointer comes, it takes no time at the
/// start.
bool Label::event(QEvent* event)
{
    const bool comes = event->type() == QEvent::Enter || event->type() == QEvent::MouseButtonPress
        || event->type() == QEvent::ContextMenu;
    if (comes && m_isSelectable && !isQts())
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    return QLabel::event(event);
}

void Label::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyToken();
}

void Label::paintEvent(QPaintEvent* event)
{
    if (isQts()) {
        QLabel::paintEvent(event);
        return;
    }
    const QRect room = contentsRect();
    const double width = wordWrap() ? room.width() : unlimited;
    WrappedText& wrapped = measured();
    const std::vector<WrappedText::Line>& lines = wrapped.lines(width);
    const double height = wrapped.size(width).height();
    const Qt::Alignment place = QStyle::visualAlignment(layoutDirection(), alignment());
    const double scale = devicePixelRatioF();
    const double top
        = inset(room.height() - height, place & Qt::AlignBottom, place & Qt::AlignVCenter, scale);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double left
            = inset(room.width() - lines[i].width, place & Qt::AlignRight, place & Qt::AlignHCenter, scale);
        wrapped.draw(painter, QPointF(room.topLeft()) + QPointF(left, top + lines[i].top), i);
    }
}

/// Text and secondary text have palette roles of their own and cost nothing; the inks are set on the label.
/// Each step is skipped when it changes nothing, because it announces a palette change that leads here again.
void Label::applyToken()
{
    const bool isSolid = m_opacity == 1;
    const bool isSecondary = isSolid && m_token == Theme::Token::textSecondary;
    const QPalette::ColorRole role = isSecondary ? QPalette::PlaceholderText : QPalette::WindowText;
    if (foregroundRole() != role)
        setForegroundRole(role);
    if (isSecondary || (isSolid && m_token == Theme::Token::text)) {
        if (testAttribute(Qt::WA_SetPalette))
            setPalette(QPalette());
        return;
    }
    QColor color = Theme::color(m_token);
    color.setAlphaF(m_opacity);
    if (palette().color(role).rgba() == color.rgba())
        return;
    QPalette own;
    own.setColor(role, color);
    setPalette(own);
}

bool Label::isQts() const
{
    return textInteractionFlags() & (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

WrappedText& Label::measured() const
{
    QString lines = text();
    for (const QChar end : {QChar(QChar::LineFeed), QChar(QChar::ParagraphSeparator)})
        lines.replace(end, QChar::LineSeparator);
    m_wrapped.set(lines, font(), wordWrap() ? m_wrapMode : QTextOption::ManualWrap, m_lineHeight);
    return m_wrapped;
}

QSize Label::withMargins(const QSizeF& text) const
{
    const QMargins margins = contentsMargins();
    return QSize(qCeil(text.width()), qCeil(text.height())).grownBy(margins);
}

} // namespace zelta
