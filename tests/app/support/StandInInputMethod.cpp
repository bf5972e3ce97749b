#include "tests/app/support/StandInInputMethod.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <utility>

namespace {

QString composedText;

} // namespace

/// Takes the place of Qt's own, which asks the platform's input method: the offscreen platform has none.
void QInputMethod::commit()
{
    QObject* editor = QGuiApplication::focusObject();
    if (editor == nullptr || composedText.isEmpty())
        return;
    QInputMethodEvent event;
    event.setCommitString(std::exchange(composedText, {}));
    QCoreApplication::sendEvent(editor, &event);
}

namespace zelta::test {

void StandInInputMethod::compose(QObject& editor, const QString& text)
{
    composedText = text;
    QInputMethodEvent event(text, {});
    QCoreApplication::sendEvent(&editor, &event);
}

QString StandInInputMethod::composed()
{
    return composedText;
}

} // namespace zelta::test
