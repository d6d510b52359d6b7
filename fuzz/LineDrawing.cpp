// Shapes and draws a few lines in each face of a font file made of the fuzzer's bytes.

#include "Platform/LineDrawing.h"

#include "FuzzedFile.h"

#include <cstdint>
#include <string>

namespace {

constexpr std::uint32_t kMostFaces = 4;

// Drawing promises ink within the box that was measured.
void drawLine(kerlune::LineDrawing &drawing, const kerlune::ShapedLine &line, double scale)
{
    const kerlune::LinePlacement placement{.x = 10.25, .y = 40, .scale = scale};
    auto image = *kerlune::ColorImage::create(256, 64);
    const auto box = drawing.inkBox(line, placement);
    const auto outcome = drawing.draw(line, placement, {.red = 10, .green = 20, .blue = 30}, image);
    if (outcome == kerlune::LineDrawing::Outcome::Inked && !box)
        std::abort();
}

void drawFace(const std::string &path, std::uint32_t faceIndex)
{
    const auto face = kerlune::FontFace::open({path, faceIndex, 0, {}});
    const auto drawing = face ? kerlune::LineDrawing::create(*face) : tl::unexpected(face.error());
    if (!drawing)
        return;
    for (const char *text : {"Kerlune fi", "بيت אב", "कि 中文", "😀👩‍🚀🇫🇷"}) {
        const auto line = kerlune::shape(*face, text, {.size = 30, .coordinates = {{kerlune::tag("wght"), 650}}});
        drawLine(**drawing, line, 1);
    }
    drawLine(**drawing, kerlune::shape(*face, "Abc", {.size = 30, .features = {{kerlune::tag("smcp"), 1}}}), 40);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const std::string &path = kerlune::fuzzedFile(bytes, size);
    for (std::uint32_t i = 0; i < kMostFaces; ++i)
        drawFace(path, i);
    return 0;
}
