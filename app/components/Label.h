#pragma once

#include "app/look/Theme.h"

#include <QLabel>

class QTextLayout;

namespace zelta {

/// Plain text in one of the theme's fonts and colours; follows the appearance by itself. Never reads markup.
class Label : public QLabel
{
    Q_OBJECT

public:
    explicit Label(const QString& text, QWidget* parent = nullptr);
    Label(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent = nullptr);

    void setRole(Theme::FontRole role);
    void setToken(Theme::Token token);

    /// Lets the ground show through the colour; 1 is solid.
    void setOpacity(double opacity);

    /// Wraps at the label's width, lines `pixels` apart (0: the font's own spacing).
    void setWrapped(int pixels = 0);

    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyToken();
    double layOut(QTextLayout& layout, double width) const;

    Theme::Token m_token = Theme::Token::text;
    float m_opacity = 1;
    int m_lineHeight = 0;
};

} // namespace zelta
