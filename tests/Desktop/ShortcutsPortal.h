#pragma once

#include "MessageBus.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <optional>
#include <string>
#include <vector>

namespace kerlune {

struct BoundShortcut { // (sa{sv})
    QString identifier;
    QVariantMap properties;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const BoundShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.identifier << shortcut.properties;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, BoundShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.identifier >> shortcut.properties;
    argument.endStructure();
    return argument;
}

inline const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString kDesktop = QStringLiteral("/org/freedesktop/portal/desktop");
inline const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
inline const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
inline const QString kSession = QStringLiteral("org.freedesktop.portal.Session");

inline QString pathFor(const QString &kind, const QDBusMessage &message, const QString &token)
{
    QString sender = message.service().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/%2/%3/%4").arg(kDesktop, kind, sender, token);
}

inline QVariantMap optionsOf(const QDBusMessage &message)
{
    return qdbus_cast<QVariantMap>(message.arguments().constLast());
}

// The desktop's portal for shortcuts, with the user before it. It keeps what it is asked.
class ShortcutsPortal final : public QDBusVirtualObject {
public:
    struct Shortcut {
        std::string session;
        std::string identifier;
        std::string description;
        std::string trigger;
    };
    enum class Answers {
        AtOnce,
        BeforeReplying,   // to the call
        UnderAnotherPath, // as one does that knows no tokens
        WithAnError,
        Never,              // nor replies to the call
        WhenTheUserDecides, // by answer()
    };
    enum class Agreement { ToWhatWasAsked, ToAnotherShortcut, WithoutSayingToWhat };

    explicit ShortcutsPortal(const MessageBus &bus)
        : m_client(bus)
    {
        qDBusRegisterMetaType<BoundShortcut>();
        qDBusRegisterMetaType<QList<BoundShortcut>>();
        m_client.connection().registerVirtualObject(kDesktop, this, QDBusConnection::SubPath);
    }

    Answers answers = Answers::AtOnce;
    unsigned toCreating = 0; // response codes
    unsigned toBinding = 0;
    Agreement agreement = Agreement::ToWhatWasAsked;
    std::optional<QString> sessionHandle; // instead of a session's path

    const std::vector<Shortcut> &shortcuts() const { return m_shortcuts; } // of all sessions, in their order
    const std::vector<std::string> &closed() const { return m_closed; }
    int creations() const { return m_creations; }

    void leave() { m_client.connection().unregisterService(kService); }
    void comeBack()
    {
        m_client.connection().interface()->registerService(kService, QDBusConnectionInterface::DontQueueService,
                                                           QDBusConnectionInterface::AllowReplacement);
    }
    void replaceOther()
    {
        m_client.connection().interface()->registerService(kService, QDBusConnectionInterface::ReplaceExistingService);
    }
    void answer() { m_client.connection().send(*m_answer); } // the last question
    void activate(const std::string &session, const std::string &identifier)
    {
        send(kDesktop, kShortcuts, QStringLiteral("Activated"),
             {QVariant::fromValue(QDBusObjectPath(QString::fromStdString(session))), QString::fromStdString(identifier),
              QVariant::fromValue(quint64{1}), QVariantMap{}});
    }
    void closeSession(const std::string &session)
    {
        send(QString::fromStdString(session), kSession, QStringLiteral("Closed"), {QVariantMap{}});
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        m_program = message.service();
        if (message.member() == QLatin1StringView("Close"))
            m_closed.push_back(message.path().toStdString());
        else if (message.interface() != kShortcuts)
            return false;
        else if (answers == Answers::WithAnError)
            m_client.connection().send(message.createErrorReply(QDBusError::UnknownInterface, QStringLiteral("no")));
        else if (message.member() == QLatin1StringView("CreateSession"))
            createSession(message);
        else if (message.member() == QLatin1StringView("BindShortcuts"))
            bindShortcuts(message);
        return true;
    }

private:
    void createSession(const QDBusMessage &message)
    {
        ++m_creations;
        const QString token = optionsOf(message).value(QStringLiteral("session_handle_token")).toString();
        const QString session = sessionHandle.value_or(pathFor(QStringLiteral("session"), message, token));
        respond(message, toCreating, {{QStringLiteral("session_handle"), session}});
    }
    void bindShortcuts(const QDBusMessage &message)
    {
        const QVariantList arguments = message.arguments();
        if (message.signature() != QLatin1StringView("oa(sa{sv})sa{sv}"))
            return;
        const QString session = qdbus_cast<QDBusObjectPath>(arguments.at(0)).path();
        auto shortcuts = qdbus_cast<QList<BoundShortcut>>(arguments.at(1));
        for (const BoundShortcut &shortcut : shortcuts) {
            const auto text = [&](const QString &name) {
                return shortcut.properties.value(name).toString().toStdString();
            };
            m_shortcuts.push_back({session.toStdString(), shortcut.identifier.toStdString(),
                                   text(QStringLiteral("description")), text(QStringLiteral("preferred_trigger"))});
        }
        if (agreement == Agreement::ToAnotherShortcut)
            shortcuts.front().identifier = QStringLiteral("another");
        QVariantMap results;
        if (agreement != Agreement::WithoutSayingToWhat)
            results.insert(QStringLiteral("shortcuts"), QVariant::fromValue(shortcuts));
        respond(message, toBinding, results);
    }
    void respond(const QDBusMessage &message, unsigned code, const QVariantMap &results)
    {
        const QString token = answers == Answers::UnderAnotherPath
                                  ? QStringLiteral("t%1").arg(m_creations + static_cast<int>(m_shortcuts.size()))
                                  : optionsOf(message).value(QStringLiteral("handle_token")).toString();
        const QString path = pathFor(QStringLiteral("request"), message, token);
        QDBusMessage response =
            QDBusMessage::createTargetedSignal(m_program, path, kRequest, QStringLiteral("Response"));
        response.setArguments({QVariant::fromValue(code), results});
        m_answer = response;
        if (answers == Answers::Never)
            return;
        if (answers == Answers::BeforeReplying)
            answer();
        m_client.connection().send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        if (answers == Answers::AtOnce || answers == Answers::UnderAnotherPath)
            answer();
    }
    void send(const QString &path, const QString &interface, const QString &signal, const QVariantList &arguments)
    {
        QDBusMessage message = QDBusMessage::createTargetedSignal(m_program, path, interface, signal);
        message.setArguments(arguments);
        m_client.connection().send(message);
    }

    BusClient m_client;
    QString m_program; // the one that asked
    std::vector<Shortcut> m_shortcuts;
    std::vector<std::string> m_closed;
    std::optional<QDBusMessage> m_answer;
    int m_creations = 0;
};

} // namespace kerlune
