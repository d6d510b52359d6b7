#pragma once

#include "Platform/FontFace.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// What a face holds, for a map of its glyphs.

// Every character of the face with its glyph, in order; glyphs that the face does not have are left out.
// Thread: the face's.
std::vector<CharacterMap::Entry> readCharacters(const FontFace &face);

struct GlyphMeasures {
    struct Bounds {
        double left = 0;
        double bottom = 0;
        double right = 0;
        double top = 0;
    };

    double advance = 0;           // font units
    std::optional<Bounds> bounds; // font units, y upwards; absent when the glyph has no outline
};

// At a place in the design space: axes that are not named stay where the face has them.
// Thread: the face's.
GlyphMeasures measureGlyph(const std::shared_ptr<const FontFace> &face, std::uint32_t glyph,
                           const std::vector<AxisValue> &coordinates = {});

// The character's name in Unicode, such as "RIGHTWARDS ARROW"; a description such as "control-0009" where it has none.
// Thread: any.
std::string characterName(char32_t character);
// Whether something is to be seen of it: not of spaces, control characters and what Unicode has not assigned.
bool isGraphic(char32_t character);

} // namespace kerlune
