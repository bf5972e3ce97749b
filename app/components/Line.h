#pragma once

#include <QWidget>

namespace zelta {

/// A thin line between the rows of a card.
class Line final : public QWidget
{
    Q_OBJECT

public:
    explicit Line(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zelta
