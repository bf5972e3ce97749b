#pragma once

#include <QString>

class QObject;

namespace zelta::test::StandInInputMethod {

/// Shows this text at the caret as one that is still being composed.
void compose(QObject& editor, const QString& text);

/// What is being composed and has not become part of the text.
QString composed();

} // namespace zelta::test::StandInInputMethod
