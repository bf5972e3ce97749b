#pragma once

#include <QAccessible>
#include <QWidget>

namespace zelta::test {

/// What assistive technology sees of a widget.
inline QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

/// Checks or clears a button the way assistive technology does, which is no click.
inline void toggleAccessibly(QWidget& button)
{
    accessible(button).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
}

/// Replaces a field's text the way assistive technology does, which is no typing.
inline void enterAccessibly(QWidget& field, const QString& text)
{
    const int length = static_cast<int>(accessible(field).text(QAccessible::Value).size());
    accessible(field).editableTextInterface()->replaceText(0, length, text);
}

} // namespace zelta::test
