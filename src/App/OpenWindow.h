#pragma once

#include <string>
#include <vector>

namespace kerlune {

struct ProgramParts;

// Opens the window, or raises that of a process that has it open already, and runs until it is closed. Gives the exit
// status.
int openWindow(const ProgramParts &parts, const std::vector<std::string> &paths);

} // namespace kerlune
