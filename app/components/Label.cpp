#include "app/components/Label.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QTextOption>
#include <QtMath>
#include <algorithm>
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

void Label::setWrapped(int pixels)
{
    m_lineHeight = pixels;
    m_breaksWords = true;
    m_layout.setText({});
    m_heights.clear();
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
    if (!wordWrap())
        return withMargins(onOneLine());
    // A short text takes one or two lines of what is a comfortable measure for a long one.
    const double measure = 80.0 * fontMetrics().averageCharWidth();
    const int line = fontMetrics().lineSpacing();
    QSizeF size = broken(measure);
    if (size.height() < 4 * line && size.width() > measure / 2)
        size = broken(measure / 2);
    if (size.height() < 2 * line && size.width() > measure / 4)
        size = broken(measure / 4);
    return withMargins(size);
}

QSize Label::minimumSizeHint() const
{
    if (isQts())
        return QLabel::minimumSizeHint();
    const QSizeF& line = onOneLine();
    return withMargins({wordWrap() ? m_longestWord : line.width(), line.height()});
}

int Label::heightForWidth(int width) const
{
    if (isQts() || !wordWrap())
        return QLabel::heightForWidth(width);
    onOneLine(); // forgets the heights of another text
    if (const auto known = m_heights.constFind(width); known != m_heights.cend())
        return *known;
    constexpr qsizetype enough = 16; // while a window is dragged wider, every width is a new one
    if (m_heights.size() == enough)
        m_heights.clear();
    const QMargins margins = contentsMargins();
    const int height = withMargins(broken(width - margins.left() - margins.right())).height();
    m_heights.insert(width, height);
    return height;
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
    const QSizeF size = broken(width);
    // What fits on its own lines may have been broken for a narrower place since.
    if (onOneLine().width() <= width && m_brokenFor < m_natural.width())
        breakLines(unlimited);
    const Qt::Alignment place = QStyle::visualAlignment(layoutDirection(), alignment());
    const double scale = devicePixelRatioF();
    const double top
        = inset(room.height() - size.height(), place & Qt::AlignBottom, place & Qt::AlignVCenter, scale);
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    for (int i = 0; i < m_layout.lineCount(); ++i) {
        const QTextLine line = m_layout.lineAt(i);
        const double left = inset(room.width() - line.naturalTextWidth(), place & Qt::AlignRight,
                                  place & Qt::AlignHCenter, scale);
        line.draw(&painter, QPointF(room.topLeft()) + QPointF(left, top));
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

/// What the text takes where there is room enough.
const QSizeF& Label::onOneLine() const
{
    QString lines = text();
    lines.replace(QLatin1Char('\n'), QChar::LineSeparator);
    if (m_layout.text() != lines || m_layout.font() != font()) {
        m_layout.setCacheEnabled(true);
        m_layout.setText(lines);
        m_layout.setFont(font());
        breakLines(unlimited);
        m_natural = m_size;
        m_longestWord = m_layout.minimumWidth();
        m_heights.clear();
    }
    return m_natural;
}

/// What the text takes in lines of at most that width.
const QSizeF& Label::broken(double width) const
{
    if (onOneLine().width() <= width)
        return m_natural;
    if (width != m_brokenFor)
        breakLines(width);
    return m_size;
}

void Label::breakLines(double width) const
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(!wordWrap()         ? QTextOption::ManualWrap
                           : m_breaksWords ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                           : QTextOption::WordWrap);
    m_layout.setTextOption(option);
    m_brokenFor = width;
    m_size = {0, 0};
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(width);
        const double height = m_lineHeight > 0 ? m_lineHeight : line.height();
        line.setPosition(QPointF(0, m_size.height() + (height - line.height()) / 2));
        m_size = {std::max(m_size.width(), line.naturalTextWidth()), m_size.height() + height};
    }
    m_layout.endLayout();
}

QSize Label::withMargins(const QSizeF& text) const
{
    const QMargins margins = contentsMargins();
    return QSize(qCeil(text.width()), qCeil(text.height())).grownBy(margins);
}

} // namespace zelta
