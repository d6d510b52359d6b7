#include "Identify/Fingerprint.h"

#include "Model/FontTraits.h"
#include "Platform/CoverageImage.h"
#include "Platform/Font.h"
#include "Platform/FontCatalog.h"
#include "Platform/FontMetrics.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numeric>

namespace kerlune::Fingerprint {

namespace {

constexpr std::array<std::string_view, kGlyphs> kLetters{"a", "e", "g", "n", "o", "R"};
constexpr std::size_t kLeastLetters = 4;
constexpr float kMetricWeight = 2.5F;

constexpr std::uint32_t kCanvas = 128; // pixels, width and height
constexpr double kGridBox = 102.4;     // pixels, of the drawing on the canvas
constexpr double kInkRunBox = 108.8;
constexpr std::uint32_t kCellPixels = 10; // the last eight rows and columns are margin and do not count
constexpr int kLeastInk = 129;            // coverage of 255

constexpr std::array kStemFractions{0.25, 0.5, 0.75};

std::uint32_t glyphOf(const Font &font, std::string_view character)
{
    if (character.empty())
        return 0;
    UChar32 first = 0;
    std::size_t position = 0;
    U8_NEXT(character.data(), position, character.size(), first);
    return first < 0 || first > 0xFFFF ? 0 : font.glyph(static_cast<char32_t>(first));
}

// The glyph centred on the canvas, as large as fits into a box of this side.
std::optional<CoverageImage> drawn(const Font &font, std::uint32_t glyph, double side)
{
    const auto box = glyph == 0 ? std::nullopt : font.boundingBox(glyph);
    if (!box || box->width <= 0.5 || box->height <= 0.5)
        return std::nullopt;
    const double scale = std::min(side / box->width, side / box->height);
    const GlyphPlacement placement{scale, (kCanvas - box->width * scale) / 2 - box->x * scale,
                                   (kCanvas - box->height * scale) / 2 - box->y * scale};
    auto canvas = CoverageImage::create(kCanvas, kCanvas);
    return canvas && font.draw(glyph, placement, *canvas) ? std::move(canvas) : std::nullopt;
}

Grid gridOf(const CoverageImage &image)
{
    std::array<std::uint32_t, kGridCells> sums{};
    for (std::uint32_t y = 0; y < kGridSide * kCellPixels; ++y) {
        const auto row = image.row(y);
        for (std::uint32_t column = 0; column < kGridSide; ++column) {
            const auto cell = row.subspan(std::size_t{column} * kCellPixels, kCellPixels);
            sums[y / kCellPixels * kGridSide + column] += std::accumulate(cell.begin(), cell.end(), 0U);
        }
    }
    Grid grid{};
    constexpr double kFull = 255.0 * kCellPixels * kCellPixels;
    std::transform(sums.begin(), sums.end(), grid.begin(),
                   [](std::uint32_t sum) { return static_cast<float>(sum / kFull); });
    return grid;
}

// Empty where there is no ink.
std::vector<int> runsOf(const CoverageImage &image, double fraction)
{
    const auto row = static_cast<std::uint32_t>(std::clamp(fraction * kCanvas, 0.0, kCanvas - 1.0));
    std::vector<int> runs;
    bool wasInk = false;
    for (const std::uint8_t coverage : image.row(row)) {
        const bool isInk = coverage >= kLeastInk;
        if (isInk && !wasInk)
            runs.push_back(0);
        if (isInk)
            ++runs.back();
        wasInk = isInk;
    }
    return runs;
}

StemExtremes extremesOf(const CoverageImage &image, double capHeight)
{
    std::vector<int> runs;
    for (const double fraction : kStemFractions) {
        const std::vector<int> row = runsOf(image, fraction);
        runs.insert(runs.end(), row.begin(), row.end());
    }
    if (runs.empty())
        return {};
    const auto [thin, thick] = std::minmax_element(runs.begin(), runs.end());
    return {*thick / capHeight, *thin / capHeight};
}

double meanOf(const Grid &grid)
{
    return std::accumulate(grid.begin(), grid.end(), 0.0) / static_cast<double>(kGridCells);
}

struct Measures {
    double xHeight = 0; // points
    double ascent = 0;
    double descent = 0;
    double capHeight = 0;
    double slantAngle = 0; // degrees
};

Measures measure(const std::shared_ptr<const FontFace> &face)
{
    const FontMetrics metrics = readMetrics(face);
    return {metrics.xHeight * kFontSize, metrics.ascent * kFontSize, metrics.descent * kFontSize,
            metrics.capHeight * kFontSize, slantAngle(*face)};
}

double contrastOf(const StemExtremes &stems)
{
    return stems.thin > 0.001 ? std::min(stems.thick / stems.thin, 6.0) / 6 : 0;
}

std::array<double, kMetrics> metricsOf(const Font &font, const Measures &measures, const std::optional<Grid> &gridOfO)
{
    const double cap = measures.capHeight;
    const auto n = drawn(font, glyphOf(font, "n"), kInkRunBox);
    const std::vector<int> runs = n ? runsOf(*n, 0.5) : std::vector<int>();
    const double stem = runs.empty() ? 0 : *std::min_element(runs.begin(), runs.end());
    const auto o = drawn(font, glyphOf(font, "o"), kInkRunBox);
    return {measures.xHeight / cap,
            measures.ascent / cap,
            measures.descent / cap,
            stem / cap * 4,
            o ? contrastOf(extremesOf(*o, cap)) : 0,
            measures.slantAngle / 30,
            std::min(advance(font, "n") / cap, 2.0) * 0.5,
            gridOfO ? meanOf(*gridOfO) : 0};
}

} // namespace

std::optional<Vector> compute(const FontCatalog &catalog, const std::string &postScriptName)
{
    const auto descriptor = catalog.findFont(postScriptName);
    const auto face = descriptor ? FontFace::open(*descriptor) : tl::unexpected(FontError::NotFound);
    return face ? compute(*face) : std::nullopt;
}

// Each letter is drawn once for its grid, "n" and "o" once more for their stems.
std::optional<Vector> compute(const std::shared_ptr<const FontFace> &face)
{
    if (face->glyphCount() < 1)
        return std::nullopt;
    const auto font = Font::create(face, kFontSize);
    const Measures measures = measure(face);
    if (!font || !(measures.capHeight > 1))
        return std::nullopt;

    Vector vector;
    vector.reserve(kLength);
    std::size_t letters = 0;
    std::optional<Grid> gridOfO;
    for (const std::string_view letter : kLetters) {
        const auto grid = renderNormalized(**font, letter);
        letters += grid ? 1 : 0;
        const Grid cells = grid.value_or(Grid{});
        vector.insert(vector.end(), cells.begin(), cells.end());
        if (letter == "o")
            gridOfO = grid;
    }
    if (letters < kLeastLetters)
        return std::nullopt;
    for (const double metric : metricsOf(**font, measures, gridOfO)) {
        const float weighted = static_cast<float>(metric) * kMetricWeight;
        vector.push_back(std::isfinite(weighted) ? weighted : 0);
    }
    return l2Normalized(std::move(vector));
}

std::optional<Grid> renderNormalized(const Font &font, std::string_view character)
{
    const auto image = drawn(font, glyphOf(font, character), kGridBox);
    return image ? std::optional(gridOf(*image)) : std::nullopt;
}

std::optional<std::vector<int>> horizontalInkRuns(const Font &font, std::string_view character, double fraction)
{
    const auto image = drawn(font, glyphOf(font, character), kInkRunBox);
    auto runs = image ? runsOf(*image, fraction) : std::vector<int>();
    return runs.empty() ? std::nullopt : std::optional(std::move(runs));
}

StemExtremes stemExtremes(const Font &font, std::string_view character, double capHeight)
{
    const auto image = drawn(font, glyphOf(font, character), kInkRunBox);
    return image ? extremesOf(*image, capHeight) : StemExtremes();
}

double advance(const Font &font, std::string_view character)
{
    const std::uint32_t glyph = glyphOf(font, character);
    return glyph == 0 ? 0 : font.advance(glyph);
}

double roundness(const Font &font, std::string_view character)
{
    const auto grid = renderNormalized(font, character);
    return grid ? meanOf(*grid) : 0;
}

Vector l2Normalized(Vector vector)
{
    const float norm = std::sqrt(std::accumulate(vector.begin(), vector.end(), 0.0F,
                                                 [](float sum, float value) { return sum + value * value; }));
    if (norm > 0.0001F)
        std::transform(vector.begin(), vector.end(), vector.begin(), [norm](float value) { return value / norm; });
    return vector;
}

Vector decode(std::span<const std::uint8_t> bytes)
{
    Vector vector(bytes.size() / sizeof(float));
    if (!vector.empty())
        std::memcpy(vector.data(), bytes.data(), vector.size() * sizeof(float));
    return vector;
}

} // namespace kerlune::Fingerprint
