#include "UI/Catalog/CatalogQuery.h"

#include "Support/Text.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace kerlune {

namespace {

bool isFound(const GoogleFontFamily &family, const std::string &foldedSearch)
{
    if (foldedSearch.empty())
        return true;
    std::string text = folded(family.shownName()) + "\n" + folded(family.family);
    for (const std::string &designer : family.designers)
        text += "\n" + folded(designer);
    return text.find(foldedSearch) != std::string::npos;
}

struct Ranked {
    std::int64_t rank; // the smallest first
    std::string date;  // the latest first
    std::string name;  // as names sort
    const GoogleFontFamily *family;

    bool operator<(const Ranked &other) const
    {
        return std::tie(rank, other.date, name) < std::tie(other.rank, date, other.name);
    }
};

} // namespace

GoogleFamilies listed(const GoogleFamilies &catalog, const std::set<std::string> &installed, const CatalogQuery &query)
{
    const std::string search = folded(trimmed(query.search));
    const NameCollator collator;
    std::vector<Ranked> found;
    for (const GoogleFontFamily &family : catalog) {
        const bool isWanted = (query.category.empty() || family.category == query.category) &&
                              (!query.onlyVariable || family.isVariable) &&
                              (!query.onlyInstalled || installed.contains(family.family)) && isFound(family, search);
        if (!isWanted)
            continue;
        const std::int64_t rank = query.order == CatalogOrder::popularity ? family.popularity
                                  : query.order == CatalogOrder::trending ? family.trending
                                                                          : 0;
        found.push_back({rank, query.order == CatalogOrder::newest ? family.dateAdded : std::string(),
                         collator.sortKey(family.shownName()), &family});
    }
    std::stable_sort(found.begin(), found.end());
    GoogleFamilies families;
    families.reserve(found.size());
    for (const Ranked &ranked : found)
        families.push_back(*ranked.family);
    return families;
}

std::vector<std::string> categoriesOf(const GoogleFamilies &catalog)
{
    std::map<std::string, int> counts;
    for (const GoogleFontFamily &family : catalog) {
        if (!family.category.empty())
            ++counts[family.category];
    }
    std::vector<std::pair<std::string, int>> bySize(counts.begin(), counts.end());
    std::stable_sort(bySize.begin(), bySize.end(), [](const auto &a, const auto &b) { return a.second > b.second; });
    std::vector<std::string> categories;
    categories.reserve(bySize.size());
    for (auto &[category, count] : bySize)
        categories.push_back(std::move(category));
    return categories;
}

} // namespace kerlune
