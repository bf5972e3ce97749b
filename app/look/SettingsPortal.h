#pragma once

#include <QDBusVariant>
#include <QObject>

class QDBusPendingCallWatcher;

namespace zelta {

/// What the desktop's settings portal says about light and dark ("org.freedesktop.appearance",
/// "color-scheme") and about blinking carets ("org.gnome.desktop.interface", "cursor-blink"). Nobody waits
/// for the answers; a desktop without a portal simply never gives one.
class SettingsPortal : public QObject
{
    Q_OBJECT

public:
    explicit SettingsPortal(QObject* parent = nullptr);

    /// Asks, and listens from then on.
    void ask();

    /// Takes the answer about light and dark if it is there, without waiting for the event loop to bring it.
    void hear();

    /// Whether the desktop's last answer was dark; without one it prefers nothing.
    [[nodiscard]] bool prefersDark() const { return m_prefersDark; }

    /// Whether carets may blink; they do until the desktop says no.
    [[nodiscard]] bool caretBlinks() const { return m_caretBlinks; }

Q_SIGNALS:
    void prefersDarkChanged();
    void caretBlinkChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAnswer();
    void setColorScheme(const QVariant& value);
    void setCaretBlinks(const QVariant& value);

    QDBusPendingCallWatcher* m_answer = nullptr; ///< To the colour scheme, until it has been read.
    bool m_prefersDark = false;
    bool m_caretBlinks = true;
};

} // namespace zelta
