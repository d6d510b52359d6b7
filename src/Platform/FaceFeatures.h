#pragma once

#include "Platform/FontFace.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// One OpenType feature of a face, whatever its scripts and languages.
struct FaceFeature {
    Tag tag = 0;
    bool substitutes = false;                 // it stands in 'GSUB'
    bool positions = false;                   // it stands in 'GPOS'
    bool isOnByDefault = false;               // shaping applies it without being asked
    std::uint32_t alternates = 1;             // the highest value that makes a difference
    std::optional<std::string> ownName = {};  // the font's, for stylistic sets and character variants
    std::vector<std::string> valueNames = {}; // the font's, of the values from 1 on

    bool operator==(const FaceFeature &) const = default;
};

// In the order of their tags.
// Thread: the face's.
std::vector<FaceFeature> readFeatures(const FontFace &face);

// For display: the registered name of the feature (OpenType, Registered Features); empty when it is not registered.
std::string featureLabel(Tag feature);

bool isFeatureOnByDefault(Tag feature);

} // namespace kerlune
