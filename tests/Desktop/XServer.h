#pragma once

#include "ChildProcess.h"

#include <QAbstractEventDispatcher>
#include <QtGlobal>

namespace kerlune {

// Whether the event loop has nothing more to do, as it must when a connection has been lost.
inline bool comesToRest()
{
    constexpr int kMany = 1'000;
    for (int round = 0; round < kMany; ++round) {
        if (!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents))
            return true;
    }
    return false;
}

// An X server without a screen on a display that was free; DISPLAY names it.
class XServer final {
public:
    XServer()
        : m_process(QStringLiteral("Xvfb"),
                    {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-nolisten"),
                     QStringLiteral("tcp"), QStringLiteral("-noreset"), QStringLiteral("-screen"), QStringLiteral("0"),
                     QStringLiteral("640x480x24")})
    {
        qputenv("DISPLAY", ":" + m_process.address());
    }
    ~XServer() { qunsetenv("DISPLAY"); }

    // Its display may be another server's next, so that DISPLAY names one that nobody has.
    void end()
    {
        m_process.end();
        qputenv("DISPLAY", ":59999");
    }

private:
    ChildProcess m_process;
};

} // namespace kerlune
