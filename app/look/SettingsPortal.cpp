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

/// Without an address the bus library would start a bus of its own, which is slow and useless.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace

SettingsPortal::SettingsPortal(QObject* parent)
    : QObject(parent)
{ }

SettingsPortal::ColorScheme SettingsPortal::colorScheme() const
{
    return m_colorScheme;
}

void SettingsPortal::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey)
        setColorScheme(value.variant());
}

void SettingsPortal::ask()
{
    if (!hasSessionBus())
        return;
    const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
    const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
    // A slot's types are found by name, and nobody has named this one yet: the signal would be refused.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    // No sender's name: resolving one would wait for the bus.
    bus.connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                                           path, interface, QStringLiteral("Read"));
    question << appearanceGroup << colorSchemeKey;
    m_answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(m_answer, &QDBusPendingCallWatcher::finished, this, &SettingsPortal::readAnswer);
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
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (reply.isError())
        return;
    // Old portals wrap the value twice.
    QVariant value = reply.value().variant();
    if (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    setColorScheme(value);
}

void SettingsPortal::setColorScheme(const QVariant& value)
{
    bool isNumber = false;
    const uint number = value.toUInt(&isNumber);
    const auto scheme
        = isNumber && number <= 2 ? static_cast<ColorScheme>(number) : ColorScheme::noPreference;
    if (scheme == m_colorScheme)
        return;
    m_colorScheme = scheme;
    Q_EMIT colorSchemeChanged();
}

} // namespace zelta
