#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <string_view>

class QPainter;
class QRectF;

namespace zelta {

/// Line drawings by name, rendered when they are first drawn and then kept by name, size, colour and ratio.
///
/// A name is a file of `icons/` without its ending ("swap-arrows") or one of the dotted names that
/// `symbol(Module)` and the pages use ("arrow.left.arrow.right").
namespace Symbols {

/// `bold` is for white symbols on a badge. Small symbols (16 px and less) get a heavier line by themselves.
enum class Stroke { regular, bold };

/// A square of `size` device-independent pixels. Null when no drawing has that name.
QPixmap pixmap(std::string_view name, int size, const QColor& color, double devicePixelRatio,
               Stroke stroke = Stroke::regular);

/// Draws the symbol in the middle of `area`, on whole device pixels so that it stays sharp.
void draw(QPainter& painter, const QRectF& area, std::string_view name, int size, const QColor& color,
          Stroke stroke = Stroke::regular);

/// The program's own icon, in any size.
QIcon appIcon();

} // namespace Symbols

} // namespace zelta
