#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/LibrarySession.h"
#include "CLI/Output.h"
#include "CLI/StatusLine.h"
#include "Library/DuplicateScanner.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <array>
#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using Group = DuplicateScanner::Group;
using Kind = Group::Kind;
using Report = DuplicateScanner::Report;

// Part of the JSON's promise, so the names of the kinds stand here and not in a text for the user.
const char *kindName(Kind kind)
{
    switch (kind) {
    case Kind::psNameConflict:
        return "psNameConflict";
    case Kind::identical:
        return "identical";
    case Kind::versionDrift:
        return "versionDrift";
    }
    return "";
}

// What the user named must be there and open: silence about it would read as "no duplicates".
std::error_code accessError(const fs::path &path)
{
    std::error_code error;
    if (fs::is_directory(path, error))
        fs::directory_iterator(path, error);
    return error;
}

// Where fonts are installed, and the folders that the user watches.
std::vector<fs::path> usualPlaces(const CommandContext &context)
{
    std::vector<fs::path> places = DuplicateScanner::searchPaths(context.directories);
    LibrarySession session(context);
    for (const WatchedFolder &folder : session.folders().folders()) {
        if (std::error_code error; fs::is_directory(folder.path, error))
            places.emplace_back(folder.path);
    }
    return places;
}

// The places to look at; absent after a message when one of the paths given cannot be.
std::optional<std::vector<fs::path>> placesFor(const CommandContext &context, const std::vector<std::string> &paths)
{
    if (paths.empty())
        return usualPlaces(context);
    std::vector<fs::path> places;
    for (const std::string &path : paths) {
        if (const auto error = accessError(path)) {
            const bool isMissing = error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
            printMessage(isMissing
                             ? localized("Fichier ou dossier introuvable : %1", {displayText(path)})
                             : localized("Lecture de « %1 » impossible : %2", {displayText(path), error.message()}));
            return std::nullopt;
        }
        places.push_back(fs::absolute(path));
    }
    return places;
}

Report scan(const std::vector<fs::path> &places)
{
    StatusLine line;
    return DuplicateScanner::scan(places, [&](const std::string &status) { line.show(status); });
}

nlohmann::json encodeGroup(const Group &group)
{
    auto entries = nlohmann::json::array();
    for (const DuplicateScanner::FileEntry &entry : group.entries) {
        entries.push_back({{"path", entry.path},
                           {"size", entry.size},
                           {"postScriptNames", entry.postScriptNames},
                           {"family", entry.family},
                           {"style", entry.style},
                           {"version", entry.version ? nlohmann::json(*entry.version) : nlohmann::json()}});
    }
    return {{"kind", kindName(group.kind)},
            {"key", group.key},
            {"reclaimable", group.reclaimable()},
            {"entries", std::move(entries)}};
}

void printReport(const Report &report)
{
    auto groups = nlohmann::json::array();
    for (const Group &group : report.groups)
        groups.push_back(encodeGroup(group));
    printJson({{"groups", std::move(groups)}, {"broken", report.broken}, {"scannedFiles", report.scannedFiles}});
}

void printGroup(const Group &group)
{
    std::cout << "  " << displayText(group.key) << "  "
              << localized("[%1 récupérables]", {displaySize(group.reclaimable())}) << '\n';
    for (const DuplicateScanner::FileEntry &entry : group.entries) {
        std::cout << "    " << displayText(entry.path);
        if (group.kind != Kind::identical && entry.version)
            std::cout << "  [" << displayText(*entry.version) << ']';
        std::cout << '\n';
    }
}

void printKind(Kind kind, const std::vector<Group> &groups)
{
    if (groups.empty())
        return;
    std::cout << localized("%1 : %2", {label(kind), groupedDigits(static_cast<std::int64_t>(groups.size()))}) << '\n'
              << explanation(kind) << "\n\n";
    for (const Group &group : groups)
        printGroup(group);
    std::cout << '\n';
}

void printBroken(const std::vector<std::string> &broken)
{
    if (broken.empty())
        return;
    std::cout << localized("Fichiers illisibles : %1", {groupedDigits(static_cast<std::int64_t>(broken.size()))})
              << '\n';
    for (const std::string &path : broken)
        std::cout << "    " << displayText(path) << '\n';
    std::cout << '\n';
}

std::string counted(std::size_t files)
{
    return localizedCount("%1 fichier de polices examiné", "%1 fichiers de polices examinés",
                          static_cast<std::int64_t>(files));
}

void printText(const Report &report)
{
    if (report.groups.empty() && report.broken.empty()) {
        std::cout << localized("Aucun doublon : %1.", {counted(report.scannedFiles)}) << '\n';
        return;
    }
    constexpr std::array kMostSeriousFirst{Kind::psNameConflict, Kind::versionDrift, Kind::identical};
    for (const Kind kind : kMostSeriousFirst)
        printKind(kind, report.groupsOf(kind));
    printBroken(report.broken);
    std::cout << localized("%1 : %2, %3 récupérables en copies identiques.",
                           {counted(report.scannedFiles),
                            localizedCount("%1 groupe", "%1 groupes", static_cast<std::int64_t>(report.groups.size())),
                            displaySize(Report::totalReclaimable(report.groupsOf(Kind::identical)))})
              << '\n';
}

} // namespace

int runDuplicatesCommand(const CommandContext &context, const std::vector<std::string> &paths, OutputFormat format)
{
    const auto places = placesFor(context, paths);
    if (!places)
        return kFailed;
    const Report report = scan(*places);
    if (format == OutputFormat::Json)
        printReport(report);
    else
        printText(report);
    return kDone;
}

} // namespace kerlune
