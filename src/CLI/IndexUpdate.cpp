#include "CLI/IndexUpdate.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/ProgressBar.h"
#include "CLI/StoreAccess.h"
#include "Model/FontIndexer.h"
#include "Support/Localization.h"

namespace kerlune {

namespace {

FontIndexer::Index readFonts(const FontCatalog &catalog)
{
    ProgressBar bar(localized("Analyse"));
    return FontIndexer(catalog).buildIndex(
        [&](const FontIndexer::Progress &progress) { bar.show(progress.done, progress.total); });
}

// Why an index of these fonts must not take the place of the former one; empty when it may.
std::string objection(const FontIndexer::Index &index, EmptyIndex whenEmpty)
{
    if (const auto pipe = systemObstacle(index.skipped))
        return localized("Les polices du système ne peuvent pas être lues. %1 : %2",
                         {displayText(pipe->path), describe(pipe->reason)});
    if (!index.records.empty() || whenEmpty == EmptyIndex::Accept)
        return {};
    if (index.skipped.empty())
        return localized("Aucune police : fontconfig n’en propose aucune. Installez des polices ou vérifiez sa "
                         "configuration (« fc-list » donne ce qu’il trouve).");
    return localized("Aucune police lisible : toutes ont été écartées.");
}

} // namespace

std::optional<IndexSummary> updateIndex(const CommandContext &context, EmptyIndex whenEmpty)
{
    const auto store = openStore(context.directories); // first: reading the fonts for nothing would take long
    if (store == nullptr)
        return std::nullopt;
    FontIndexer::Index index = readFonts(context.catalog);
    if (const std::string why = objection(index, whenEmpty); !why.empty()) {
        printMessage(why + ' ' + localized("L’index précédent est conservé."));
        return IndexSummary{.skipped = std::move(index.skipped)};
    }
    if (const auto saved = store->replaceAll(index.records); !saved) {
        reportStoreError(saved.error(), context.directories);
        return std::nullopt;
    }
    return IndexSummary{static_cast<std::int64_t>(index.records.size()),
                        static_cast<std::int64_t>(FontIndexer::groupIntoFamilies(index.records).size()), true,
                        std::move(index.skipped)};
}

} // namespace kerlune
