#pragma once

#include "Model/FontClass.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace kerlune {

class CoverageImage;
class Font;
class FontFace;

// Gives a face its class: from its pitch, its coverage, words of its family's name, its OpenType family class and,
// where nothing else tells, from a drawing of its capital I.
//
// Thread: any; each face on one thread at a time.
namespace Classifier {

// What the rules look at before anything is drawn.
struct Features {
    std::string family;
    bool isMonospace = false; // the trait or PANOSE says so
    std::uint64_t scriptMask = 0;
    std::int64_t glyphCount = 0;
    std::uint32_t symbolicTraits = 0; // see FontTraits
};

FontClass classify(const Features &features, const std::shared_ptr<const FontFace> &face);

// Whether a lower-case name holds one of the words.
bool matches(std::string_view name, std::span<const std::string_view> words);

// From the capital I, drawn at 96 points: how much wider its foot or head is than its stem.
FontClass measuredClass(const Font &font);

// The mask of a face that covers basic Latin and nothing else.
std::uint64_t latinOnlyMask();

} // namespace Classifier

} // namespace kerlune
