#pragma once

#include <QComboBox>

namespace zelta {

/// A drop-down choice: the name at the left, an optional quieter second column (a unit's symbol) at the
/// right. `activated` tells of the person's choice; `setCurrentIndex` makes no such signal.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    explicit Picker(const QString& name, QWidget* parent = nullptr);

    /// Appends an entry; `value` is what `currentData()` gives while it is chosen.
    void addEntry(const QString& name, const QString& second, const QString& value);

    [[nodiscard]] QSize sizeHint() const override;
    void showPopup() override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace zelta
