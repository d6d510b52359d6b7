#pragma once

#include "CLI/StatusLine.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace kerlune {

// Shows on the status line how far a work has come.
//
// Thread: any.
class ProgressBar final {
public:
    explicit ProgressBar(std::string label);

    void show(std::int64_t done, std::int64_t total); // a report that comes late is passed over

private:
    std::string m_label;
    StatusLine m_line;
    std::mutex m_mutex;
    std::int64_t m_shown = -1;
};

// The text, and behind it cells that say how much is done; none at the beginning and the end.
std::string withProgressCells(const std::string &text, double fraction);

} // namespace kerlune
