#pragma once

#include <QDialog>

namespace zelta {

/// Name, version and purpose of the program.
class AboutDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent);
};

} // namespace zelta
