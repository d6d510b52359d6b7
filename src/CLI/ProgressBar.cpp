#include "CLI/ProgressBar.h"

#include "Support/Localization.h"

#include <utility>

namespace kerlune {

namespace {

constexpr int kCells = 24;

std::string cells(double fraction)
{
    std::string text;
    for (int i = 0; i < kCells; ++i)
        text += i < fraction * kCells ? "▓" : "░";
    return text;
}

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
    m_line.show(m_label + ' ' + groupedDigits(done) + " / " + groupedDigits(total) + ' ' +
                cells(static_cast<double>(done) / static_cast<double>(total)));
}

std::string withProgressCells(const std::string &text, double fraction)
{
    return fraction > 0 && fraction < 1 ? text + ' ' + cells(fraction) : text;
}

} // namespace kerlune
