#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/ProgressBar.h"
#include "CLI/StoreAccess.h"
#include "Model/FontIndexer.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <string>

namespace kerlune {

namespace {

constexpr std::size_t kMostNamed = 20;

struct Summary {
    std::int64_t faces = 0;
    std::int64_t families = 0;
    double seconds = 0;
};

FontIndexer::Index readFonts(const FontCatalog &catalog)
{
    ProgressBar bar(localized("Analyse"));
    return FontIndexer(catalog).buildIndex(
        [&](const FontIndexer::Progress &progress) { bar.show(progress.done, progress.total); });
}

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

void reportNoFonts(const std::vector<SkippedFont> &skipped)
{
    const std::string why =
        skipped.empty()
            ? localized("Aucune police : fontconfig n’en propose aucune. Installez des polices ou vérifiez sa "
                        "configuration (« fc-list » donne ce qu’il trouve).")
            : localized("Aucune police lisible : toutes ont été écartées.");
    std::cerr << "kerlune: " << why << ' ' << localized("L’index précédent est conservé.") << '\n';
}

void printText(const Summary &summary)
{
    std::cout << localized("%1 dans %2, lues en %3 s", {localizedCount("%1 graisse", "%1 graisses", summary.faces),
                                                        localizedCount("%1 famille", "%1 familles", summary.families),
                                                        decimalDigits(summary.seconds)})
              << '\n';
}

void printJson(const Summary &summary, const std::vector<SkippedFont> &skipped)
{
    auto list = nlohmann::json::array();
    for (const SkippedFont &font : skipped)
        list.push_back({{"path", font.path}, {"reason", describe(font.reason)}});
    const nlohmann::json object{{"faces", summary.faces},
                                {"families", summary.families},
                                {"seconds", summary.seconds},
                                {"skipped", std::move(list)}};
    std::cout << object.dump(4, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
}

} // namespace

int runIndexCommand(const CommandContext &context, OutputFormat format)
{
    const auto start = std::chrono::steady_clock::now();
    const auto store = openStore(context.directories); // first: reading the fonts for nothing would take long
    if (store == nullptr)
        return kFailed;

    const FontIndexer::Index index = readFonts(context.catalog);
    if (format == OutputFormat::Text)
        reportSkipped(index.skipped);
    if (index.records.empty()) {
        reportNoFonts(index.skipped);
    } else if (const auto saved = store->replaceAll(index.records); !saved) {
        reportStoreError(saved.error(), context.directories);
        return kFailed;
    }

    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    const Summary summary{static_cast<std::int64_t>(index.records.size()),
                          static_cast<std::int64_t>(FontIndexer::groupIntoFamilies(index.records).size()),
                          elapsed.count()};
    if (format == OutputFormat::Json)
        printJson(summary, index.skipped);
    else if (!index.records.empty())
        printText(summary);
    return index.records.empty() ? kFailed : kDone;
}

} // namespace kerlune
