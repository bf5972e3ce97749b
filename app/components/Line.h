#pragma once

#include "app/look/Theme.h"

#include <QWidget>

namespace zelta {

/// A line one pixel high: between the rows of a card, or in the colour of outlines.
class Line final : public QWidget
{
    Q_OBJECT

public:
    explicit Line(QWidget* parent = nullptr, Theme::Token token = Theme::Token::divider);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Theme::Token m_token;
};

} // namespace zelta
