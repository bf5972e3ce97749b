#pragma once

class QMimeData;
class QString;

namespace zelta {

/// Replaces what is on the clipboard by this plain text.
void copyText(const QString& text);

/// Whether a clipboard or a drag offers text. Some owners offer it as "text/plain;charset=utf-8" only, which
/// Qt reads as text but leaves out of `QMimeData::hasText`.
bool offersText(const QMimeData* offered);

} // namespace zelta
