#pragma once

#include <cstdint>
#include <mutex>
#include <string>

namespace kerlune {

// One line on standard error that shows how far a work has come; nothing where standard error is no terminal. The
// line is wiped when the bar goes.
//
// Thread: any.
class ProgressBar final {
public:
    explicit ProgressBar(std::string label);
    ~ProgressBar();
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    void show(std::int64_t done, std::int64_t total); // a report that comes late is passed over

private:
    std::string m_label;
    bool m_isTerminal;
    std::mutex m_mutex;
    std::int64_t m_shown = -1;
};

} // namespace kerlune
