#include "Model/Classifier.h"

#include "Model/FontTraits.h"
#include "Model/ScriptCoverage.h"
#include "Platform/Font.h"
#include "Support/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace kerlune::Classifier {

namespace {

using Words = std::span<const std::string_view>;

// The trailing spaces of "pen " and "pi " belong to the words: they match "Open Sans" and not "Pencil".
constexpr std::array<std::string_view, 11> kScriptWords{"script",  "hand",   "brush", "signature", "calligr", "cursive",
                                                        "written", "marker", "pen ",  "ink",       "chalk"};
constexpr std::array<std::string_view, 4> kSlabWords{"slab", "clarendon", "rockwell", "courier"};
constexpr std::array<std::string_view, 4> kMonoWords{"mono", "code", "console", "terminal"};
constexpr std::array<std::string_view, 10> kDisplayWords{"display", "poster", "headline", "titling", "deco",
                                                         "stencil", "shadow", "outline",  "inline",  "3d"};
constexpr std::array<std::string_view, 9> kDecorativeWords{"dingbat",  "ornament", "symbol", "icon", "emoji",
                                                           "wingding", "pi ",      "bats",   "picto"};
constexpr std::array<std::string_view, 18> kSerifWords{
    "serif",    "times",        "garamond", "georgia",    "baskerville", "caslon",  "bodoni", "didot",  "minion",
    "palatino", "book antiqua", "cambria",  "constantia", "utopia",      "charter", "sabon",  "jenson", "bembo"};
constexpr std::array<std::string_view, 18> kSansWords{
    "sans",   "grotesk", "grotesque", "gothic", "helvetica",  "arial",   "futura", "univers", "frutiger",
    "avenir", "inter",   "roboto",    "lato",   "montserrat", "poppins", "nunito", "manrope", "neue haas"};

std::optional<FontClass> classFromName(const std::string &family)
{
    const std::string name = lowercased(family);
    if (matches(name, kScriptWords))
        return FontClass::script;
    if (matches(name, kSlabWords))
        return FontClass::slab;
    if (matches(name, kMonoWords))
        return FontClass::mono;
    if (matches(name, kDisplayWords))
        return FontClass::display;
    if (matches(name, kDecorativeWords))
        return FontClass::decorative;
    if (matches(name, kSerifWords))
        return name.find("sans") == std::string::npos ? FontClass::serif : FontClass::sans;
    if (matches(name, kSansWords))
        return FontClass::sans;
    return std::nullopt;
}

// OpenType OS/2, sFamilyClass, IBM Font Class.
std::optional<FontClass> classFromFamilyClass(std::uint32_t familyClass)
{
    switch (familyClass) {
    case 1: // old-style serifs
    case 2: // transitional serifs
    case 3: // modern serifs
    case 7: // free-form serifs
        return FontClass::serif;
    case 4: // Clarendon serifs
    case 5: // slab serifs
        return FontClass::slab;
    case 8:
        return FontClass::sans;
    case 10:
        return FontClass::script;
    case 9:  // ornamentals
    case 12: // symbolic
        return FontClass::decorative;
    default:
        return std::nullopt;
    }
}

// Ink is what is darker than middle grey when drawn in black on white.
std::size_t inkOfRow(const CoverageImage &image, std::uint32_t row)
{
    const auto pixels = image.row(row);
    return static_cast<std::size_t>(
        std::count_if(pixels.begin(), pixels.end(), [](std::uint8_t coverage) { return 255 - coverage < 128; }));
}

FontClass classFromCapitalI(const CoverageImage &image)
{
    std::vector<std::size_t> ink;
    for (std::uint32_t row = 0; row < image.height(); ++row)
        ink.push_back(inkOfRow(image, row));
    const auto isInk = [](std::size_t count) { return count > 0; };
    const auto first = std::find_if(ink.begin(), ink.end(), isInk);
    if (first == ink.end())
        return FontClass::unknown;
    const auto top = static_cast<std::size_t>(first - ink.begin());
    const auto bottom =
        ink.size() - 1 - static_cast<std::size_t>(std::find_if(ink.rbegin(), ink.rend(), isInk) - ink.rbegin());
    if (bottom - top < 13)
        return FontClass::unknown;

    const std::size_t edge = std::max(ink[top + 1], ink[bottom - 1]); // one row inside the anti-aliased ends
    const std::size_t stem = ink[(top + bottom) / 2];
    if (stem == 0)
        return FontClass::unknown;
    const double ratio = static_cast<double>(edge) / static_cast<double>(stem);
    if (ratio > 2.2)
        return FontClass::serif;
    return ratio > 1.35 ? FontClass::slab : FontClass::sans;
}

} // namespace

FontClass classify(const Features &features, const std::shared_ptr<const FontFace> &face)
{
    constexpr std::int64_t kFewGlyphs = 150;
    if (features.isMonospace)
        return FontClass::mono;
    if (features.scriptMask == 0)
        return FontClass::decorative;
    if (const auto named = classFromName(features.family))
        return *named;
    if (features.glyphCount < kFewGlyphs && features.scriptMask == latinOnlyMask())
        return FontClass::display;
    if (const auto declared = classFromFamilyClass(features.symbolicTraits >> FontTraits::kFamilyClassShift))
        return *declared;
    const auto font = Font::create(face, 96);
    return font ? measuredClass(**font) : FontClass::unknown;
}

bool matches(std::string_view name, Words words)
{
    return std::any_of(words.begin(), words.end(),
                       [name](std::string_view word) { return name.find(word) != std::string_view::npos; });
}

FontClass measuredClass(const Font &font)
{
    const std::uint32_t glyph = font.glyph(U'I');
    auto image = CoverageImage::create(96, 128);
    if (glyph == 0 || !image)
        return FontClass::unknown;
    const double scale = 96 / font.size(); // whatever size the font is opened at
    font.draw(glyph, {.scale = scale, .x = 20, .y = 24}, *image);
    return classFromCapitalI(*image);
}

std::uint64_t latinOnlyMask()
{
    static const std::uint64_t mask = ScriptCoverage::bit("latin").value_or(1);
    return mask;
}

} // namespace kerlune::Classifier
