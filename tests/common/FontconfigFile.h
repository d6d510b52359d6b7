#pragma once

#include "TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <string>

namespace kerlune {

// Writes a fontconfig file that offers just these folders; its cache lies beside it.
inline std::filesystem::path writeFontconfigFile(const TempFolder &home,
                                                 std::initializer_list<std::filesystem::path> folders)
{
    std::string xml = R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd"><fontconfig>)";
    for (const auto &folder : folders)
        xml += "<dir>" + folder.string() + "</dir>";
    xml += "<cachedir>" + (home / "fontconfig-cache").string() + "</cachedir></fontconfig>";
    writeFile(home / "fonts.conf", xml);
    return home / "fonts.conf";
}

} // namespace kerlune
