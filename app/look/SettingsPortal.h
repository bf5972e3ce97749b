#pragma once

#include <QDBusVariant>
#include <QObject>

class QDBusPendingCallWatcher;

namespace zelta {

/// What the desktop's settings portal says about light and dark ("org.freedesktop.appearance",
/// "color-scheme"). Nobody waits for the answer; a desktop without a portal simply never gives one.
class SettingsPortal : public QObject
{
    Q_OBJECT

public:
    /// The portal's own numbers.
    enum class ColorScheme { noPreference = 0, preferDark = 1, preferLight = 2 };

    explicit SettingsPortal(QObject* parent = nullptr);

    /// Asks, and listens from then on.
    void ask();

    /// Takes the answer if it is there, without waiting for the event loop to bring it.
    void hear();

    /// The last answer; no preference until there is one.
    [[nodiscard]] ColorScheme colorScheme() const;

Q_SIGNALS:
    void colorSchemeChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAnswer();
    void setColorScheme(const QVariant& value);

    QDBusPendingCallWatcher* m_answer = nullptr; ///< Until it has been read.
    ColorScheme m_colorScheme = ColorScheme::noPreference;
};

} // namespace zelta
