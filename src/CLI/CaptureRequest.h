#pragma once

#include "State/AppState.h"
#include "State/Preferences.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// A picture of the window, as `kerlune capture` is asked for it.
struct CaptureRequest {
    std::filesystem::path output;
    int width = 1280; // logical pixels
    int height = 800;
    double scale = 1;           // device pixels to a logical one
    std::string selection = {}; // as it was written: what it names is known once the library is read
    ViewMode view = ViewMode::grid;
    std::vector<std::string> families = {}; // selected ones
    std::optional<std::string> panel = {};  // one of WindowCommands::panels
    Appearance theme = Appearance::light;
    InterfaceLanguage language = InterfaceLanguage::french;
    std::string search = {};
    std::optional<std::string> text = {};
    std::optional<double> previewSize = {}; // points
    bool settings = false;                  // the settings window in place of the main one
};

} // namespace kerlune
