#pragma once

#include "Model/FontRecord.h"
#include "Platform/FaceAxes.h"
#include "Platform/TextShaping.h"

#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// Style sheets for a face (CSS Fonts Module Level 4, CSS Syntax Module Level 3), UTF-8, each line ended by "\n".
//
// Thread: any.

// A quoted string. What is not UTF-8 becomes U+FFFD, as does U+0000.
std::string cssString(std::string_view text);

struct CssFace {
    struct Range {
        double first = 0;
        double last = 0; // as large as first or larger
    };

    std::string family = {};
    std::string fileName = {}; // as it would lie beside the style sheet
    bool isItalic = false;
    Range slant = {};           // degrees to the right, of upright faces that lean
    Range weight = {400, 400};  // 1…1000
    Range stretch = {100, 100}; // percent
    double ownWeight = 400;     // of the instance that the face is
    double ownStretch = 100;
};

// `space` is that of a variable face: it covers ranges then.
CssFace cssFace(const FontRecord &record, const FaceAxes &space = {});

// The declarations that choose the face, such as font-family: "Inter"; of a range the value nearest to the standard.
std::string cssDeclarations(const CssFace &face, const std::vector<FeatureValue> &features = {},
                            const std::vector<AxisValue> &coordinates = {});
std::string cssFontFaceRule(const CssFace &face);

// One declaration; empty without values.
std::string cssVariationSettings(const std::vector<AxisValue> &coordinates);
std::string cssFeatureSettings(const std::vector<FeatureValue> &features);

} // namespace kerlune
