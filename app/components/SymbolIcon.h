#pragma once

#include "app/look/Theme.h"

#include <QWidget>
#include <string>

namespace zelta {

/// A symbol on its own, in a theme colour. Decoration, without a name for assistive technology.
class SymbolIcon : public QWidget
{
    Q_OBJECT

public:
    SymbolIcon(std::string_view symbol, int size, Theme::Token token, QWidget* parent = nullptr);

    /// Lets the ground show through the colour; 1 is solid.
    void setOpacity(double opacity);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    Theme::Token m_token;
    double m_opacity = 1;
};

} // namespace zelta
