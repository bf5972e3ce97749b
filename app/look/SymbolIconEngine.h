#pragma once

#include "app/look/Theme.h"

#include <QIcon>
#include <string_view>

namespace zelta {

/// An icon for Qt's own widgets that draws the symbol in the token's colour of the moment.
QIcon symbolIcon(std::string_view name, Theme::Token token);

} // namespace zelta
