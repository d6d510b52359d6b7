#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/StoreAccess.h"
#include "Model/FontIndexer.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace kerlune {

namespace {

// One record to the line.
void printJson(const std::vector<FontRecordPointer> &records)
{
    std::cout << '[';
    const char *separator = "\n";
    for (const FontRecordPointer &record : records) {
        std::cout << separator << encodeRecord(*record).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        separator = ",\n";
    }
    std::cout << "\n]\n";
}

void printText(const std::vector<FontRecordPointer> &records)
{
    for (const FontFamily &family : FontIndexer::groupIntoFamilies(records)) {
        std::cout << displayText(family.name) << " — " << label(family.representative()->classification) << ", "
                  << localizedCount("%1 graisse", "%1 graisses", static_cast<std::int64_t>(family.faces.size()))
                  << '\n';
        for (const FontRecordPointer &face : family.sortedFaces())
            std::cout << "    " << displayText(face->style) << "  [" << displayText(face->postScriptName) << "]  "
                      << displayText(face->filePath) << '\n';
    }
}

} // namespace

int runFacesCommand(const CommandContext &context, OutputFormat format)
{
    const auto store = openStore(context.directories);
    if (store == nullptr)
        return kFailed;
    const auto records = store->loadAll();
    if (records.empty() && store->indexedCount() > 0) {
        std::cerr << "kerlune: "
                  << localized("L’index ne peut pas être lu : il est endommagé, ou d’une autre version de Kerlune. "
                               "« kerlune index » le refait.")
                  << '\n';
        return kFailed;
    }
    if (format == OutputFormat::Json)
        printJson(records);
    else
        printText(records);
    if (records.empty())
        std::cerr << "kerlune: " << localized("L’index est vide ; « kerlune index » le remplit.") << '\n';
    return kDone;
}

} // namespace kerlune
