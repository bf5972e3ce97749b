#include "app/components/KeyMonitor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QTextEdit>
#include <QToolTip>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace zelta {
namespace {

bool takesKeys(const QWidget* focus)
{
    return qobject_cast<const QLineEdit*>(focus) || qobject_cast<const QTextEdit*>(focus)
        || qobject_cast<const QMenuBar*>(focus);
}

} // namespace

KeyMonitor::KeyMonitor(QWidget* page, KeyMap keyMap)
    : QObject(page)
    , m_page(page)
    , m_keyMap(std::move(keyMap))
{
    page->installEventFilter(this);
    setListening(page->isVisible());
}

bool KeyMonitor::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
        if (watched == m_page)
            setListening(event->type() == QEvent::Show);
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        break;
    default:
        return false;
    }
    if (!m_listening || !isMine(watched))
        return false;
    const auto action = m_keyMap(*static_cast<QKeyEvent*>(event));
    if (!action)
        return false;
    // The override only claims the key, so that no menu shortcut takes it; the press that follows acts.
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        QToolTip::hideText(); // what it tells of may be another thing now
        action();
    }
    return true;
}

void KeyMonitor::setListening(bool listening)
{
    if (m_listening == listening)
        return;
    m_listening = listening;
    if (listening)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}

bool KeyMonitor::isMine(const QObject* watched) const
{
    const QWidget* window = m_page->window();
    const bool inWindow = watched == window->windowHandle()
        || (watched->isWidgetType() && static_cast<const QWidget*>(watched)->window() == window);
    return inWindow && !QApplication::activeModalWidget() && !QApplication::activePopupWidget()
        && !takesKeys(QApplication::focusWidget());
}

} // namespace zelta
