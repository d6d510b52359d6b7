#pragma once

#include "Platform/FrontApplication.h"

#include <memory>

namespace kerlune {

// That of the X server where DISPLAY names one, under Wayland too: it knows the programs that go through it. Else one
// that never changes.
//
// Thread: main.
std::unique_ptr<FrontApplication> linuxFrontApplication();

} // namespace kerlune
