#pragma once

#include "CLI/Commands.h"

#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace kerlune {

// The options of `kerlune capture` as they were typed. An empty text counts as not given.
struct CaptureOptions {
    std::string output = {};
    std::string size = {};
    std::string scale = {};
    std::string selection = {};
    std::string view = {};
    std::vector<std::string> families = {};
    std::string panel = {};
    std::string theme = {};
    std::string language = {};
    std::string search = {};
    std::string text = {};
    std::string previewSize = {};
    bool settings = false;
};

// The options must live as long as the app parses.
void addCaptureOptions(CLI::App &app, CaptureOptions &options);

int runCaptureCommand(const CommandContext &context, const CaptureOptions &options);
int runOpenCommand(const CommandContext &context, const std::vector<std::string> &paths);

} // namespace kerlune
