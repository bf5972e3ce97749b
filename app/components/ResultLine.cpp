#include "app/components/ResultLine.h"

#include "app/components/Label.h"
#include "app/look/Surface.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace zelta {

namespace {

constexpr int gap = 12;
constexpr int symbolSize = 14;
constexpr int rowSpacing = 2;
constexpr int dragDistance = 4;

int leastHeight(Weight weight)
{
    switch (weight) {
    case Weight::headline:
        return 52;
    case Weight::primary:
        return 40;
    case Weight::detail:
        return 32;
    }
    return 0;
}

Theme::FontRole valueRole(Weight weight)
{
    switch (weight) {
    case Weight::headline:
        return Theme::FontRole::headline;
    case Weight::primary:
        return Theme::FontRole::value;
    case Weight::detail:
        return Theme::FontRole::body;
    }
    return Theme::FontRole::body;
}

Theme::Token valueToken(const ResultRow& row)
{
    if (row.tone == Tone::up)
        return Theme::Token::upInk;
    if (row.tone == Tone::down)
        return Theme::Token::downInk;
    return row.weight == Weight::headline ? Theme::Token::accentInk : Theme::Token::text;
}

/// Texts on one baseline: the room above and below it that they need together.
struct Line
{
    int ascent = 0;
    int descent = 0;

    void add(int textAscent, int textDescent)
    {
        ascent = std::max(ascent, textAscent);
        descent = std::max(descent, textDescent);
    }
    [[nodiscard]] int height() const { return ascent + descent; }
};

/// The value as text that can be selected. Shaping it in a document is slow, so the line itself draws it
/// until a part of it is selected.
class SelectableValue final : public Label
{
public:
    using Label::Label;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (hasSelectedText())
            Label::paintEvent(event);
    }
};

bool isTab(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

} // namespace

void ResultLine::Text::set(const QString& text, const QFont& font)
{
    if (font != line.font() || ascent == 0) {
        const QFontMetrics metrics(font);
        ascent = metrics.ascent();
        descent = metrics.descent();
    }
    line.set(text, font);
}

QString ResultLine::Text::elided(Qt::TextElideMode mode, int room) const
{
    return width() <= room ? text() : QFontMetrics(line.font()).elidedText(text(), mode, room);
}

void ResultLine::Text::draw(QPainter& painter, const QRect& place, Qt::TextElideMode mode,
                            Qt::Alignment side) const
{
    std::optional<TextLine> cut;
    if (width() > place.width())
        cut.emplace().set(elided(mode, place.width()), line.font());
    const TextLine& shown = cut ? *cut : line;
    const double spare = std::max(0.0, place.width() - shown.advance());
    shown.draw(painter, place.left() + (side.testFlag(Qt::AlignRight) ? spare : 0), place.top() + ascent);
}

ResultLine::ResultLine(QWidget* parent)
    : QAbstractButton(parent)
    , m_valueLabel(new SelectableValue(QString(), this))
{
    m_valueLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_valueLabel->setFocusPolicy(Qt::NoFocus);
    m_valueLabel->setCursor(Qt::PointingHandCursor);
    m_valueLabel->installEventFilter(this);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    setToolTipDuration(Metric::lastingTip);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ResultLine::setRow(const ResultRow& row)
{
    if (row == m_row)
        return;
    m_row = row;
    const bool headline = row.weight == Weight::headline;
    const Theme::FontRole role = isReference() ? Theme::FontRole::body : valueRole(row.weight);
    m_label.set(toQt(row.label), Theme::font(headline ? Theme::FontRole::bodyBold : Theme::FontRole::body));
    m_note.set(row.note ? toQt(*row.note) : QString(), Theme::font(Theme::FontRole::caption));
    m_value.set(toQt(row.value), Theme::font(role));
    if (m_valueLabel->font() != m_value.line.font())
        m_valueLabel->setRole(role);
    m_valueLabel->setToken(isReference() ? Theme::Token::text : valueToken(row));

    QString name = isReference() ? m_value.text() : m_label.text() + QStringLiteral(": ") + m_value.text();
    if (row.note)
        name += QStringLiteral(" (") + m_note.text() + QStringLiteral(")");
    setAccessibleName(name);
    setToolTip(QStringLiteral("Click to copy “%1”").arg(m_value.text()));
    place();
    update();
}

void ResultLine::setMarked(bool marked)
{
    if (m_marked == marked)
        return;
    m_marked = marked;
    setAccessibleDescription(marked ? QStringLiteral("Copied") : QString()); // or else the hover help
    update();
}

bool ResultLine::isHighlighted() const
{
    return underMouse() || Surface::showsFocus(*this);
}

QSize ResultLine::sizeHint() const
{
    const int texts = m_label.width() + m_note.width() + m_value.width();
    return {texts + 3 * gap + symbolSize + 2 * bleed, leastHeight(m_row.weight)};
}

QSize ResultLine::minimumSizeHint() const
{
    return {0, leastHeight(m_row.weight)};
}

int ResultLine::heightForWidth(int width) const
{
    return arrange(width).height;
}

/// Everything on one line where it fits; else the note below the value; else the value below the label.
ResultLine::Arrangement ResultLine::arrange(int width) const
{
    const int left = bleed;
    const int right = std::max(left, width - bleed - symbolSize - gap);
    const int room = right - left;
    const int labelWidth = std::min(room, m_label.width());
    const int noteWidth = std::min(room, m_note.width());
    const int valueWidth = std::min(room, m_value.width());
    const bool hasLabel = !m_label.text().isEmpty();
    const bool hasNote = !m_note.text().isEmpty();
    const int labelTaken = hasLabel ? labelWidth + gap : 0;
    const int noteTaken = hasNote ? noteWidth + gap : 0;

    const std::size_t valueLine = labelTaken + valueWidth <= room ? 0 : 1;
    const bool noteFits = (valueLine == 0 ? labelTaken : 0) + noteTaken + valueWidth <= room;
    const std::size_t noteLine = noteFits ? valueLine : valueLine + 1;

    std::array<Line, 3> lines;
    if (hasLabel)
        lines.at(0).add(m_label.ascent, m_label.descent);
    lines.at(valueLine).add(m_value.ascent, m_value.descent);
    if (hasNote)
        lines.at(noteLine).add(m_note.ascent, m_note.descent);
    int extra = 0;
    for (std::size_t i = 1; i < lines.size(); ++i)
        extra += lines.at(i).height() > 0 ? lines.at(i).height() + rowSpacing : 0;

    Arrangement places;
    places.height = leastHeight(m_row.weight) + extra;
    std::array<int, 3> baselines {};
    int y = (places.height - lines.at(0).height() - extra) / 2;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        baselines.at(i) = y + lines.at(i).ascent;
        y += lines.at(i).height() + rowSpacing;
    }
    const auto boxAt = [&](int x, std::size_t line, int boxWidth, const Text& text) {
        return QRect(x, baselines.at(line) - text.ascent, boxWidth, text.ascent + text.descent);
    };
    const int valueLeft = isReference() ? left : right - valueWidth;
    places.label = boxAt(left, 0, labelWidth, m_label);
    places.value = boxAt(valueLeft, valueLine, valueWidth, m_value);
    places.note = boxAt((noteFits ? valueLeft - gap : right) - noteWidth, noteLine, noteWidth, m_note);
    return places;
}

void ResultLine::place()
{
    const int oldHeight = m_places.height;
    m_places = arrange(width());
    m_valueLabel->setAlignment((isReference() ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    m_valueLabel->setGeometry(m_places.value);
    const QString shown = m_value.elided(Qt::ElideMiddle, m_places.value.width());
    m_valueLabel->setText(shown);
    // A selection would be copied with its ellipsis; a click copies all of it.
    m_valueLabel->setAttribute(Qt::WA_TransparentForMouseEvents, shown != m_value.text());
    if (m_places.height != oldHeight)
        updateGeometry();
}

/// An elided label or note shows itself in full; elsewhere the hover help says what a click does.
bool ResultLine::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const auto showElided = [&](const Text& text, const QRect& place) {
            if (!place.contains(help->pos()) || text.width() <= place.width())
                return false;
            QToolTip::showText(help->globalPos(), text.text(), this, place, Metric::lastingTip);
            return true;
        };
        if (showElided(m_label, m_places.label) || showElided(m_note, m_places.note))
            return true;
    }
    return QAbstractButton::event(event);
}

/// The value is selectable text, which keeps mouse events to itself: only a real drag is its own.
bool ResultLine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_valueLabel)
        return QAbstractButton::eventFilter(watched, event);
    if (filterValueMouse(event))
        return true;
    if (event->type() == QEvent::KeyPress && isTab(*static_cast<QKeyEvent*>(event)))
        setFocus(); // Tab goes on from the line: its value has no place in that order
    return QAbstractButton::eventFilter(watched, event);
}

bool ResultLine::filterValueMouse(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick: // the second of two quick clicks copies as well
    case QEvent::MouseButtonPress: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        m_pressedAt = mouse->globalPosition().toPoint();
        return event->type() == QEvent::MouseButtonDblClick;
    }
    case QEvent::MouseMove: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (!(mouse->buttons() & Qt::LeftButton) || !isDrag(*mouse))
            return true;
        if (!m_valueLabel->hasFocus()) // so that Ctrl+C copies the selection
            m_valueLabel->setFocus(Qt::MouseFocusReason);
        return false;
    }
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && !isDrag(*mouse)) {
            dropSelection();
            click();
        }
        return false;
    }
    default:
        return false;
    }
}

bool ResultLine::isDrag(const QMouseEvent& event) const
{
    return (event.globalPosition().toPoint() - m_pressedAt).manhattanLength() >= dragDistance;
}

void ResultLine::mousePressEvent(QMouseEvent* event)
{
    m_pressedAt = event->globalPosition().toPoint();
    QAbstractButton::mousePressEvent(event);
}

void ResultLine::mouseReleaseEvent(QMouseEvent* event)
{
    if (isDown() && isDrag(*event))
        setDown(false);
    if (isDown())
        dropSelection();
    QAbstractButton::mouseReleaseEvent(event);
}

/// What was selected in a value before is not what Ctrl+C should copy after a click here.
void ResultLine::dropSelection()
{
    if (qobject_cast<QLabel*>(window()->focusWidget()))
        setFocus(Qt::MouseFocusReason);
}

void ResultLine::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ResultLine::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    Q_EMIT highlightChanged();
}

void ResultLine::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    Q_EMIT highlightChanged();
}

void ResultLine::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    Q_EMIT highlightChanged();
}

void ResultLine::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    Q_EMIT highlightChanged();
}

void ResultLine::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    place();
}

void ResultLine::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const bool hovered = underMouse();
    Surface::drawPress(painter, rect(), Metric::controlRadius,
                       hovered ? Surface::Press::hovered : Surface::Press::none);
    painter.setPen(
        Theme::color(m_row.weight == Weight::detail ? Theme::Token::textSecondary : Theme::Token::text));
    m_label.draw(painter, m_places.label, Qt::ElideMiddle);
    painter.setPen(Theme::color(Theme::Token::textSecondary));
    m_note.draw(painter, m_places.note, Qt::ElideRight);
    if (!m_valueLabel->hasSelectedText()) {
        painter.setPen(m_valueLabel->palette().color(m_valueLabel->foregroundRole()));
        m_value.draw(painter, m_places.value, Qt::ElideMiddle, m_valueLabel->alignment());
    }

    const QRect symbol(width() - bleed - symbolSize, 0, symbolSize, height());
    if (m_marked)
        Symbols::draw(painter, symbol, "checkmark", symbolSize, Theme::color(Theme::Token::upInk));
    else
        Symbols::draw(painter, symbol, "doc.on.doc", symbolSize,
                      Theme::color(hovered ? Theme::Token::text : Theme::Token::textSecondary));
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, rect(), Metric::controlRadius);
}

} // namespace zelta
