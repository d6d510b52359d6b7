#pragma once

#include "Platform/FontFace.h"

#include <string>
#include <vector>

namespace kerlune {

// One axis of a face's design space (OpenType 'fvar', VariationAxisRecord).
struct VariationAxis {
    Tag tag = 0;
    std::string name = {}; // as the font has it; may be empty
    double minimum = 0;
    double standard = 0; // between the other two
    double maximum = 0;
    bool isHidden = false; // the font's maker would rather not have it shown

    bool operator==(const VariationAxis &) const = default;
};

struct VariationInstance {
    std::string name = {}; // may be empty
    std::vector<AxisValue> coordinates = {};

    bool operator==(const VariationInstance &) const = default;
};

// The design space of a face: what can be set, and the places in it that have a name.
struct FaceAxes {
    std::vector<VariationAxis> axes = {};
    std::vector<VariationInstance> instances = {};

    bool operator==(const FaceAxes &) const = default;

    const VariationAxis *find(Tag tag) const; // nullptr when there is none
};

// Without axes when the face has none. Of the instances, those that can be read in half a second of processor time,
// and with at most 1 MiB of names.
// Thread: the face's.
FaceAxes readAxes(const FontFace &face);

// For display: the registered name of a registered axis, else the font's own, else the tag.
std::string axisLabel(const VariationAxis &axis);

std::string tagText(Tag tag); // four characters; what is not printable ASCII becomes "?"

} // namespace kerlune
