#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;
class QWidget;

namespace zelta {

/// Gives a page the keys of its window before the focused widget sees them (a focused button would take
/// Return, a list the arrows). It listens only while the page is shown, and stands back while a text input
/// has the focus or a dialog, a menu or a popup is open.
class KeyMonitor final : public QObject
{
public:
    /// What a key does on this page; an empty function passes the key on. Asked more than once for one key
    /// press, so it must not act by itself.
    using KeyMap = std::function<std::function<void()>(const QKeyEvent&)>;

    /// Owned by the page.
    KeyMonitor(QWidget* page, KeyMap keyMap);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setListening(bool listening);
    bool isMine(const QObject* watched) const;

    QWidget* m_page;
    KeyMap m_keyMap;
    bool m_listening = false;
};

} // namespace zelta
