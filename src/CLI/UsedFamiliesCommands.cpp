#include "CLI/Action.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/NamedThings.h"
#include "CLI/StateSession.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <iostream>

// Favourite and recently used families.

namespace kerlune {

namespace {

using Words = std::vector<std::string>;

template <typename Names>
void printNames(const Names &names, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJson(names);
        return;
    }
    for (const std::string &name : names)
        std::cout << displayText(name) << '\n';
}

// Makes favourites of the families, or none.
int setFavorites(StateSession &session, const Words &families, bool on)
{
    AppState &state = session.state();
    const bool isWritten = std::all_of(families.begin(), families.end(), [&](const std::string &family) {
        return state.favorites().contains(family) == on || state.toggleFavorite(family);
    });
    if (!isWritten)
        return session.reportWriteFailure();
    const auto count = static_cast<std::int64_t>(state.favorites().size());
    std::cerr << localizedCount("%1 famille favorite.", "%1 familles favorites.", count) << '\n';
    return kDone;
}

} // namespace

int runFavoritesCommand(const CommandContext &context, const Words &words, OutputFormat format)
{
    constexpr std::array kActions{Action{"list"}, Action{"add", 1, Action::kAnyNumber},
                                  Action{"remove", 1, Action::kAnyNumber}};
    const auto chosen =
        chooseAction(kActions, words, localized("Usage : kerlune favorites [list | add FAMILLE… | remove FAMILLE…]"));
    if (!chosen)
        return kWrongUsage;
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    const auto &[action, names] = *chosen;
    int status = kDone;
    if (action == "add") {
        const auto families = indexedFamilies(session->state(), names);
        status = families ? setFavorites(*session, *families, true) : report(families.error());
    } else if (action == "remove") {
        status = setFavorites(*session, presentFamilies(session->state().favorites(), names), false);
    }
    if (status == kDone && (action == "list" || format == OutputFormat::Json))
        printNames(session->state().favorites(), format);
    return status;
}

int runRecentsCommand(const CommandContext &context, const Words &words, OutputFormat format)
{
    constexpr std::array kActions{Action{"list"}, Action{"add", 1, Action::kAnyNumber}};
    const auto chosen = chooseAction(kActions, words, localized("Usage : kerlune recents [list | add FAMILLE…]"));
    if (!chosen)
        return kWrongUsage;
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    AppState &state = session->state();
    if (chosen->word == "add") {
        const auto families = indexedFamilies(state, chosen->arguments);
        if (!families)
            return report(families.error());
        const bool isWritten = std::all_of(families->begin(), families->end(),
                                           [&](const std::string &family) { return state.noteUsed(family); });
        if (!isWritten)
            return session->reportWriteFailure();
    }
    if (chosen->word == "list" || format == OutputFormat::Json)
        printNames(state.recents(), format);
    return kDone;
}

} // namespace kerlune
