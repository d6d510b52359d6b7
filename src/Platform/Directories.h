#pragma once

#include <filesystem>

namespace kerlune {

// Where the program keeps its files: the XDG base directories of freedesktop.org. None of them is created here.
struct Directories {
    std::filesystem::path home;
    std::filesystem::path userLibrary;        // $XDG_DATA_HOME
    std::filesystem::path applicationSupport; // the index and the user's own data
    std::filesystem::path caches;             // what can be made again
    std::filesystem::path configuration;      // settings

    // Below the user library: fonts that were moved into Kerlune's keeping, families installed from Google Fonts, and
    // the links to active fonts, in a folder that every program's fonts come from.
    std::filesystem::path managedLibrary() const { return userLibrary / "Kerlune/Library"; }
    std::filesystem::path googleFonts() const { return userLibrary / "Kerlune/Google Fonts"; }
    std::filesystem::path activationLinks() const { return userLibrary / "fonts/Kerlune"; }

    // From the environment; a variable that is unset, empty or not absolute takes its default below the home folder.
    static Directories fromEnvironment();
};

} // namespace kerlune
