#include "app/model/AppInfo.h"

#include <QCoreApplication>

namespace zelta::AppInfo {

QString version()
{
    const QString version = QCoreApplication::applicationVersion();
    return version.isEmpty() ? QStringLiteral("development build") : version;
}

} // namespace zelta::AppInfo
