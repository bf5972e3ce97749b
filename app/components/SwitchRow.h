#pragma once

#include <QHBoxLayout>

namespace zelta {

class Switch;

/// A switch with its label and its caption beside it, as a row of a card's content.
class SwitchRow final : public QHBoxLayout
{
    Q_OBJECT

public:
    SwitchRow(const QString& label, const QString& caption, QWidget* card);

    [[nodiscard]] Switch* control() const { return m_switch; }

private:
    Switch* m_switch;
};

} // namespace zelta
