#pragma once

#include "Platform/FontFace.h"

#include <memory>

namespace kerlune {

// Metrics of a face at its place in its design space, as fractions of the em.
struct FontMetrics {
    double ascent = 0;
    double descent = 0; // positive below the baseline
    double xHeight = 0;
    double capHeight = 0;
};

// Heights that the face does not state are those of its x and H as they are drawn; 0 where it has neither.
// Thread: the face's.
FontMetrics readMetrics(const std::shared_ptr<const FontFace> &face);

} // namespace kerlune
