#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/IndexUpdate.h"
#include "CLI/LibrarySession.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <iostream>

namespace kerlune {

namespace {

constexpr std::size_t kMostNamed = 20;

// Fonts of other formats are no surprise on a Linux desktop: they are counted, not named.
void reportSkipped(std::vector<SkippedFont> skipped)
{
    const auto otherFormats =
        std::erase_if(skipped, [](const SkippedFont &font) { return font.reason == FontError::UnknownFormat; });
    if (otherFormats > 0) {
        std::cerr << localizedCount("%1 fichier ni TrueType ni OpenType (Type 1, bitmap…) n’est pas indexé.",
                                    "%1 fichiers ni TrueType ni OpenType (Type 1, bitmap…) ne sont pas indexés.",
                                    static_cast<std::int64_t>(otherFormats))
                  << '\n';
    }
    if (skipped.empty())
        return;
    std::cerr << localizedCount(
                     "%1 police écartée :", "%1 polices écartées :", static_cast<std::int64_t>(skipped.size()))
              << '\n';
    const std::size_t named = std::min(skipped.size(), kMostNamed);
    for (std::size_t i = 0; i < named; ++i)
        std::cerr << "  " << displayText(skipped[i].path) << " : " << describe(skipped[i].reason) << '\n';
    if (named < skipped.size())
        std::cerr << "  " << localized("… (« kerlune index --json » les nomme toutes)") << '\n';
}

void printText(const IndexSummary &summary, double seconds)
{
    std::cout << localized("%1 dans %2, lues en %3 s",
                           {localizedCount("%1 graisse", "%1 graisses", summary.faces),
                            localizedCount("%1 famille", "%1 familles", summary.families), decimalDigits(seconds)})
              << '\n';
}

void printSummary(const IndexSummary &summary, double seconds)
{
    auto list = nlohmann::json::array();
    for (const SkippedFont &font : summary.skipped)
        list.push_back({{"path", font.path}, {"reason", describe(font.reason)}});
    printJson(
        {{"faces", summary.faces}, {"families", summary.families}, {"seconds", seconds}, {"skipped", std::move(list)}});
}

} // namespace

int runIndexCommand(const CommandContext &context, OutputFormat format)
{
    const auto start = std::chrono::steady_clock::now();
    LibrarySession session(context);
    if (!session.load())
        return kFailed;
    const auto summary = updateIndex(context, EmptyIndex::Refuse);
    if (!summary)
        return kFailed;
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    if (format == OutputFormat::Json) {
        printSummary(*summary, elapsed.count());
    } else {
        reportSkipped(summary->skipped);
        if (summary->isSaved)
            printText(*summary, elapsed.count());
    }
    return summary->isSaved && session.reportSaveErrors() ? kDone : kFailed;
}

} // namespace kerlune
