#pragma once

#include <QWidget>

namespace zelta {

/// Two columns of equal width side by side where both get `minimumWidth`; otherwise the left one above the
/// right.
class Columns : public QWidget
{
    Q_OBJECT

public:
    static constexpr int gap = 18;

    Columns(int minimumWidth, QWidget* left, QWidget* right, QWidget* parent = nullptr);
};

} // namespace zelta
