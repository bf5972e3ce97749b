#pragma once

#include "app/model/Module.h"

#include <QWidget>
#include <string>
#include <vector>

namespace zelta {

class Pill;

/// A row of pill-shaped buttons of which one is selected and filled. One tab stop; the arrow keys choose the
/// neighbour.
class PillTabs : public QWidget
{
    Q_OBJECT

public:
    struct Tab
    {
        QString value; ///< what `selection` returns, such as a stored text
        QString label;
        std::string symbol;
    };

    /// Starts with the first tab selected. `module` gives the fill.
    PillTabs(const std::vector<Tab>& tabs, Module module, QWidget* parent = nullptr);

    [[nodiscard]] QString selection() const;

    /// Selects the tab with this value without a signal; an unknown value changes nothing.
    void setSelection(const QString& value);

Q_SIGNALS:
    /// The person chose another tab.
    void selected(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(const Pill& pill);

    std::vector<Pill*> m_pills;
    const Pill* m_selected = nullptr;
};

} // namespace zelta
