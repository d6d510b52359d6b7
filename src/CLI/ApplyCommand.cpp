#include "CLI/Await.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/NamedFont.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace kerlune {

namespace {

void printApplied(const ApplyOutcome::Applied &applied, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        nlohmann::json result{{"host", commandWord(applied.target)}, {"count", applied.count}, {"note", nullptr}};
        if (applied.note)
            result["note"] = *applied.note;
        printJson(result);
        return;
    }
    std::cout << displayName(applied.target) << "\u00A0: "
              << localizedCount("Police appliquée à %1 élément.", "Police appliquée à %1 éléments.", applied.count)
              << '\n';
    if (applied.note)
        std::cout << displayText(*applied.note) << '\n';
}

std::string hostWords()
{
    std::string words;
    for (const HostApp host : kHostApps)
        words += (words.empty() ? "" : ", ") + commandWord(host);
    return words;
}

} // namespace

int runApplyCommand(const CommandContext &context, const std::vector<std::string> &words, const std::string &host,
                    OutputFormat format)
{
    if (words.size() != 1)
        return reportFontNameMissing();
    const auto target = hostNamed(host);
    if (!target) {
        return reportWrongUsage(host.empty() ? localized("Donnez par --to le programme où appliquer la police.")
                                             : localized("Programme inconnu : « %1 ».", {displayText(host)}),
                                localized("Les programmes sont : %1.", {hostWords()}));
    }
    const NamedFont font = NamedFont::find(context, words.front());
    if (font.record == nullptr)
        return kFailed;
    const ApplyResult result = await(font.session->state().apply(font.record, *target));
    const auto *applied = std::get_if<ApplyOutcome::Applied>(&result);
    if (applied == nullptr)
        return reportFailure(displayText(failureMessage(result)));
    printApplied(*applied, format);
    return kDone;
}

} // namespace kerlune
