#pragma once

#include "Platform/FontFace.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kerlune {

// A font that make_fonts.py made for the tests.
inline std::string testFont(const std::string &name)
{
    return std::string(KERLUNE_TEST_FONTS) + "/" + name;
}

// A font of a Debian package that the tests need.
inline std::string systemFont(const std::string &nameBelowFonts)
{
    return "/usr/share/fonts/" + nameBelowFonts;
}

inline std::shared_ptr<const FontFace> openFace(const std::string &path, std::uint32_t faceIndex = 0,
                                                std::uint32_t instanceIndex = 0)
{
    const auto face = FontFace::open({path, faceIndex, instanceIndex, {}});
    if (!face)
        throw std::runtime_error(path + ": " + describe(face.error()));
    return *face;
}

} // namespace kerlune
