#include "CLI/Await.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/NamedFont.h"
#include "CLI/Output.h"
#include "CLI/ProgressBar.h"
#include "State/Preferences.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <iostream>
#include <optional>

namespace kerlune {

namespace {

// As many digits as tell a float from its neighbours.
std::string shortest(float value)
{
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return {buffer.data(), end};
}

std::optional<std::size_t> limitOf(const std::string &text)
{
    if (text.empty())
        return FingerprintIndex::kShownSimilar;
    std::size_t limit = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), limit);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(limit) : std::nullopt;
}

int reportUnmeasured(const FontRecord &record)
{
    return reportFailure(
        localized("« %1 » n’a pas d’empreinte : il lui manque trop de lettres parmi a, e, g, n, o et R, ou "
                  "ses capitales n’ont pas de hauteur.",
                  {displayText(record.postScriptName)}));
}

// Those of the whole library that are missing are computed first.
void analyse(AppState &state)
{
    FingerprintIndex &fingerprints = state.fingerprints();
    await(fingerprints.load());
    const std::string label = localized("Analyse visuelle de la bibliothèque…");
    StatusLine line;
    const auto observer = fingerprints.bindableProgress().addNotifier(
        [&] { line.show(withProgressCells(label, fingerprints.progress())); });
    await(fingerprints.build(state.allRecords()));
}

nlohmann::json encodeSimilar(const FingerprintIndex::Similar &similar)
{
    return {{"postScriptName", similar.record->postScriptName},
            {"family", similar.record->family},
            {"score", similar.score}};
}

} // namespace

int runFingerprintCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format)
{
    if (words.size() != 1)
        return reportFontNameMissing();
    const NamedFont subject = NamedFont::find(context, words.front());
    if (subject.record == nullptr)
        return kFailed;
    const auto vectors = computeFingerprints({subject.record}, [](std::size_t) {}, {});
    if (vectors.empty())
        return reportUnmeasured(*subject.record);
    const Fingerprint::Vector &vector = vectors.begin()->second;
    if (format == OutputFormat::Json) {
        printJson(vector);
    } else {
        for (const float value : vector)
            std::cout << shortest(value) << '\n';
    }
    return kDone;
}

int runSimilarCommand(const CommandContext &context, const std::vector<std::string> &words,
                      const SimilarOptions &options, OutputFormat format)
{
    if (words.size() != 1)
        return reportFontNameMissing();
    const auto limit = limitOf(options.limit);
    if (!limit)
        return reportWrongUsage(localized("--limit demande un nombre entier à partir de 0."));
    const NamedFont subject = NamedFont::find(context, words.front());
    if (subject.record == nullptr)
        return kFailed;
    AppState &state = subject.session->state();
    analyse(state);
    if (!state.fingerprints().vectors().contains(subject.record->postScriptName))
        return reportUnmeasured(*subject.record);
    const bool latinFocusOnly = !options.allScripts && Preferences(context.directories).similarLatinOnly.value();
    const auto found =
        state.fingerprints().similar(subject.record->postScriptName, state.allRecords(), *limit, latinFocusOnly);
    if (format == OutputFormat::Json) {
        printJsonLines(found, encodeSimilar);
    } else {
        for (const auto &[record, score] : found)
            std::cout << shortest(score) << "  " << displayText(record->family) << "  ["
                      << displayText(record->postScriptName) << "]\n";
    }
    if (found.empty())
        printMessage(localized("Aucune correspondance trouvée."));
    return kDone;
}

} // namespace kerlune
