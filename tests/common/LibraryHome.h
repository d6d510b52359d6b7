#pragma once

#include "Events.h"
#include "FcList.h"
#include "FontconfigFile.h"
#include "Library/ActivationManager.h"
#include "Library/FolderLibrary.h"
#include "Platform/Linux/FontLinks.h"
#include "Platform/Linux/LinuxFontRegistry.h"
#include "Platform/Linux/ProcessFonts.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <QCoreApplication>
#include <nlohmann/json.hpp>

namespace kerlune {

// A home of its own with real fontconfig and files.
template <typename Application>
class LibraryHomeOf : public testing::Test {
protected:
    LibraryHomeOf() { setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {m_home / "data/fonts"}).c_str(), 1); }
    ~LibraryHomeOf() override
    {
        unsetenv("FONTCONFIG_FILE");
        finishBackgroundWork();
    }

    static Directories directoriesBelow(const std::filesystem::path &home)
    {
        return {home, home / "data", home / "data/Kerlune", home / "cache", home / "config"};
    }

    std::filesystem::path stateFile(const std::string &name) const { return m_directories.applicationSupport / name; }
    nlohmann::json readJson(const std::string &name) const { return nlohmann::json::parse(readFile(stateFile(name))); }

    // A copy of a test font below the home; gives its path.
    std::string put(const std::string &name, const std::string &font = "plain.ttf") const
    {
        const std::filesystem::path path = m_home / name;
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::copy_file(testFont(font), path);
        return path;
    }

    // Copies of test fonts among those of the system.
    void offer(std::initializer_list<const char *> fonts) const
    {
        for (const char *font : fonts)
            put(std::string("data/fonts/") + font, font);
    }

    std::vector<std::string> linked() const { return FontLinks(activationLinksFolder(m_directories)).paths(); }

    int m_argc = 0;
    Application m_application{m_argc, nullptr};
    TempFolder m_home;
    Directories m_directories = directoriesBelow(std::filesystem::canonical(m_home.path()));
    std::shared_ptr<ProcessFonts> m_processFonts = std::make_shared<ProcessFonts>();
    LinuxFontRegistry m_registry{m_processFonts, activationLinksFolder(m_directories)};
};

using LibraryHome = LibraryHomeOf<QCoreApplication>;

} // namespace kerlune
