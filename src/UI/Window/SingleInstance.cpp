#include "UI/Window/SingleInstance.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>

namespace kerlune {

namespace {

constexpr qint64 kMostBytes = 1 << 20;

// Short: a socket's path may have some hundred bytes.
QString socketPath(const Directories &directories)
{
    const QByteArray folder = QByteArray::fromStdString(directories.applicationSupport.native());
    const QByteArray hash = QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().left(16);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/kerlune-") +
           QString::fromLatin1(hash);
}

} // namespace

SingleInstance::SingleInstance(const Directories &directories, std::chrono::milliseconds longestWait, QObject *parent)
    : QObject(parent)
    , m_socket(socketPath(directories))
    , m_longestWait(static_cast<int>(longestWait.count()))
{
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::answer);
}

// The lock keeps two starts at once from taking each other's socket for an abandoned one.
SingleInstance::Role SingleInstance::begin(const QStringList &paths)
{
    QLockFile lock(m_socket + QStringLiteral(".lock"));
    if (!lock.tryLock(m_longestWait))
        return Role::Alone;
    if (m_server.listen(m_socket))
        return Role::First;
    if (tell(paths))
        return Role::Second;
    // One that is busy still has its socket, and keeps it.
    if (isAbandoned() && QFile::remove(m_socket) && m_server.listen(m_socket))
        return Role::First;
    return Role::Alone;
}

bool SingleInstance::isAbandoned() const
{
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    return !socket.waitForConnected(m_longestWait) && socket.error() == QLocalSocket::ConnectionRefusedError;
}

bool SingleInstance::tell(const QStringList &paths) const
{
    QLocalSocket socket;
    socket.connectToServer(m_socket);
    if (!socket.waitForConnected(m_longestWait))
        return false;
    socket.write(QJsonDocument(QJsonArray::fromStringList(paths)).toJson(QJsonDocument::Compact) + '\n');
    return socket.waitForBytesWritten(m_longestWait) && socket.waitForReadyRead(m_longestWait);
}

void SingleInstance::answer()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto read = [this, socket] {
            if (socket->bytesAvailable() > kMostBytes)
                socket->abort();
            if (!socket->canReadLine())
                return;
            QStringList paths;
            const QJsonArray words = QJsonDocument::fromJson(socket->readLine()).array();
            std::transform(words.begin(), words.end(), std::back_inserter(paths),
                           [](const QJsonValue &word) { return word.toString(); });
            socket->write("ok\n");
            socket->disconnectFromServer();
            Q_EMIT asked(paths);
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        read();
    }
}

} // namespace kerlune
