#pragma once

class QMimeData;
class QString;

namespace zelta {

/// Replaces what is on the clipboard by this plain text.
void copyText(const QString& text);

/// Whether there is a text in what is offered, by a clipboard or by dragging; some owners have it in one
/// encoding only, which Qt reads and does not count as text.
bool offersText(const QMimeData* offered);

} // namespace zelta
