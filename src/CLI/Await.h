#pragma once

#include <QCoreApplication>
#include <QCoroTask>

#include <utility>

namespace kerlune {

// Runs the event loop until an operation has ended.
template <typename T>
T await(QCoro::Task<T> task)
{
    struct Cleaning {
        ~Cleaning() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    } const cleaning; // futures that were awaited are deleted by the event loop, which may not run again
    return QCoro::waitFor(std::move(task));
}

} // namespace kerlune
