#pragma once

#include <QDialog>

namespace zelta {

/// Name, version and purpose of the program.
class AboutDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zelta
