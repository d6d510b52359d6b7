#pragma once

#include "Platform/Directories.h"

#include <QLocalServer>
#include <QObject>
#include <QStringList>

#include <chrono>

namespace kerlune {

// One window for each library: a second start hands its paths to the first one.
//
// Thread: main. Waits for the other process, for no longer than is given.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Role {
        First,  // this process is the one
        Second, // another one is, and has been told
        Alone,  // nothing could be agreed on: this one runs by itself
    };

    explicit SingleInstance(const Directories &directories,
                            std::chrono::milliseconds longestWait = std::chrono::seconds(3), QObject *parent = nullptr);

    Role begin(const QStringList &paths);

Q_SIGNALS:
    void asked(const QStringList &paths); // another process was started with these

private:
    bool tell(const QStringList &paths) const;
    bool isAbandoned() const;
    void answer();

    QString m_socket;
    int m_longestWait; // milliseconds
    QLocalServer m_server;
};

} // namespace kerlune
