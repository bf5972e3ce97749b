#pragma once

#include "app/components/Label.h"

#include <QSize>

namespace zelta {

/// A short word on a rounded fill: "Weekend", "Mon".
class Tag final : public Label
{
    Q_OBJECT

public:
    struct Shape
    {
        Theme::FontRole role = Theme::FontRole::captionBold;
        int sidePadding = 10;
        int height = 25;
        int minimumWidth = 0;
        double radius = 12;
    };

    explicit Tag(const Shape& shape, QWidget* parent = nullptr);

    /// `opacity` multiplies the fill's own.
    void setColors(Theme::Token ink, Theme::Token fill, double opacity = 1);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Shape m_shape;
    Theme::Token m_fill = Theme::Token::inset;
    double m_opacity = 1;
};

} // namespace zelta
