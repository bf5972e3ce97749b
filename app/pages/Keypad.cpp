#include "app/pages/Keypad.h"

#include "app/look/Surface.h"
#include "app/look/Symbols.h"

#include <QGridLayout>
#include <QPainter>

namespace zelta {

namespace {

constexpr int gap = 8;
constexpr int symbolSize = 22;

} // namespace

KeypadKey::KeypadKey(const CalculatorKey& key, QWidget* parent)
    : QPushButton(parent)
    , m_key(key)
    , m_face(CalculatorKeyFace::of(key))
{
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFont(Theme::font(m_face.font));
    setText(m_face.title);
    setToolTip(m_face.help);
    setAccessibleName(m_face.help.isEmpty() ? m_face.title : m_face.help);
}

QSize KeypadKey::sizeHint() const
{
    return {Keypad::shortKey, Keypad::shortKey};
}

void KeypadKey::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), Metric::keyRadius, Theme::color(m_face.fill));
    Surface::drawPress(painter, rect(), Metric::keyRadius, Surface::pressOf(*this));

    const QColor ink = Theme::color(m_face.ink);
    if (!m_face.symbol.empty())
        Symbols::draw(painter, rect(), m_face.symbol, symbolSize, ink);
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter, m_face.title);

    if (!Surface::showsFocus(*this))
        return;
    if (m_key.kind == CalculatorKey::Kind::equals) // blue on orange is hard to see
        Surface::drawOutline(painter, QRectF(rect()).adjusted(2, 2, -2, -2), Metric::keyRadius - 2, ink, 2);
    else
        Surface::drawFocusRing(painter, rect(), Metric::keyRadius);
}

Keypad::Keypad(QWidget* parent)
    : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    int row = 0;
    for (const auto& keys : calculatorKeys()) {
        int column = 0;
        for (const CalculatorKey& key : keys) {
            auto* button = new KeypadKey(key, this);
            connect(button, &QAbstractButton::clicked, this, [this, key] { Q_EMIT pressed(key); });
            grid->addWidget(button, row, column++);
            m_keys.push_back(button);
        }
        ++row;
    }
}

void Keypad::setKeyHeight(int pixels)
{
    for (KeypadKey* key : m_keys)
        key->setFixedHeight(pixels);
}

} // namespace zelta
