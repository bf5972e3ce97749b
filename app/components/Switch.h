#pragma once

#include <QCheckBox>

namespace zelta {

/// A check box drawn as a switch. Its label and caption stand beside it as texts of their own and are its
/// accessible name and description. Connect `toggled`, not `clicked`: assistive technology switches
/// it without a click.
class Switch : public QCheckBox
{
    Q_OBJECT

public:
    /// Room around the track, for the focus ring that lies outside it.
    static constexpr int margin = 4;

    Switch(const QString& label, const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zelta
