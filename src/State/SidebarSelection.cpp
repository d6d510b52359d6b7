#include "State/SidebarSelection.h"

#include "Support/Hash.h"

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

constexpr std::array<std::string_view, kAllFontClasses.size()> kClassKeys{"sans",   "serif",   "slab",       "mono",
                                                                          "script", "display", "decorative", "unknown"};

// The words of the selections; with a colon, a payload follows.
constexpr std::array<std::pair<Kind, std::string_view>, 13> kWords{{{Kind::classification, "class:"},
                                                                    {Kind::collection, "collection:"},
                                                                    {Kind::folder, "folder:"},
                                                                    {Kind::tag, "tag:"},
                                                                    {Kind::smart, "smart:"},
                                                                    {Kind::all, "all"},
                                                                    {Kind::favorites, "favorites"},
                                                                    {Kind::recents, "recents"},
                                                                    {Kind::variable, "variable"},
                                                                    {Kind::color, "color"},
                                                                    {Kind::duplicates, "duplicates"},
                                                                    {Kind::adobeFonts, "adobeFonts"},
                                                                    {Kind::googleFonts, "googleFonts"}}};

} // namespace

std::string_view classKey(FontClass fontClass)
{
    return kClassKeys[static_cast<std::size_t>(rawValue(fontClass))];
}

std::optional<FontClass> classFromKey(std::string_view key)
{
    const auto found = std::find(kClassKeys.begin(), kClassKeys.end(), key);
    return fontClassFromRawValue(found - kClassKeys.begin());
}

std::string selectionText(const SidebarSelection &selection)
{
    const auto word = std::find_if(kWords.begin(), kWords.end(),
                                   [&](const auto &candidate) { return candidate.first == selection.kind; });
    const std::string text(word->second);
    return selection.kind == Kind::classification ? text + std::string(classKey(selection.fontClass))
                                                  : text + selection.key;
}

std::optional<SidebarSelection> selectionFromText(std::string_view text)
{
    for (const auto &[kind, word] : kWords) {
        if (!word.ends_with(':')) {
            if (text == word)
                return SidebarSelection{kind};
            continue;
        }
        if (!text.starts_with(word) || text.size() == word.size())
            continue;
        const std::string_view payload = text.substr(word.size());
        if (kind != Kind::classification)
            return SidebarSelection{.kind = kind, .key = std::string(payload)};
        if (const auto fontClass = classFromKey(payload))
            return SidebarSelection{kind, *fontClass};
    }
    return std::nullopt;
}

} // namespace kerlune

std::size_t std::hash<kerlune::SidebarSelection>::operator()(const kerlune::SidebarSelection &selection) const
{
    kerlune::Hasher hasher;
    hasher.feed(static_cast<int>(selection.kind), kerlune::rawValue(selection.fontClass), selection.key);
    return hasher.value();
}
