#pragma once

#include <QWidget>
#include <string>

namespace zelta {

/// A page's badge: a rounded square in the page's tint with its symbol in white. Decoration, without
/// a name for assistive technology.
class ModuleGlyph : public QWidget
{
    Q_OBJECT

public:
    ModuleGlyph(std::string_view symbol, const QColor& tint, int size, QWidget* parent = nullptr);

    /// The same badge for those who paint rows themselves.
    static void draw(QPainter& painter, const QRectF& rect, std::string_view symbol, const QColor& tint);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_symbol;
    QColor m_tint;
};

} // namespace zelta
