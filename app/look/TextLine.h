#pragma once

#include <QFont>
#include <QString>
#include <QTextLayout>
#include <QtMath>

class QPainter;

namespace zelta {

/// One line of text, shaped once for its measures and for every time it is drawn: shaping is what is slow
/// about text.
class TextLine
{
public:
    /// Nothing is shaped again where neither differs.
    void set(const QString& text, const QFont& font);

    [[nodiscard]] QFont font() const { return m_layout.font(); }
    [[nodiscard]] QString text() const { return m_layout.text(); }

    /// Whole pixels that hold the text. The font's own figure is fractional: cut to whole pixels it is too
    /// narrow, and the text would end in an ellipsis.
    [[nodiscard]] int width() const { return qCeil(m_advance); }

    /// The width as the font has it, in fractions of a pixel.
    [[nodiscard]] double advance() const { return m_advance; }

    /// Draws with the painter's pen, beginning at `x`.
    void draw(QPainter& painter, double x, double baseline) const;

    /// Draws at the left of the area, in the middle of its height.
    void draw(QPainter& painter, const QRectF& area) const;

private:
    QTextLayout m_layout;
    double m_advance = 0;
};

} // namespace zelta
