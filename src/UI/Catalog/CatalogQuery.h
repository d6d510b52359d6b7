#pragma once

#include "Catalogs/GoogleFontFamily.h"

#include <set>
#include <string>
#include <vector>

namespace kerlune {

enum class CatalogOrder { popularity, trending, newest, name };

// Which families of the Google catalogue are listed, and how they are ordered.
struct CatalogQuery {
    std::string search = {};   // in names and designers; neither case nor diacritics count
    std::string category = {}; // as the service names it; empty for all
    CatalogOrder order = CatalogOrder::popularity;
    bool onlyVariable = false;
    bool onlyInstalled = false;

    bool isNarrowed() const { return *this != CatalogQuery{.order = order}; }
    bool operator==(const CatalogQuery &) const = default;
};

// Families of the same rank or day are ordered by name.
//
// Thread: any.
GoogleFamilies listed(const GoogleFamilies &catalog, const std::set<std::string> &installed, const CatalogQuery &query);

// The categories that the catalogue has, the largest first.
std::vector<std::string> categoriesOf(const GoogleFamilies &catalog);

} // namespace kerlune
