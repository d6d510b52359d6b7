#pragma once

#include "CLI/Commands.h"

namespace kerlune {

// Runs the command that the arguments name, on the main thread. Results go to standard output, messages and progress
// to standard error.
// Returns the exit status: 0 done, 1 failed, 2 wrong usage.
int runCommandLine(int argc, const char *const *argv, const CommandContext &context);

} // namespace kerlune
