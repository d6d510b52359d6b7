#include "CLI/ProgressBar.h"

#include "Support/Localization.h"

#include <unistd.h>

#include <iostream>
#include <utility>

namespace kerlune {

namespace {

constexpr std::int64_t kCells = 24;
constexpr const char *kWipeLine = "\r\x1b[K"; // ECMA-48, erase in line

} // namespace

ProgressBar::ProgressBar(std::string label)
    : m_label(std::move(label))
    , m_isTerminal(isatty(STDERR_FILENO) == 1)
{
    if (m_isTerminal)
        std::cerr << kWipeLine << m_label << "…" << std::flush;
}

ProgressBar::~ProgressBar()
{
    if (m_isTerminal)
        std::cerr << kWipeLine << std::flush;
}

void ProgressBar::show(std::int64_t done, std::int64_t total)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isTerminal || done <= m_shown || total <= 0)
        return;
    m_shown = done;
    std::string cells;
    for (std::int64_t i = 0; i < kCells; ++i)
        cells += i * total < done * kCells ? "▓" : "░";
    std::cerr << kWipeLine << m_label << ' ' << groupedDigits(done) << " / " << groupedDigits(total) << ' ' << cells
              << std::flush;
}

} // namespace kerlune
