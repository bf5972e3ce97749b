#pragma once

#include <QWidget>
#include <string_view>

namespace zelta {

/// A small line in the colour of warnings at 0.8 opacity: symbol and text.
class WarningLine : public QWidget
{
    Q_OBJECT

public:
    WarningLine(const QString& text, std::string_view symbol, QWidget* parent = nullptr);
};

} // namespace zelta
