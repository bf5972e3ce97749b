#include "app/components/Switch.h"

#include "app/look/Surface.h"
#include "app/look/Theme.h"

#include <QPainter>

namespace zelta {

namespace {

constexpr int trackWidth = 38;
constexpr int trackHeight = 22;
constexpr int knob = 18;
constexpr int knobInset = 2;

} // namespace

Switch::Switch(const QString& label, const QString& caption, QWidget* parent)
    : QCheckBox(parent)
{
    setAccessibleName(label);
    setAccessibleDescription(caption);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    return {trackWidth + 2 * margin, trackHeight + 2 * margin};
}

bool Switch::hitButton(const QPoint& position) const
{
    return rect().contains(position);
}

void Switch::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double radius = trackHeight / 2.0;
    QPainter painter(this);
    const QRectF track((width() - trackWidth) / 2.0, (height() - trackHeight) / 2.0, trackWidth, trackHeight);
    Surface::draw(painter, track, radius,
                  Theme::color(isChecked() ? Theme::Token::accentFill : Theme::Token::fieldOutline));
    const double x = isChecked() ? track.right() - knobInset - knob : track.left() + knobInset;
    Surface::draw(painter, QRectF(x, track.top() + knobInset, knob, knob), knob / 2.0,
                  Theme::color(Theme::Token::onAccent));
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, track.adjusted(-margin, -margin, margin, margin), radius + margin);
}

} // namespace zelta
