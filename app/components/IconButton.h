#pragma once

#include "app/components/Button.h"

namespace zelta {

/// A square button that shows a symbol only. Its help is its tool tip and its accessible name.
class IconButton : public Button
{
    Q_OBJECT

public:
    IconButton(std::string_view symbol, const QString& help, QWidget* parent = nullptr);

    void setHelp(const QString& help);
    void setSide(int pixels);
    void setSymbolSize(int pixels);

    /// Shows a check mark in the colour of success.
    void setConfirming(bool confirming);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_side = Metric::buttonHeight;
    int m_symbolSize = 18;
};

} // namespace zelta
