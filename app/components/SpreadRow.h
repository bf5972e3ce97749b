#pragma once

#include <QWidget>

class QBoxLayout;

namespace zelta {

/// Two widgets at the ends of one line; where they do not fit, the second one stands below the first.
class SpreadRow final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int gap = 12;

    SpreadRow(QWidget* first, QWidget* second, QWidget* parent = nullptr);

    /// As wide as the narrowest arrangement, as high as the one in force.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void arrange();

    QWidget* m_first;
    QWidget* m_second;
    QBoxLayout* m_layout;
};

} // namespace zelta
