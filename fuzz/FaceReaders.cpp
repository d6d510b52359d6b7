// Reads the characters, features and axes of each face of a font file made of the fuzzer's bytes.

#include "FuzzedFile.h"
#include "Platform/FaceAxes.h"
#include "Platform/FaceContents.h"
#include "Platform/FaceFeatures.h"

#include <cstdint>
#include <string>

namespace {

constexpr std::uint32_t kMostFaces = 4;

void readFace(const std::string &path, std::uint32_t faceIndex)
{
    const auto face = kerlune::FontFace::open({path, faceIndex, 0, {}});
    if (!face)
        return;
    const auto characters = kerlune::readCharacters(**face);
    const auto map = (*face)->characterMap();
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const bool isInOrder = i == 0 || characters[i - 1].character < characters[i].character;
        if (!isInOrder || map.glyph(characters[i].character) != characters[i].glyph)
            std::abort();
    }
    if (!characters.empty())
        kerlune::measureGlyph(*face, characters.back().glyph, {{kerlune::tag("wght"), 650}});
    kerlune::readFeatures(**face);
    for (const auto &axis : kerlune::readAxes(**face).axes) {
        if (!(axis.minimum <= axis.standard && axis.standard <= axis.maximum))
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const std::string &path = kerlune::fuzzedFile(bytes, size);
    for (std::uint32_t i = 0; i < kMostFaces; ++i)
        readFace(path, i);
    return 0;
}
