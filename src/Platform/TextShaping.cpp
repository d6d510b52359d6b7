#include "Platform/TextShaping.h"

#include "Support/CpuStopwatch.h"
#include "Support/Handle.h"

#include <hb-ot.h>
#include <hb.h>
#include <unicode/ubidi.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace kerlune {

namespace {

constexpr double kMostSize = 100'000;
constexpr int kUnitsPerFontUnit = 64; // variations keep their fractions

// Not Graphite, whose programs in the font cannot be interrupted, and which loses memory with broken fonts.
constexpr std::array<const char *, 3> kShapers{"ot", "fallback", nullptr};

struct Characters {
    std::vector<std::uint32_t> codes;
    std::vector<std::uint32_t> offsets; // in bytes of the text
};

// Characters from `first` on, before `last`.
struct Range {
    std::size_t first;
    std::size_t last;
};

bool isSpace(UChar32 character) // the line ends of Unicode's rules (UAX 14), and tabulators
{
    return (character >= 0x09 && character <= 0x0D) || character == 0x85 || character == 0x2028 || character == 0x2029;
}

bool isControl(UChar32 character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

Characters decoded(std::string_view text)
{
    Characters characters;
    std::size_t at = 0;
    while (at < text.size() && characters.codes.size() < kMostCharactersOfLine) {
        const std::size_t start = at;
        UChar32 character = 0;
        U8_NEXT_OR_FFFD(text, at, text.size(), character);
        if (character == '\r' && at < text.size() && text[at] == '\n')
            continue;
        if (isSpace(character))
            character = ' ';
        else if (isControl(character))
            continue;
        characters.codes.push_back(static_cast<std::uint32_t>(character));
        characters.offsets.push_back(static_cast<std::uint32_t>(start));
    }
    return characters;
}

// The script of each character. Common and inherited characters take that of the ones before them, at the start that of
// the ones after them.
std::vector<hb_script_t> scriptsOf(const std::vector<std::uint32_t> &codes)
{
    hb_unicode_funcs_t *unicode = hb_unicode_funcs_get_default();
    std::vector<hb_script_t> scripts(codes.size(), HB_SCRIPT_COMMON);
    hb_script_t current = HB_SCRIPT_COMMON;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const hb_script_t own = hb_unicode_script(unicode, codes[i]);
        const bool isReal = own != HB_SCRIPT_COMMON && own != HB_SCRIPT_INHERITED && own != HB_SCRIPT_UNKNOWN;
        if (isReal && current == HB_SCRIPT_COMMON)
            std::fill_n(scripts.begin(), i, own);
        if (isReal)
            current = own;
        scripts[i] = current;
    }
    return scripts;
}

struct DirectedRange {
    Range range;
    hb_direction_t direction;
};

// The ranges of one direction, from left to right.
std::vector<DirectedRange> directedRanges(const std::vector<std::uint32_t> &codes)
{
    std::vector<UChar> units;
    std::vector<std::size_t> characterOfUnit;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] > 0xFFFF)
            units.push_back(static_cast<UChar>(U16_LEAD(codes[i])));
        units.push_back(static_cast<UChar>(codes[i] > 0xFFFF ? U16_TRAIL(codes[i]) : codes[i]));
        characterOfUnit.resize(units.size(), i);
    }
    characterOfUnit.push_back(codes.size());

    const Handle<UBiDi, ubidi_close> bidi(ubidi_open());
    UErrorCode error = U_ZERO_ERROR;
    ubidi_setPara(bidi.get(), units.data(), static_cast<std::int32_t>(units.size()), UBIDI_DEFAULT_LTR, nullptr,
                  &error);
    const std::int32_t count = ubidi_countRuns(bidi.get(), &error);
    if (U_FAILURE(error))
        return {{{0, codes.size()}, HB_DIRECTION_LTR}};
    std::vector<DirectedRange> ranges;
    for (std::int32_t i = 0; i < count; ++i) {
        std::int32_t start = 0;
        std::int32_t length = 0;
        const bool isLeftToRight = ubidi_getVisualRun(bidi.get(), i, &start, &length) == UBIDI_LTR;
        ranges.push_back({{characterOfUnit[static_cast<std::size_t>(start)],
                           characterOfUnit[static_cast<std::size_t>(start) + static_cast<std::size_t>(length)]},
                          isLeftToRight ? HB_DIRECTION_LTR : HB_DIRECTION_RTL});
    }
    return ranges;
}

// Ranges of one script inside a range of one direction, from left to right.
std::vector<Range> scriptRanges(const DirectedRange &directed, const std::vector<hb_script_t> &scripts)
{
    std::vector<Range> ranges;
    for (std::size_t first = directed.range.first; first < directed.range.last;) {
        std::size_t last = first + 1;
        while (last < directed.range.last && scripts[last] == scripts[first])
            ++last;
        ranges.push_back({first, last});
        first = last;
    }
    if (directed.direction == HB_DIRECTION_RTL)
        std::reverse(ranges.begin(), ranges.end());
    return ranges;
}

// One for each axis: the default, the face's own or the one asked for, within the axis's limits.
std::vector<AxisValue> coordinatesOf(const FontFace &face, const std::vector<AxisValue> &askedFor)
{
    if (!face.isVariable())
        return {};
    unsigned count = hb_ot_var_get_axis_count(face.harfBuzz());
    std::vector<hb_ot_var_axis_info_t> axes(count);
    hb_ot_var_get_axis_infos(face.harfBuzz(), 0, &count, axes.data());
    std::vector<AxisValue> coordinates;
    for (const hb_ot_var_axis_info_t &axis : axes) {
        double value = axis.default_value;
        for (const auto *values : {&face.coordinates(), &askedFor}) {
            for (const AxisValue &other : *values) {
                if (other.axis == axis.tag && std::isfinite(other.value))
                    value = other.value;
            }
        }
        if (axis.min_value <= axis.max_value)
            value = std::clamp<double>(value, axis.min_value, axis.max_value);
        coordinates.push_back({axis.tag, value});
    }
    return coordinates;
}

// HarfBuzz sets no time limit of its own, but skips a lookup when it is told to.
hb_bool_t goesOn(hb_buffer_t *, hb_font_t *, const char *, void *stopwatch)
{
    return static_cast<const CpuStopwatch *>(stopwatch)->elapsed() < kMostTimeForLine ? 1 : 0;
}

// The characters of a face. HarfBuzz does not read the map of an old Macintosh face; ours is read when it finds
// nothing.
struct CharacterLookup {
    const FontFace &face;
    std::optional<CharacterMap> map = {};
};

hb_bool_t findGlyph(hb_font_t *font, void *lookup, hb_codepoint_t character, hb_codepoint_t *glyph, void *)
{
    if (hb_font_get_nominal_glyph(hb_font_get_parent(font), character, glyph) != 0)
        return 1;
    auto &[face, map] = *static_cast<CharacterLookup *>(lookup);
    if (!map)
        map = face.characterMap();
    *glyph = map->glyph(character);
    return *glyph != 0 ? 1 : 0;
}

hb_font_funcs_t *lookupFunctions()
{
    static const Handle<hb_font_funcs_t, hb_font_funcs_destroy> functions = [] {
        Handle<hb_font_funcs_t, hb_font_funcs_destroy> made(hb_font_funcs_create());
        hb_font_funcs_set_nominal_glyph_func(made.get(), findGlyph, nullptr, nullptr);
        hb_font_funcs_make_immutable(made.get());
        return made;
    }();
    return functions.get();
}

class Shaper final {
public:
    Shaper(const FontFace &face, const Characters &characters, const ShapingOptions &options, ShapedLine &line)
        : m_characters(characters)
        , m_line(line)
        , m_points(options.size / face.unitsPerEm() / kUnitsPerFontUnit)
        , m_lookup{face}
        , m_plainFont(hb_font_create(face.harfBuzz()))
        , m_buffer(hb_buffer_create())
    {
        const int scale = static_cast<int>(hb_face_get_upem(face.harfBuzz())) * kUnitsPerFontUnit;
        hb_font_set_scale(m_plainFont.get(), scale, scale);
        std::vector<hb_variation_t> variations;
        for (const AxisValue &coordinate : line.coordinates)
            variations.push_back({coordinate.axis, static_cast<float>(coordinate.value)});
        hb_font_set_variations(m_plainFont.get(), variations.data(), static_cast<unsigned>(variations.size()));
        m_font.reset(hb_font_create_sub_font(m_plainFont.get()));
        hb_font_set_funcs(m_font.get(), lookupFunctions(), &m_lookup, nullptr);
        for (const FeatureValue &feature : options.features)
            m_features.push_back({feature.feature, feature.value, HB_FEATURE_GLOBAL_START,
                                  static_cast<unsigned>(HB_FEATURE_GLOBAL_END)});
        if (!options.language.empty())
            m_language = hb_language_from_string(options.language.data(), static_cast<int>(options.language.size()));
    }

    // Appends the range's glyphs; false when they cost too much.
    bool append(const Range &range, hb_direction_t direction, hb_script_t script)
    {
        hb_buffer_t *buffer = m_buffer.get();
        hb_buffer_clear_contents(buffer);
        hb_buffer_add_utf32(buffer, m_characters.codes.data(), static_cast<int>(m_characters.codes.size()),
                            static_cast<unsigned>(range.first), static_cast<int>(range.last - range.first));
        hb_buffer_set_direction(buffer, direction);
        hb_buffer_set_script(buffer, script);
        hb_buffer_set_language(buffer, m_language);
        hb_buffer_set_flags(buffer, static_cast<hb_buffer_flags_t>(HB_BUFFER_FLAG_BOT | HB_BUFFER_FLAG_EOT));
        hb_buffer_set_message_func(buffer, goesOn, &m_stopwatch, nullptr);
        hb_shape_full(m_font.get(), buffer, m_features.data(), static_cast<unsigned>(m_features.size()),
                      kShapers.data());
        return hb_buffer_allocation_successful(buffer) != 0 && m_stopwatch.elapsed() < kMostTimeForLine &&
               m_line.glyphs.size() + hb_buffer_get_length(buffer) <= kMostGlyphsOfLine && (take(), true);
    }

private:
    void take()
    {
        unsigned count = 0;
        const hb_glyph_info_t *glyphs = hb_buffer_get_glyph_infos(m_buffer.get(), &count);
        const hb_glyph_position_t *positions = hb_buffer_get_glyph_positions(m_buffer.get(), &count);
        for (unsigned i = 0; i < count; ++i) {
            const hb_glyph_position_t &position = positions[i];
            const std::uint32_t cluster = m_characters.offsets[glyphs[i].cluster];
            m_line.glyphs.push_back({glyphs[i].codepoint, m_line.width + m_points * position.x_offset,
                                     m_points * position.y_offset, m_points * position.x_advance, cluster});
            m_line.width += m_points * position.x_advance;
            if (glyphs[i].codepoint == 0)
                m_line.missingClusters.push_back(cluster);
        }
    }

    CpuStopwatch m_stopwatch;
    const Characters &m_characters;
    ShapedLine &m_line;
    double m_points; // to HarfBuzz's unit
    CharacterLookup m_lookup;
    Handle<hb_font_t, hb_font_destroy> m_plainFont;
    Handle<hb_font_t, hb_font_destroy> m_font; // with our characters
    Handle<hb_buffer_t, hb_buffer_destroy> m_buffer;
    std::vector<hb_feature_t> m_features;
    hb_language_t m_language = HB_LANGUAGE_INVALID;
};

} // namespace

ShapedLine shape(const std::shared_ptr<const FontFace> &face, std::string_view text, const ShapingOptions &options)
{
    ShapedLine line{.size = options.size, .coordinates = coordinatesOf(*face, options.coordinates)};
    const Characters characters = decoded(text);
    if (face->unitsPerEm() == 0 || !(options.size > 0 && options.size <= kMostSize) || characters.codes.empty())
        return line;
    const std::vector<hb_script_t> scripts = scriptsOf(characters.codes);
    Shaper shaper(*face, characters, options, line);
    for (const DirectedRange &directed : directedRanges(characters.codes)) {
        for (const Range &range : scriptRanges(directed, scripts)) {
            if (!shaper.append(range, directed.direction, scripts[range.first]))
                return {.size = line.size, .coordinates = std::move(line.coordinates), .isTooCostly = true};
        }
    }
    auto &missing = line.missingClusters;
    std::sort(missing.begin(), missing.end());
    missing.erase(std::unique(missing.begin(), missing.end()), missing.end());
    return line;
}

} // namespace kerlune
