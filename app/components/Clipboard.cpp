#include "app/components/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QString>

namespace zelta {

void copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace zelta
