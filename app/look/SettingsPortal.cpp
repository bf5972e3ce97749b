#include "app/look/SettingsPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <utility>

namespace zelta {

namespace {

const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto colorSchemeKey = QStringLiteral("color-scheme");
const auto interfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const auto caretBlinkKey = QStringLiteral("cursor-blink");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto portalInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// Without an address the bus library would start a bus of its own, which is slow and useless.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusPendingCall question(const QString& group, const QString& key)
{
    QDBusMessage message
        = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"), portalPath,
                                         portalInterface, QStringLiteral("Read"));
    message << group << key;
    return QDBusConnection::sessionBus().asyncCall(message);
}

/// Nothing when the portal does not know.
QVariant answered(const QDBusPendingCall& call)
{
    const QDBusPendingReply<QDBusVariant> reply = call;
    if (reply.isError())
        return {};
    // Old portals wrap the value twice.
    const QVariant value = reply.value().variant();
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

} // namespace

SettingsPortal::SettingsPortal(QObject* parent)
    : QObject(parent)
{ }

void SettingsPortal::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey)
        setColorScheme(value.variant());
    else if (group == interfaceGroup && key == caretBlinkKey)
        setCaretBlinks(value.variant());
}

void SettingsPortal::ask()
{
    if (!hasSessionBus())
        return;
    // A slot's types are found by name, and nobody has named this one yet: the signal would be refused.
    qRegisterMetaType<QDBusVariant>();
    // No sender's name: resolving one would wait for the bus.
    QDBusConnection::sessionBus().connect(QString(), portalPath, portalInterface,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    m_answer = new QDBusPendingCallWatcher(question(appearanceGroup, colorSchemeKey), this);
    connect(m_answer, &QDBusPendingCallWatcher::finished, this, &SettingsPortal::readAnswer);
    const auto* blink = new QDBusPendingCallWatcher(question(interfaceGroup, caretBlinkKey), this);
    connect(blink, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* answer) {
        answer->deleteLater();
        setCaretBlinks(answered(*answer));
    });
}

void SettingsPortal::hear()
{
    if (m_answer != nullptr && m_answer->isFinished())
        readAnswer();
}

void SettingsPortal::readAnswer()
{
    QDBusPendingCallWatcher* const answer = std::exchange(m_answer, nullptr);
    if (answer == nullptr)
        return; // heard before
    answer->deleteLater();
    if (const QVariant value = answered(*answer); value.isValid())
        setColorScheme(value);
}

void SettingsPortal::setColorScheme(const QVariant& value)
{
    constexpr uint dark = 1; // 0 is no preference, and 2 is light
    const bool prefersDark = value.toUInt() == dark;
    if (prefersDark == m_prefersDark)
        return;
    m_prefersDark = prefersDark;
    Q_EMIT prefersDarkChanged();
}

void SettingsPortal::setCaretBlinks(const QVariant& value)
{
    const bool blinks = value.typeId() != QMetaType::Bool || value.toBool();
    if (blinks == m_caretBlinks)
        return;
    m_caretBlinks = blinks;
    Q_EMIT caretBlinkChanged();
}

} // namespace zelta
