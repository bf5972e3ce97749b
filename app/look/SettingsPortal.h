#pragma once

#include <QDBusVariant>
#include <QObject>

class QDBusPendingCallWatcher;

namespace zelta {

/// What the desktop's settings portal says about light and dark ("org.freedesktop.appearance",
/// "color-scheme"). Asked once the program's event loop runs; a desktop without a portal simply never
/// answers.
class SettingsPortal : public QObject
{
    Q_OBJECT

public:
    /// The portal's own numbers.
    enum class ColorScheme { noPreference = 0, preferDark = 1, preferLight = 2 };

    explicit SettingsPortal(QObject* parent = nullptr);

    /// Asks, and listens from then on. Connecting takes a few milliseconds: not before the first window is
    /// there.
    void ask();

    /// The last answer; no preference until there is one.
    [[nodiscard]] ColorScheme colorScheme() const;

Q_SIGNALS:
    void colorSchemeChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAnswer(QDBusPendingCallWatcher* watcher);
    void setColorScheme(const QVariant& value);

    ColorScheme m_colorScheme = ColorScheme::noPreference;
};

} // namespace zelta
