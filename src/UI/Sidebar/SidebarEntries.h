#pragma once

#include "State/AppState.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// The groups of the sidebar, from top to bottom.
enum class SidebarGroup { library, classes, folders, collections, smart, tags, catalogs };

inline constexpr std::array kAllSidebarGroups{SidebarGroup::library,     SidebarGroup::classes, SidebarGroup::folders,
                                              SidebarGroup::collections, SidebarGroup::smart,   SidebarGroup::tags,
                                              SidebarGroup::catalogs};

std::string label(SidebarGroup group);                // for display
std::string_view sidebarGroupKey(SidebarGroup group); // stable, for the settings

// A line below the head of a group.
struct SidebarEntry {
    SidebarSelection selection = {};
    std::string name = {};
    const char *icon = "";
    std::optional<std::int64_t> count = {}; // of families
    std::string path = {};                  // of folders
    bool isMissing = false;                 // a folder that is not there
    bool isFixed = false;                   // a folder that cannot be removed
    bool isHint = false;                    // stands in an empty group and says what the group is for

    bool operator==(const SidebarEntry &) const = default;
    bool isSameLine(const SidebarEntry &other) const { return isHint == other.isHint && selection == other.selection; }
    bool canBeRenamed() const;
};

// What the entries are made of and the state does not hold.
struct SidebarFolders {
    std::map<std::string, std::int64_t> counts = {}; // of families, by folder id
    std::set<std::string> missing = {};              // ids
};

std::vector<SidebarEntry> sidebarEntries(SidebarGroup group, const AppState &state, const SidebarFolders &folders);

} // namespace kerlune
