#pragma once

#include "Model/FontFamily.h"
#include "State/Filters.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

class GlyphCoverage;
class SearchIndex;

using TagsByFamily = std::map<std::string, std::set<std::string>>;

enum class SearchText { Included, LeftOut };

// What the filters look up beside the families themselves.
struct FilterSources {
    const SearchIndex &searchIndex;
    const TagsByFamily &tags;
    GlyphCoverage &glyphs;
};

// The families that the filters let through, in the order given; one may come back with fewer faces.
//
// Thread: any; reads font files where glyphs are required.
std::vector<FontFamilyPointer> apply(const Filters &filters, std::vector<FontFamilyPointer> families,
                                     const FilterSources &sources, SearchText searchText);

// Each family with the faces that are kept; those left with none are dropped. A family that keeps all is not copied.
// `isKept` is called on all cores.
std::vector<FontFamilyPointer> narrowedFaces(const std::vector<FontFamilyPointer> &families,
                                             const std::function<bool(const FontRecord &)> &isKept);

} // namespace kerlune
