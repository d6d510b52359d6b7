#pragma once

#include "ChildProcess.h"

#include <QtGlobal>

namespace kerlune {

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
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    void end() { m_process.end(); }

private:
    ChildProcess m_process;
};

} // namespace kerlune
