// Lists the faces of a font file made of the fuzzer's bytes, and reads a record and some outlines from each.

#include "FuzzedFile.h"
#include "Model/FontIndexer.h"
#include "Platform/Font.h"
#include "Platform/FontMetrics.h"

#include <cstdint>
#include <cstdio>
#include <string>

namespace {

constexpr std::size_t kMostFaces = 8;

// Reading promises text that can be stored, and a value for every field.
void check(const kerlune::FontRecord &record)
{
    if (record.postScriptName.empty() || record.glyphCount < 0 || record.cssWeight() < 100 || record.cssWeight() > 900)
        std::abort();
}

void readFace(const kerlune::FontDescriptor &descriptor)
{
    if (const auto record = kerlune::FontIndexer::extract(descriptor))
        check(*record);
    const auto face = kerlune::FontFace::open(descriptor);
    const auto font = face ? kerlune::Font::create(*face, 96) : tl::unexpected(face.error());
    if (!font)
        return;
    auto image = kerlune::CoverageImage::create(128, 128);
    for (const char32_t character : {U'I', U'g', U'é', U'中'})
        (*font)->draw((*font)->glyph(character), {}, *image);
    for (const std::uint32_t glyph : {1U, 2U, 3U})
        (*font)->boundingBox(glyph);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const auto fonts = kerlune::fontsOfFile(kerlune::fuzzedFile(bytes, size)).fonts;
    for (std::size_t i = 0; i < fonts.size() && i < kMostFaces; ++i)
        readFace(fonts[i]);
    return 0;
}
