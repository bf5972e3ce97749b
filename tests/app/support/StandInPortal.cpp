#include "tests/app/support/StandInPortal.h"

#include <QDBusMessage>
#include <QDBusVariant>

namespace zelta::test {

namespace {

const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.Settings");
const auto connectionName = QStringLiteral("stand-in portal");

QVariant variant(const QVariant& value)
{
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

StandInPortal::StandInPortal()
    : m_bus(connectionName)
{
    m_daemon.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    if (!m_daemon.waitForReadyRead())
        return;
    const QByteArray address = m_daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    m_bus = QDBusConnection::connectToBus(QString::fromLatin1(address), connectionName);
    m_isReady = m_bus.registerVirtualObject(path, this)
        && m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
}

StandInPortal::~StandInPortal()
{
    QDBusConnection::disconnectFromBus(connectionName);
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

bool StandInPortal::isReady() const
{
    return m_isReady;
}

void StandInPortal::setColorScheme(unsigned colorScheme)
{
    m_colorScheme = colorScheme;
    tell(QStringLiteral("color-scheme"), colorScheme);
}

void StandInPortal::setCaretBlinks(bool blinks)
{
    m_caretBlinks = blinks;
    tell(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("cursor-blink"), blinks);
}

void StandInPortal::setAnimations(bool animate)
{
    tell(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations"), animate);
}

void StandInPortal::tell(const QString& key, unsigned value)
{
    tell(QStringLiteral("org.freedesktop.appearance"), key, value);
}

void StandInPortal::tell(const QString& group, const QString& key, const QVariant& value)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, QStringLiteral("SettingChanged"));
    signal << group << key << variant(value);
    m_bus.send(signal);
}

QString StandInPortal::introspect(const QString& /*path*/) const
{
    return {};
}

/// "Read" wraps its answer in two variants, as the portals of today's desktops do.
bool StandInPortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (message.interface() != interface || message.member() != QStringLiteral("Read"))
        return false;
    const bool isCaret = message.arguments().constLast() == QStringLiteral("cursor-blink");
    if (isCaret && !m_caretBlinks)
        return connection.send(message.createErrorReply(
            QStringLiteral("org.freedesktop.portal.Error.NotFound"), QStringLiteral("not found")));
    const QVariant answer = isCaret ? QVariant(*m_caretBlinks) : QVariant(m_colorScheme);
    return connection.send(message.createReply(variant(variant(answer))));
}

} // namespace zelta::test
