#pragma once

#include "Platform/FileEventStream.h"

namespace kerlune {

// Tells of nothing: a command is too short to follow anything.
class NoEvents final : public FileEventStream {
public:
    void start(std::vector<Tree>) override {}
    void stop() override {}
};

} // namespace kerlune
