#pragma once

#include <QString>

namespace zelta::AppInfo {

/// The program's version, as the application object carries it; "development build" where it carries none.
QString version();

} // namespace zelta::AppInfo
