#include "app/components/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>

namespace zelta {

void copyText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

bool offersText(const QMimeData* offered)
{
    return offered != nullptr
        && (offered->hasText() || offered->hasFormat(QStringLiteral("text/plain;charset=utf-8")));
}

} // namespace zelta
