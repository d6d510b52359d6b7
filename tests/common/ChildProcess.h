#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <sys/prctl.h>

#include <csignal>
#include <stdexcept>

namespace kerlune {

// A program that says in its first line where it is to be reached. It ends with this object, or with the tests.
class ChildProcess final {
public:
    ChildProcess(const QString &program, const QStringList &arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_process.start(program, arguments, QIODevice::ReadOnly);
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead())
                throw std::runtime_error(program.toStdString() + " did not start");
        }
        m_address = m_process.readLine().trimmed();
    }
    ~ChildProcess() { end(); }
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    const QByteArray &address() const { return m_address; }
    void end()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.terminate();
        if (!m_process.waitForFinished(5'000)) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

private:
    QProcess m_process;
    QByteArray m_address;
};

} // namespace kerlune
