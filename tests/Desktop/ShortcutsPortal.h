#pragma once

#include "MessageBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

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

    explicit ShortcutsPortal(const MessageBus &bus);

    Answers answers = Answers::AtOnce;
    unsigned toCreating = 0; // response codes
    unsigned toBinding = 0;
    Agreement agreement = Agreement::ToWhatWasAsked;
    std::optional<QString> sessionHandle; // instead of a session's path

    const std::vector<Shortcut> &shortcuts() const { return m_shortcuts; } // of all sessions, in their order
    const std::vector<std::string> &closed() const { return m_closed; }
    int creations() const { return m_creations; }

    void leave();
    void comeBack();
    void replaceOther();
    void answer(); // the last question
    void activate(const std::string &session, const std::string &identifier);
    void closeSession(const std::string &session);

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void createSession(const QDBusMessage &message);
    void bindShortcuts(const QDBusMessage &message);
    void respond(const QDBusMessage &message, unsigned code, const QVariantMap &results);
    void send(const QString &path, const QString &interface, const QString &signal, const QVariantList &arguments);

    BusClient m_client;
    QString m_program; // the one that asked
    std::vector<Shortcut> m_shortcuts;
    std::vector<std::string> m_closed;
    std::optional<QDBusMessage> m_answer;
    int m_creations = 0;
};

} // namespace kerlune
