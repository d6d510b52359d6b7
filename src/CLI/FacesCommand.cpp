#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/FamilyLine.h"
#include "CLI/Output.h"
#include "CLI/StoreAccess.h"
#include "Model/FontIndexer.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

namespace kerlune {

namespace {

void printText(const std::vector<FontRecordPointer> &records)
{
    for (const FontFamily &family : FontIndexer::groupIntoFamilies(records)) {
        std::cout << familyLine(family) << '\n';
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
        return reportFailure(localized("L’index ne peut pas être lu : il est endommagé, ou d’une autre version de "
                                       "Kerlune. « kerlune index » le refait."));
    }
    if (format == OutputFormat::Json)
        printJsonLines(records, [](const FontRecordPointer &record) { return encodeRecord(*record); });
    else
        printText(records);
    if (records.empty())
        printMessage(localized("L’index est vide ; « kerlune index » le remplit."));
    return kDone;
}

} // namespace kerlune
