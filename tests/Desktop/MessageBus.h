#pragma once

#include "ChildProcess.h"
#include "TempFolder.h"

#include <QDBusConnection>

#include <memory>
#include <string>

namespace kerlune {

// A message bus of the tests' own.
class MessageBus final {
public:
    // The service is one that the bus starts when it is called; what runs then does not become that service by itself.
    explicit MessageBus(const std::string &startedService = {})
    {
        if (!startedService.empty())
            writeFile(m_folder / "services/started.service",
                      "[D-BUS Service]\nName=" + startedService + "\nExec=/bin/sleep 5\n");
        writeFile(m_folder / "bus.conf",
                  "<busconfig><type>session</type><listen>unix:path=" + (m_folder / "bus").string() +
                      "</listen><servicedir>" + (m_folder / "services").string() +
                      "</servicedir><policy context='default'><allow send_destination='*'/><allow own='*'/><allow "
                      "eavesdrop='true'/></policy>"
                      "</busconfig>");
        m_process = std::make_unique<ChildProcess>(
            QStringLiteral("dbus-daemon"),
            QStringList{QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                        QStringLiteral("--config-file=%1").arg(QString::fromStdString(m_folder / "bus.conf"))});
    }

    QString address() const { return QString::fromLatin1(m_process->address()); }
    void end() { m_process->end(); }

private:
    TempFolder m_folder;
    std::unique_ptr<ChildProcess> m_process;
};

// A program's connection to it.
class BusClient final {
public:
    explicit BusClient(const MessageBus &bus)
        : m_name(QStringLiteral("client %1").arg(++s_count))
        , m_connection(QDBusConnection::connectToBus(bus.address(), m_name))
    {}
    ~BusClient() { QDBusConnection::disconnectFromBus(m_name); }
    BusClient(const BusClient &) = delete;
    BusClient &operator=(const BusClient &) = delete;

    QDBusConnection &connection() { return m_connection; }

private:
    inline static int s_count = 0;

    QString m_name;
    QDBusConnection m_connection;
};

} // namespace kerlune
