#pragma once

#include <QComboBox>

namespace zelta {

/// A drop-down choice: the name at the left, an optional quieter second column (a unit's symbol) at the
/// right, which is also its accessible description. `activated` tells of the person's choice;
/// `setCurrentIndex` does not emit it.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    /// `name` is the accessible name. Where a label shows it, that must be made the picker's buddy: Qt gives
    /// a screen reader the chosen entry for a name, and the label's text for a label.
    explicit Picker(const QString& name, QWidget* parent = nullptr);

    /// Appends an entry; `value` is what `currentData()` gives while it is chosen.
    void addEntry(const QString& name, const QString& second, const QString& value);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace zelta
