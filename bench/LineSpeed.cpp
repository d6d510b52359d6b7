// Lines of 13 characters per second, each in another face that fontconfig offers, at 34 points and two pixels to the
// point, warm cache, one thread: opening the face, shaping and drawing, against bare FreeType that opens the same file
// and renders the same glyphs. A second pair of numbers leaves the opening out. Prints the rates and their ratios.

#include "MedianReporter.h"
#include "Platform/LineDrawing.h"
#include "Support/Handle.h"
#include "SystemFaces.h"

#include <benchmark/benchmark.h>
#include <ft2build.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include FT_FREETYPE_H

namespace {

using namespace kerlune;

constexpr std::string_view kText = "Hamburgefonts";
constexpr double kSize = 34;
constexpr double kScale = 2;
constexpr auto kPixelSize = static_cast<FT_UInt>(kSize * kScale);

struct Sample {
    FontDescriptor descriptor;
    std::shared_ptr<const FontFace> face;
    std::unique_ptr<LineDrawing> drawing;
    std::vector<std::uint32_t> glyphs;
    Handle<FT_FaceRec_, FT_Done_Face> bare = {};
};

FT_Library library()
{
    static const Handle<FT_LibraryRec_, FT_Done_FreeType> opened = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return Handle<FT_LibraryRec_, FT_Done_FreeType>(made);
    }();
    return opened.get();
}

Handle<FT_FaceRec_, FT_Done_Face> openBare(const FontDescriptor &descriptor)
{
    FT_Face face = nullptr;
    if (FT_New_Face(library(), descriptor.path.c_str(), static_cast<FT_Long>(descriptor.faceIndex), &face) == 0)
        FT_Set_Pixel_Sizes(face, kPixelSize, kPixelSize);
    return Handle<FT_FaceRec_, FT_Done_Face>(face);
}

// The faces that have all characters of the text, by outlines.
std::vector<Sample> systemSamples()
{
    std::vector<Sample> samples;
    for (const FontDescriptor &descriptor : systemFaces()) {
        const auto face = FontFace::open(descriptor);
        if (!face)
            continue;
        const ShapedLine line = shape(*face, kText, {.size = kSize});
        auto drawing = LineDrawing::create(*face);
        auto bare = openBare(descriptor);
        if (!drawing || !line.missingClusters.empty() || !bare || !FT_IS_SCALABLE(bare.get()))
            continue;
        Sample sample{descriptor, *face, std::move(*drawing), {}, std::move(bare)};
        for (const ShapedGlyph &glyph : line.glyphs)
            sample.glyphs.push_back(glyph.glyph);
        samples.push_back(std::move(sample));
    }
    return samples;
}

std::vector<Sample> &samples()
{
    static std::vector<Sample> all = systemSamples();
    return all;
}

void drawLine(const std::shared_ptr<const FontFace> &face, LineDrawing &drawing)
{
    auto image = ColorImage::create(640, 100);
    const ShapedLine line = shape(face, kText, {.size = kSize});
    benchmark::DoNotOptimize(drawing.draw(line, {.x = 10, .y = 75, .scale = kScale}, {}, *image));
}

void renderBare(FT_Face face, const std::vector<std::uint32_t> &glyphs)
{
    for (const std::uint32_t glyph : glyphs)
        benchmark::DoNotOptimize(FT_Load_Glyph(face, glyph, FT_LOAD_RENDER | FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP));
}

template <typename Draw>
void drawAll(benchmark::State &state, Draw &&draw)
{
    for (auto _ : state) {
        for (Sample &sample : samples())
            draw(sample);
    }
}

void openAndDraw(Sample &sample)
{
    const auto face = FontFace::open(sample.descriptor);
    const auto drawing = LineDrawing::create(*face);
    drawLine(*face, **drawing);
}

} // namespace

int main(int argc, char **argv)
{
    if (samples().empty()) {
        std::puts("no face of the system has the characters of the line");
        return 1;
    }
    registerBenchmark("bare", [](benchmark::State &state) {
        drawAll(state, [](Sample &sample) { renderBare(openBare(sample.descriptor).get(), sample.glyphs); });
    });
    registerBenchmark("lines", [](benchmark::State &state) { drawAll(state, openAndDraw); });
    registerBenchmark("bare, opened", [](benchmark::State &state) {
        drawAll(state, [](Sample &sample) { renderBare(sample.bare.get(), sample.glyphs); });
    });
    registerBenchmark("lines, opened", [](benchmark::State &state) {
        drawAll(state, [](Sample &sample) { drawLine(sample.face, *sample.drawing); });
    });
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto rate = [&](const char *name) {
        return 1000.0 * static_cast<double>(samples().size()) / reporter.median(name);
    };
    std::printf("%zu faces: %.0f lines/s, bare %.0f, ratio %.2f; opened before: %.0f lines/s, bare %.0f, ratio %.2f\n",
                samples().size(), rate("lines"), rate("bare"), rate("lines") / rate("bare"), rate("lines, opened"),
                rate("bare, opened"), rate("lines, opened") / rate("bare, opened"));
    return 0;
}
