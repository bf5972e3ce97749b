#pragma once

#include "app/components/PillTabs.h"
#include "app/look/TextLine.h"

namespace zelta {

/// One tab of PillTabs: filled when checked, clear otherwise.
class Pill : public QAbstractButton
{
    Q_OBJECT

public:
    Pill(const PillTabs::Tab& tab, Module module, PillTabs& row);

    [[nodiscard]] const QString& value() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    PillTabs& m_row;
    PillTabs::Tab m_tab;
    Module m_module;
    mutable TextLine m_checkedLine; ///< The wider one: nothing shifts when another tab is chosen.
    TextLine m_clearLine;
};

} // namespace zelta
