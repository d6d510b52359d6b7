#pragma once

#include "Model/FontClass.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kerlune {

// What the sidebar has selected.
struct SidebarSelection {
    enum class Kind {
        classification, // families of one class
        collection,     // members of a collection
        folder,         // families from one watched folder
        tag,            // families that carry a tag
        smart,          // what the filters of a smart collection select
        all,
        favorites,
        recents,
        variable,
        color,
        duplicates, // PostScript names that more than one face has
        adobeFonts, // a catalogue's own view
        googleFonts,
    };

    Kind kind = Kind::all;
    FontClass fontClass = FontClass::unknown; // classification only
    std::string key = {};                     // of collection, folder and smart the id, of tag its name; else empty

    bool operator==(const SidebarSelection &) const = default;
};

// The stable word for a class: "sans", "serif", …
std::string_view classKey(FontClass fontClass);
std::optional<FontClass> classFromKey(std::string_view key);

// A selection as it is written on the command line: "all", "class:serif", "tag:Projet A", …
std::string selectionText(const SidebarSelection &selection);
std::optional<SidebarSelection> selectionFromText(std::string_view text);

} // namespace kerlune

template <>
struct std::hash<kerlune::SidebarSelection> {
    std::size_t operator()(const kerlune::SidebarSelection &selection) const;
};
