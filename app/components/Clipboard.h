#pragma once

class QString;

namespace zelta {

/// Replaces what is on the clipboard by this plain text.
void copyText(const QString& text);

} // namespace zelta
