#include "Support/BackgroundThread.h"

#include <sys/resource.h>
#include <unistd.h>

namespace kerlune {

void becomeBackgroundThread()
{
    constexpr int kNice = 10; // 1 where another thread has 10: sched(7), "The nice value"
    static thread_local bool isInBackground = false;
    if (!isInBackground)
        setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNice); // of one thread alone: setpriority(2), "Bugs"
    isInBackground = true;
}

} // namespace kerlune
