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

    // From the environment; a variable that is unset, empty or not absolute takes its default below the home folder.
    static Directories fromEnvironment();
};

// What comes with the program: beside it in a build, and below the folder for shared data where it is installed.
std::filesystem::path resourcesFolder();
// Where DaVinci Resolve is, unless told otherwise.
std::filesystem::path usualResolveFolder();

// Where fonts lie. A folder need not exist.
std::filesystem::path userFontsFolder(const Directories &directories);   // the user's own fonts
std::filesystem::path sharedFontsFolder();                               // those that the administrator adds for all
std::filesystem::path managedLibrary(const Directories &directories);    // the files that Kerlune keeps itself
std::filesystem::path googleFontsFolder(const Directories &directories); // the fonts installed from Google Fonts
std::filesystem::path
activationLinksFolder(const Directories &directories); // links to active fonts, in userFontsFolder

} // namespace kerlune
