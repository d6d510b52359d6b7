#pragma once

#include <QEventLoop>
#include <QTimer>

#include <functional>

namespace kerlune {

// Runs the event loop until the condition holds; gives up after ten seconds and says so.
inline bool waitUntil(const std::function<bool()> &condition)
{
    QEventLoop loop;
    QTimer timer;
    int rounds = 0;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (condition() || ++rounds > 5'000)
            loop.quit();
    });
    timer.start(2);
    if (!condition())
        loop.exec();
    return condition();
}

} // namespace kerlune
