#pragma once

#include <QHBoxLayout>

namespace zelta {

class Switch;

/// A switch with its label and its caption beside it, as a row of a card's content. A click on the texts is a
/// click on the switch.
class SwitchRow final : public QHBoxLayout
{
    Q_OBJECT

public:
    SwitchRow(const QString& label, const QString& caption, QWidget* card);

    [[nodiscard]] Switch* control() const { return m_switch; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Switch* m_switch;
};

} // namespace zelta
