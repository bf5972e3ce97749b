#pragma once

#include "app/components/PillTabs.h"
#include "app/look/TextLine.h"

#include <QRadioButton>

namespace zelta {

/// One tab of PillTabs: filled when checked, clear otherwise. As radio buttons the pills of a row are one tab
/// stop, the arrow keys choose, and a screen reader hears which of them is chosen.
class Pill : public QRadioButton
{
    Q_OBJECT

public:
    Pill(const PillTabs::Tab& tab, Module module, PillTabs* row);

    [[nodiscard]] const QString& value() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    PillTabs::Tab m_tab;
    Module m_module;
    mutable TextLine m_checkedLine; ///< The wider one: nothing shifts when another tab is chosen.
    TextLine m_clearLine;
};

} // namespace zelta
