#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThreadPool>
#include <QTimer>

#include <chrono>
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

// Lets coroutines that still wait for something come to their end.
inline void finishBackgroundWork()
{
    for (int round = 0; round < 20; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Runs the event loop for that long: for what must not happen.
inline void letPass(std::chrono::milliseconds time)
{
    const QDeadlineTimer deadline(time);
    while (!deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
}

} // namespace kerlune
