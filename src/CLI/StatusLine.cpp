#include "CLI/StatusLine.h"

#include <unistd.h>

#include <iostream>

namespace kerlune {

namespace {

constexpr const char *kWipeLine = "\r\x1b[K"; // ECMA-48, erase in line

} // namespace

StatusLine::StatusLine()
    : m_isTerminal(isatty(STDERR_FILENO) == 1)
{}

StatusLine::~StatusLine()
{
    if (m_isTerminal)
        std::cerr << kWipeLine << std::flush;
}

void StatusLine::show(std::string_view text)
{
    if (m_isTerminal)
        std::cerr << kWipeLine << text << std::flush;
}

} // namespace kerlune
