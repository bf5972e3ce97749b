#pragma once

#include <QFontMetricsF>
#include <QString>
#include <QtMath>

namespace zelta {

/// Whole pixels that hold the text. The font's own figure is fractional: cut to whole pixels it is too
/// narrow, and the text would end in an ellipsis.
inline int textWidth(const QFont& font, const QString& text)
{
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

} // namespace zelta
