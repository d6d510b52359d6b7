#pragma once

#include "Platform/HotKeyCalls.h"
#include "Platform/HotKeys.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

#include <map>
#include <string>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace kerlune {

// Keys by the desktop's portal (org.freedesktop.portal.GlobalShortcuts, version 1), which asks the user. A key is a
// wish there: the desktop and the user may choose another. When the portal starts anew, it is asked again.
//
// Thread: main; it never waits for the portal.
// Errors: Refused when the user did not agree; Unavailable when there is no such portal, and when it ends a session.
class PortalHotKeys final : public QObject, public HotKeys {
    Q_OBJECT

public:
    // The description says to the user what the keys are for, in the user's language.
    PortalHotKeys(QDBusConnection bus, const std::string &description);
    ~PortalHotKeys() override;

    void registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                     Failed failed) override;
    void unregisterKey(std::uint32_t identifier) override;

private Q_SLOTS:
    void noteResponse(const QDBusMessage &message);
    void noteActivated(const QDBusMessage &message);
    void noteClosed(const QDBusMessage &message);
    void noteOwner(const QString &name, const QString &before, const QString &after);
    void noteDisconnected();

private:
    // A session of the portal binds its keys once; so each key has one of its own.
    struct Key {
        enum class Step {
            Waiting,  // for the portal to come back
            Creating, // a session
            Binding,  // the key
            Bound,
        };

        QString trigger;
        Step step = Step::Waiting;
        QString request; // path of what the portal is asked, while Creating and Binding
        QString session; // path, once there is one
    };
    using Keys = std::map<std::uint32_t, Key>;

    void start(Key &key);
    void bind(std::uint32_t identifier, Key &key);
    void ask(const QString &method, const QVariantList &arguments, Key &key, QVariantMap options);
    void noteAnswer(const QDBusPendingCallWatcher &call, const QString &expected);
    void fail(std::uint32_t identifier, Failure failure);
    void close(const QString &path, const QString &interface) const;
    void closeAll(const Key &key) const;
    Keys::iterator keyWith(QString Key::*path, const QString &value);

    QDBusConnection m_bus;
    QString m_description;
    HotKeyCalls m_calls;
    Keys m_keys;
    QStringList m_abandoned; // requests for sessions that nobody wants any more
    quint64 m_lastToken = 0;
};

} // namespace kerlune
