#pragma once

#include "Platform/FrontApplication.h"

namespace kerlune {

// For sessions that do not tell their programs which of them is in front.
class NoFrontApplication final : public FrontApplication {
public:
    Program current() const override { return {}; }
    std::vector<Program> programs() const override { return {}; }
    void observe(Changed) override {}
};

} // namespace kerlune
