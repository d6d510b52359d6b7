#include "Platform/Linux/PortalHotKeys.h"

#include "Platform/Linux/MacKeys.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <utility>

namespace kerlune {

// A shortcut as the portal writes it, (sa{sv}).
struct PortalShortcut {
    QString identifier;
    QVariantMap properties;
};

namespace {

enum PortalResponse : unsigned { // org.freedesktop.portal.Request
    kPortalSuccess = 0,
};

QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString portalPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

QString shortcutsInterface()
{
    return QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
}

QString requestInterface()
{
    return QStringLiteral("org.freedesktop.portal.Request");
}

QString sessionInterface()
{
    return QStringLiteral("org.freedesktop.portal.Session");
}

// The XDG specification of shortcuts: modifiers and the name of a symbol. Empty for a key without one.
QString triggerOf(std::uint32_t keyCode, std::uint32_t modifiers)
{
    struct Name {
        std::uint32_t bit;
        const char *text;
    };
    QString trigger;
    for (const Name name : {Name{HotKeys::kSuper, "LOGO+"}, Name{HotKeys::kControl, "CTRL+"},
                            Name{HotKeys::kAlt, "ALT+"}, Name{HotKeys::kShift, "SHIFT+"}}) {
        if ((modifiers & name.bit) != 0)
            trigger += QLatin1StringView(name.text);
        modifiers &= ~name.bit;
    }
    const MacKey *key = macKey(keyCode);
    if (key == nullptr || modifiers != 0)
        return {};
    return trigger + QLatin1StringView(key->name.data(), static_cast<qsizetype>(key->name.size()));
}

bool isBound(const QVariantMap &results, const QString &shortcut)
{
    const auto found = results.constFind(QStringLiteral("shortcuts"));
    if (found == results.constEnd())
        return true; // the portal leaves it at its success
    const auto shortcuts = qdbus_cast<QList<PortalShortcut>>(*found);
    return std::any_of(shortcuts.begin(), shortcuts.end(),
                       [&](const PortalShortcut &bound) { return bound.identifier == shortcut; });
}

} // namespace

// Found by their arguments.
QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.identifier << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.identifier >> shortcut.properties;
    argument.endStructure();
    return argument;
}

PortalHotKeys::PortalHotKeys(QDBusConnection bus, const std::string &description)
    : m_bus(std::move(bus))
    , m_description(QString::fromStdString(description))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    if (!m_bus.isConnected())
        return; // the D-Bus library ends a program that subscribes there
    // Of whatever request and session: what comes is for this program alone, and nothing can come too early.
    m_bus.connect(portalService(), {}, requestInterface(), QStringLiteral("Response"), this,
                  SLOT(noteResponse(QDBusMessage)));
    m_bus.connect(portalService(), {}, sessionInterface(), QStringLiteral("Closed"), this,
                  SLOT(noteClosed(QDBusMessage)));
    m_bus.connect(portalService(), portalPath(), shortcutsInterface(), QStringLiteral("Activated"), this,
                  SLOT(noteActivated(QDBusMessage)));
    m_bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"), QStringLiteral("org.freedesktop.DBus.Local"),
                  QStringLiteral("Disconnected"), this, SLOT(noteDisconnected()));
    auto *owners = new QDBusServiceWatcher(portalService(), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owners, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalHotKeys::noteOwner);
}

PortalHotKeys::~PortalHotKeys()
{
    for (const auto &[identifier, key] : m_keys)
        closeAll(key);
}

void PortalHotKeys::registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers,
                                Pressed pressed, Failed failed)
{
    unregisterKey(identifier);
    m_calls.add(identifier, std::move(pressed), std::move(failed));
    const QString trigger = triggerOf(keyCode, modifiers);
    if (trigger.isEmpty() || !m_bus.isConnected())
        m_calls.fail(identifier, Failure::Unavailable);
    else
        start(m_keys[identifier] = Key{trigger, {}, {}, {}});
}

void PortalHotKeys::unregisterKey(std::uint32_t identifier)
{
    m_calls.remove(identifier);
    const auto found = m_keys.find(identifier);
    if (found == m_keys.end())
        return;
    const Key key = std::move(found->second);
    m_keys.erase(found);
    closeAll(key);
    if (key.step == Key::Step::Creating)
        m_abandoned.append(key.request);
}

void PortalHotKeys::start(Key &key)
{
    key.step = Key::Step::Creating;
    key.session.clear();
    const QVariantMap options{
        {QStringLiteral("session_handle_token"), QStringLiteral("kerlune_session%1").arg(++m_lastToken)}};
    ask(QStringLiteral("CreateSession"), {}, key, options);
}

void PortalHotKeys::bind(std::uint32_t identifier, Key &key)
{
    key.step = Key::Step::Binding;
    const PortalShortcut shortcut{
        QString::number(identifier),
        {{QStringLiteral("description"), m_description}, {QStringLiteral("preferred_trigger"), key.trigger}}};
    const QString noWindow = QStringLiteral("");
    ask(QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(key.session)), QVariant::fromValue(QList{shortcut}), noWindow}, key, {});
}

// The portal answers with a signal of a request object, whose path is known before, so that its answer is known even
// when it comes before that to the call.
void PortalHotKeys::ask(const QString &method, const QVariantList &arguments, Key &key, QVariantMap options)
{
    const QString token = QStringLiteral("kerlune%1").arg(++m_lastToken);
    QString sender = m_bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    key.request = portalPath() + QStringLiteral("/request/%1/%2").arg(sender, token);

    options.insert(QStringLiteral("handle_token"), token);
    QDBusMessage call = QDBusMessage::createMethodCall(portalService(), portalPath(), shortcutsInterface(), method);
    call.setArguments(arguments + QVariantList{options});
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, request = key.request] {
        answer->deleteLater();
        noteAnswer(*answer, request);
    });
}

void PortalHotKeys::noteAnswer(const QDBusPendingCallWatcher &call, const QString &expected)
{
    const QDBusPendingReply<QDBusObjectPath> reply = call;
    const auto key = keyWith(&Key::request, expected);
    if (reply.isError()) {
        m_abandoned.removeAll(expected);
        if (key != m_keys.end())
            fail(key->first, Failure::Unavailable);
        return;
    }
    const QString actual = reply.value().path();
    if (actual == expected)
        return;
    // A portal from before tokens.
    if (key != m_keys.end())
        key->second.request = actual;
    else if (m_abandoned.removeAll(expected) > 0)
        m_abandoned.append(actual);
}

void PortalHotKeys::noteResponse(const QDBusMessage &message)
{
    const QString request = message.path();
    const QVariantList arguments = message.arguments();
    const bool isSuccess = !arguments.isEmpty() && arguments.front().toUInt() == kPortalSuccess;
    const auto results = qdbus_cast<QVariantMap>(arguments.value(1));
    const QString session = results.value(QStringLiteral("session_handle")).toString();
    if (m_abandoned.removeAll(request) > 0 && isSuccess)
        close(session, sessionInterface());
    const auto found = keyWith(&Key::request, request);
    if (found == m_keys.end())
        return;
    auto &[identifier, key] = *found;
    key.request.clear();
    if (!isSuccess)
        return fail(identifier, Failure::Refused);
    if (key.step == Key::Step::Binding) {
        if (!isBound(results, QString::number(identifier)))
            return fail(identifier, Failure::Refused);
        key.step = Key::Step::Bound;
        return;
    }
    key.session = session;
    if (!session.startsWith(portalPath()))
        return fail(identifier, Failure::Unavailable);
    bind(identifier, key);
}

void PortalHotKeys::noteActivated(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const auto key = keyWith(&Key::session, qdbus_cast<QDBusObjectPath>(arguments.value(0)).path());
    if (key != m_keys.end() && arguments.value(1).toString() == QString::number(key->first))
        m_calls.press(key->first);
}

void PortalHotKeys::noteClosed(const QDBusMessage &message)
{
    const auto key = keyWith(&Key::session, message.path());
    if (key == m_keys.end())
        return;
    key->second.session.clear(); // it need not be closed again
    fail(key->first, Failure::Unavailable);
}

// What a portal was asked and what it gave goes with it. One that is started by being asked is not a new one.
void PortalHotKeys::noteOwner(const QString &, const QString &before, const QString &after)
{
    for (auto &[identifier, key] : m_keys) {
        if (!before.isEmpty())
            key = Key{key.trigger, {}, {}, {}};
        if (!after.isEmpty() && key.step == Key::Step::Waiting)
            start(key);
    }
    if (!before.isEmpty())
        m_abandoned.clear();
}

void PortalHotKeys::noteDisconnected()
{
    while (!m_keys.empty())
        fail(m_keys.begin()->first, Failure::Unavailable);
}

void PortalHotKeys::fail(std::uint32_t identifier, Failure failure)
{
    closeAll(m_keys.at(identifier));
    m_keys.erase(identifier);
    m_calls.fail(identifier, failure);
}

void PortalHotKeys::closeAll(const Key &key) const
{
    if (key.step == Key::Step::Binding)
        close(key.request, requestInterface()); // takes the question to the user off the screen
    close(key.session, sessionInterface());
}

void PortalHotKeys::close(const QString &path, const QString &interface) const
{
    if (!path.startsWith(portalPath()))
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(portalService(), path, interface, QStringLiteral("Close"));
    call.setAutoStartService(false);
    m_bus.send(call);
}

PortalHotKeys::Keys::iterator PortalHotKeys::keyWith(QString Key::*path, const QString &value)
{
    if (value.isEmpty())
        return m_keys.end();
    return std::find_if(m_keys.begin(), m_keys.end(), [&](const auto &key) { return key.second.*path == value; });
}

} // namespace kerlune
