#include "CLI/ProgressBar.h"

#include "Support/Localization.h"

#include <utility>

namespace kerlune {

namespace {

constexpr std::int64_t kCells = 24;

} // namespace

ProgressBar::ProgressBar(std::string label)
    : m_label(std::move(label))
{
    m_line.show(m_label + "…");
}

void ProgressBar::show(std::int64_t done, std::int64_t total)
{
    const std::lock_guard lock(m_mutex);
    if (!m_line.isShown() || done <= m_shown || total <= 0)
        return;
    m_shown = done;
    std::string cells;
    for (std::int64_t i = 0; i < kCells; ++i)
        cells += i * total < done * kCells ? "▓" : "░";
    m_line.show(m_label + ' ' + groupedDigits(done) + " / " + groupedDigits(total) + ' ' + cells);
}

} // namespace kerlune
