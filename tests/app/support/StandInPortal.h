#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QString>
#include <optional>

namespace zelta::test {

/// A session bus of the test's own with a settings portal on it that answers what the test wants.
class StandInPortal : public QDBusVirtualObject
{
public:
    /// Starts the bus, points DBUS_SESSION_BUS_ADDRESS to it and takes the portal's name.
    StandInPortal();
    ~StandInPortal() override;

    /// Whether the bus runs and the portal has its name.
    [[nodiscard]] bool isReady() const;

    /// What it answers from now on, without a word to those who listen.
    void setAnswer(unsigned colorScheme) { m_colorScheme = colorScheme; }

    /// Changes the setting and tells everybody, as a portal does.
    void setColorScheme(unsigned colorScheme);

    /// The same for the carets of text fields.
    void setCaretBlinks(bool blinks);

    /// Does not know from now on whether they blink.
    void forgetCaretBlinks() { m_caretBlinks = std::nullopt; }

    /// Tells everybody of another setting beside that of the carets.
    void setAnimations(bool animate);

    /// Tells everybody of another setting of the appearance.
    void tell(const QString& key, unsigned value);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void tell(const QString& group, const QString& key, const QVariant& value);

    QProcess m_daemon;
    QDBusConnection m_bus;
    unsigned m_colorScheme = 0;
    std::optional<bool> m_caretBlinks = true;
    bool m_isReady = false;
};

} // namespace zelta::test
