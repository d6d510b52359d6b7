#include "Platform/Linux/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace kerlune {

namespace {

constexpr unsigned kPrefersDark = 1; // freedesktop.org, org.freedesktop.appearance color-scheme

QString group()
{
    return QStringLiteral("org.freedesktop.appearance");
}

QString key()
{
    return QStringLiteral("color-scheme");
}

// The older method of the portal wraps the value twice.
bool isDark(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == kPrefersDark;
}

} // namespace

DesktopAppearance::DesktopAppearance(QObject *parent)
    : QObject(parent)
{
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return; // a bus would be started, or waited for
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
    const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(noteSetting(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question.setArguments({group(), key()});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            noteSetting(group(), key(), reply.value());
        watcher->deleteLater();
    });
}

void DesktopAppearance::noteSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    if (group == kerlune::group() && key == kerlune::key())
        Q_EMIT changed(isDark(value.variant()));
}

} // namespace kerlune
