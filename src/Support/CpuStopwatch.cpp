#include "Support/CpuStopwatch.h"

#include <ctime>

namespace kerlune {

namespace {

std::chrono::nanoseconds threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

CpuStopwatch::CpuStopwatch()
    : m_start(threadTime())
{}

std::chrono::nanoseconds CpuStopwatch::elapsed() const
{
    return threadTime() - m_start;
}

} // namespace kerlune
