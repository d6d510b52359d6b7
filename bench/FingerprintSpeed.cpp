// Fingerprints per second on all cores, over the faces that fontconfig offers, warm cache, against the bare FreeType
// work that they need: opening the file, loading six letters, and eight drawings of 128 × 128 pixels. Prints the rates
// and their ratio.

#include "Identify/Fingerprint.h"
#include "MedianReporter.h"
#include "Support/Handle.h"
#include "Support/ParallelFor.h"
#include "SystemFaces.h"

#include <benchmark/benchmark.h>
#include <ft2build.h>

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

namespace {

using namespace kerlune;

constexpr std::size_t kRounds = 20; // over the machine's faces: they are few

// Those that have a fingerprint.
std::vector<FontDescriptor> measurableFaces()
{
    std::vector<FontDescriptor> faces;
    for (const FontDescriptor &descriptor : systemFaces()) {
        const auto face = FontFace::open(descriptor);
        if (face && Fingerprint::compute(*face))
            faces.push_back(descriptor);
    }
    return faces;
}

const std::vector<FontDescriptor> &faces()
{
    static const std::vector<FontDescriptor> all = measurableFaces();
    return all;
}

void draw(FT_Library library, FT_Outline outline, const FT_BBox &box, double side)
{
    std::array<unsigned char, std::size_t{128} * 128> pixels{};
    const auto width = static_cast<double>(box.xMax - box.xMin);
    const auto height = static_cast<double>(box.yMax - box.yMin);
    const double scale = std::min(side / width, side / height);
    std::vector<FT_Vector> points(outline.points, outline.points + outline.n_points);
    outline.points = points.data();
    for (FT_Vector &point : points)
        point = {static_cast<FT_Pos>((static_cast<double>(point.x - box.xMin) * scale + 10) * 64),
                 static_cast<FT_Pos>((static_cast<double>(point.y - box.yMin) * scale + 10) * 64)};
    FT_Bitmap bitmap{};
    bitmap.width = bitmap.rows = 128;
    bitmap.pitch = 128;
    bitmap.buffer = pixels.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    FT_Outline_Get_Bitmap(library, &outline, &bitmap);
    benchmark::DoNotOptimize(pixels);
}

void drawBare(const FontDescriptor &descriptor)
{
    thread_local const Handle<FT_LibraryRec_, FT_Done_FreeType> library = [] {
        FT_Library made = nullptr;
        FT_Init_FreeType(&made);
        return Handle<FT_LibraryRec_, FT_Done_FreeType>(made);
    }();
    FT_Face opened = nullptr;
    if (FT_New_Face(library.get(), descriptor.path.c_str(), static_cast<FT_Long>(descriptor.faceIndex), &opened) != 0)
        return;
    const Handle<FT_FaceRec_, FT_Done_Face> face(opened);
    FT_Set_Pixel_Sizes(opened, opened->units_per_EM, opened->units_per_EM);
    for (const char letter : {'a', 'e', 'g', 'n', 'o', 'R'}) {
        FT_BBox box{};
        if (FT_Load_Char(opened, static_cast<FT_ULong>(letter), FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0 ||
            FT_Outline_Get_BBox(&opened->glyph->outline, &box) != 0 || box.xMax == box.xMin || box.yMax == box.yMin)
            continue;
        draw(library.get(), opened->glyph->outline, box, 102.4);
        if (letter == 'n' || letter == 'o')
            draw(library.get(), opened->glyph->outline, box, 108.8);
    }
}

void measure(const FontDescriptor &descriptor)
{
    const auto face = FontFace::open(descriptor);
    benchmark::DoNotOptimize(Fingerprint::compute(*face));
}

template <void (*Work)(const FontDescriptor &)>
void onAllCores(benchmark::State &state)
{
    for (auto _ : state) {
        parallelForRanges(faces().size() * kRounds, [](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i != last; ++i)
                Work(faces()[i % faces().size()]);
        });
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (faces().empty()) {
        std::puts("no face of the system has a fingerprint");
        return 1;
    }
    registerBenchmark("bare", onAllCores<drawBare>);
    registerBenchmark("fingerprints", onAllCores<measure>);
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto rate = [&](const char *name) {
        return 1000.0 * static_cast<double>(faces().size() * kRounds) / reporter.median(name);
    };
    std::printf("%zu faces: %.0f fingerprints/s, bare %.0f, ratio %.2f (goal: at least 0.60)\n", faces().size(),
                rate("fingerprints"), rate("bare"), rate("fingerprints") / rate("bare"));
    return 0;
}
