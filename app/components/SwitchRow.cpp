#include "app/components/SwitchRow.h"

#include "app/components/Label.h"
#include "app/components/Switch.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace zelta {

namespace {

/// Gives the switch the place of its track alone; the room for its focus ring reaches into the gaps around
/// it.
class TrackItem final : public QWidgetItem
{
public:
    using QWidgetItem::QWidgetItem;

    [[nodiscard]] QSize sizeHint() const override
    {
        return widget()->sizeHint() - QSize(2 * Switch::margin, 2 * Switch::margin);
    }
    [[nodiscard]] QSize minimumSize() const override { return sizeHint(); }
    [[nodiscard]] QSize maximumSize() const override { return sizeHint(); }
    void setGeometry(const QRect& rect) override
    {
        QRect place(QPoint(), widget()->sizeHint());
        place.moveCenter(rect.center());
        widget()->setGeometry(place);
    }
};

} // namespace

SwitchRow::SwitchRow(const QString& label, const QString& caption, QWidget* card)
    : m_switch(new Switch(label, caption, card))
{
    constexpr int gap = 14;
    constexpr int lineGap = 3;
    setSpacing(gap);
    addChildWidget(m_switch);
    addItem(new TrackItem(m_switch));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    for (Label* text : {new Label(label, card),
                        new Label(caption, Theme::FontRole::caption, Theme::Token::textSecondary, card)}) {
        text->installEventFilter(this);
        texts->addWidget(text);
    }
    addLayout(texts);
    addStretch(1);
}

bool SwitchRow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        return true; // or the release would go to what lies below
    if (event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        if (static_cast<QWidget*>(watched)->rect().contains(static_cast<QMouseEvent*>(event)->pos()))
            m_switch->click();
        return true;
    }
    return QHBoxLayout::eventFilter(watched, event);
}

} // namespace zelta
