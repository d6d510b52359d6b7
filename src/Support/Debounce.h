#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace kerlune {

// Does something once a while has passed in which nobody asked for it again.
//
// Thread: main.
class Debounce final {
public:
    Debounce(std::chrono::milliseconds delay, const std::function<void()> &action);

    void trigger(); // the delay begins anew
    void trigger(std::chrono::milliseconds delay);
    void cancel();

private:
    QTimer m_timer;
};

} // namespace kerlune
