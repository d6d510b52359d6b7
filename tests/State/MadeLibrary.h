#pragma once

#include "State/GlyphCoverage.h"
#include "State/VisibleFamilies.h"

#include <functional>
#include <string>
#include <vector>

namespace kerlune {

// A face with the name "Family-Style", changed as the test wants it.
inline FontRecordPointer madeFace(
    const std::string &family, const std::string &style,
    const std::function<void(FontRecord &)> &change = [](FontRecord &) {})
{
    FontRecord record;
    record.family = family;
    record.style = style;
    record.postScriptName = family + "-" + style;
    record.filePath = "/polices/" + record.postScriptName + ".ttf";
    change(record);
    return std::make_shared<const FontRecord>(record);
}

// Families with their faces as a test compares them: "Family: Style Style".
inline std::vector<std::string> described(const std::vector<FontFamilyPointer> &families)
{
    std::vector<std::string> texts;
    for (const FontFamilyPointer &family : families) {
        std::string text = family->name + ":";
        for (const FontRecordPointer &face : family->faces)
            text += " " + face->style;
        texts.push_back(text);
    }
    return texts;
}

// A library and what a user made of it, without an event loop.
struct MadeLibrary {
    explicit MadeLibrary(std::vector<FontRecordPointer> records)
        : library(makeLibrary(std::move(records)))
    {}

    std::vector<std::string> visible(const Filters &filters, const SidebarSelection &selection = {})
    {
        return described(
            visibleFamilies(filters, selection,
                            {library, favorites, recents, collectionMembers, tags, smartCollections, folders, glyphs}));
    }

    LoadedLibrary library;
    std::set<std::string> favorites = {};
    std::vector<std::string> recents = {};
    std::map<std::string, std::set<std::string>> collectionMembers = {};
    TagsByFamily tags = {};
    std::vector<SmartCollection> smartCollections = {};
    std::vector<WatchedFolder> folders = {};
    GlyphCoverage glyphs;
};

} // namespace kerlune
