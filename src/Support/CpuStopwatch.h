#pragma once

#include <chrono>

namespace kerlune {

// Measures the processor time that the calling thread spends, so that waiting for a slow disk or for a turn does not
// count.
//
// Thread: started and read on one and the same thread.
class CpuStopwatch final {
public:
    CpuStopwatch();
    std::chrono::nanoseconds elapsed() const;

private:
    std::chrono::nanoseconds m_start;
};

} // namespace kerlune
