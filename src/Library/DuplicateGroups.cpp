#include "Library/DuplicateGroups.h"

#include "Support/Localization.h"
#include "Support/Uuid.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <tuple>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

using FileEntry = DuplicateScanner::FileEntry;
using Group = DuplicateScanner::Group;
using Kind = Group::Kind;
using Entries = std::span<const FileEntry>;
using Positions = std::vector<std::size_t>;

Group makeGroup(Kind kind, std::string key, Entries entries, const Positions &members)
{
    Group group{newUuid(), kind, std::move(key), {}};
    for (const std::size_t member : members)
        group.entries.push_back(entries[member]);
    return group;
}

Positions withoutEqualFiles(const Positions &members, const ContentDigests &digests)
{
    std::unordered_set<std::string_view> seen;
    Positions kept;
    for (const std::size_t member : members) {
        if (!digests[member] || seen.insert(*digests[member]).second)
            kept.push_back(member);
    }
    return kept;
}

// "Version 2.001;PS 2;hotconv 1" gives 2.001; a text without a number comes before every version.
double versionNumber(std::string_view text)
{
    constexpr std::string_view kPrefix = "Version ";
    if (text.starts_with(kPrefix))
        text.remove_prefix(kPrefix.size());
    const bool hasNumber = !text.empty() && text.front() >= '0' && text.front() <= '9';
    double number = -1;
    if (hasNumber)
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return number;
}

bool isNewer(const FileEntry &a, const FileEntry &b)
{
    const double first = versionNumber(*a.version);
    const double second = versionNumber(*b.version);
    return first != second ? first > second : a.path < b.path;
}

std::string readableKey(const FileEntry &entry)
{
    return entry.style.empty() ? entry.family : entry.family + " " + entry.style;
}

} // namespace

std::vector<std::size_t> sharingTheirSize(Entries entries)
{
    std::map<std::uint64_t, Positions> bySize;
    for (std::size_t i = 0; i < entries.size(); ++i)
        bySize[entries[i].size].push_back(i);
    Positions shared;
    for (const auto &[size, members] : bySize) {
        if (members.size() > 1)
            shared.insert(shared.end(), members.begin(), members.end());
    }
    return shared;
}

std::vector<Group> identicalFiles(Entries entries, const ContentDigests &digests)
{
    std::map<std::string_view, Positions> byDigest;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (digests[i])
            byDigest[*digests[i]].push_back(i);
    }
    std::vector<Group> groups;
    for (const auto &[digest, members] : byDigest) {
        if (members.size() > 1)
            groups.push_back(makeGroup(Kind::identical, std::string(digest), entries, members));
    }
    return groups;
}

NameSharers sharingAName(Entries entries)
{
    NameSharers sharers;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        for (const std::string &name : entries[i].postScriptNames) {
            Positions &members = sharers[name];
            if (members.empty() || members.back() != i) // several faces of a file may hold one name
                members.push_back(i);
        }
    }
    std::erase_if(sharers, [](const auto &sharer) { return sharer.second.size() < 2; });
    return sharers;
}

std::vector<Group> nameConflicts(Entries entries, const NameSharers &sharers, const ContentDigests &digests)
{
    std::vector<Group> groups;
    for (const auto &[name, files] : sharers) {
        const Positions members = withoutEqualFiles(files, digests);
        if (members.size() > 1)
            groups.push_back(makeGroup(Kind::psNameConflict, std::string(name), entries, members));
    }
    return groups;
}

std::vector<Group> versionDrifts(Entries entries)
{
    std::map<std::pair<std::string_view, std::string_view>, Positions> byFont;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].version && !entries[i].family.empty())
            byFont[{entries[i].family, entries[i].style}].push_back(i);
    }
    std::vector<Group> groups;
    for (const auto &[font, members] : byFont) {
        const auto &version = entries[members.front()].version;
        if (std::ranges::all_of(members, [&](std::size_t i) { return entries[i].version == version; }))
            continue;
        groups.push_back(makeGroup(Kind::versionDrift, readableKey(entries[members.front()]), entries, members));
        std::ranges::sort(groups.back().entries, isNewer);
    }
    return groups;
}

void sortBySeverity(std::vector<Group> &groups)
{
    std::ranges::stable_sort(groups, [](const Group &a, const Group &b) {
        return std::tuple(-severity(a.kind), b.reclaimable(), std::string_view(a.key)) <
               std::tuple(-severity(b.kind), a.reclaimable(), std::string_view(b.key));
    });
}

std::uint64_t Group::reclaimable() const
{
    std::uint64_t bytes = 0;
    for (std::size_t i = 1; i < entries.size(); ++i)
        bytes += entries[i].size;
    return bytes;
}

std::vector<Group> DuplicateScanner::Report::groupsOf(Kind kind) const
{
    std::vector<Group> chosen;
    std::ranges::copy_if(groups, std::back_inserter(chosen), [&](const Group &group) { return group.kind == kind; });
    sortBySeverity(chosen);
    return chosen;
}

std::uint64_t DuplicateScanner::Report::totalReclaimable(std::span<const Group> groups)
{
    std::uint64_t bytes = 0;
    for (const Group &group : groups)
        bytes += group.reclaimable();
    return bytes;
}

std::string label(Kind kind)
{
    switch (kind) {
    case Kind::psNameConflict:
        return localized("Conflits de nom PostScript");
    case Kind::identical:
        return localized("Fichiers identiques");
    case Kind::versionDrift:
        return localized("Versions différentes");
    }
    return {};
}

std::string explanation(Kind kind)
{
    switch (kind) {
    case Kind::psNameConflict:
        return localized("Deux fichiers différents portent le même nom PostScript. Adobe n'en verra qu'un, et pas "
                         "forcément le bon : c'est la cause la plus fréquente des polices qui « disparaissent ».");
    case Kind::identical:
        return localized("Fichiers strictement identiques (même empreinte SHA-256). Sans danger, mais ils occupent de "
                         "la place pour rien.");
    case Kind::versionDrift:
        return localized("Plusieurs versions de la même police coexistent. Gardez la plus récente pour éviter des "
                         "rendus différents d'un poste à l'autre.");
    }
    return {};
}

int severity(Kind kind)
{
    switch (kind) {
    case Kind::psNameConflict:
        return 2;
    case Kind::versionDrift:
        return 1;
    case Kind::identical:
        break;
    }
    return 0;
}

} // namespace kerlune
