#include "CLI/Action.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/FilterOptions.h"
#include "CLI/NamedThings.h"
#include "CLI/StateSession.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <nlohmann/json.hpp>

#include <array>
#include <iostream>

namespace kerlune {

namespace {

using Words = std::vector<std::string>;

constexpr std::array kSmartActions{Action{"list"}, Action{"save", 1}, Action{"update", 1}, Action{"rename", 2},
                                   Action{"delete", 1}};

std::string smartUsage()
{
    return localized("Usage : kerlune smart [list | save NOM FILTRES | update ID FILTRES | rename ID NOM | delete ID]");
}

void printList(const AppState &state, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJsonLines(state.smartCollections(), [](const SmartCollection &collection) {
            return nlohmann::json{{"id", collection.id},
                                  {"name", collection.name},
                                  {"filters", encodeFilters(collection.filters)},
                                  {"summary", summary(collection.filters)}};
        });
        return;
    }
    for (const SmartCollection &collection : state.smartCollections()) {
        std::cout << displayText(collection.name) << "  [" << displayText(collection.id) << "] — "
                  << displayText(summary(collection.filters)) << '\n';
    }
}

// Names those that the list cannot show.
void reportUnreadable(const AppState &state)
{
    std::string ids;
    std::int64_t count = 0;
    for (const FontIndexStore::SmartCollectionRow &row : state.store()->smartCollections()) {
        if (filtersFromText(row.filters))
            continue;
        ids += (ids.empty() ? "" : ", ") + displayText(row.id);
        ++count;
    }
    if (count > 0) {
        printMessage(localizedCount("%1 collection intelligente ne peut pas être lue : ",
                                    "%1 collections intelligentes ne peuvent pas être lues : ", count) +
                     ids);
    }
}

int reportEmptyName()
{
    return reportWrongUsage(localized("Le nom d’une collection ne peut pas être vide."));
}

int save(StateSession &session, const std::string &name, const Filters &filters, OutputFormat format)
{
    if (trimmed(name).empty())
        return reportEmptyName();
    session.state().filters = filters;
    const auto id = session.state().saveCurrentFiltersAsSmartCollection(name);
    if (!id)
        return session.reportWriteFailure();
    if (format == OutputFormat::Text)
        std::cout << *id << '\n';
    return kDone;
}

int update(StateSession &session, const std::string &idOrName, const Filters &filters)
{
    const auto id = readableSmartCollectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    session.state().filters = filters;
    return session.state().updateSmartCollection(*id) ? kDone : session.reportWriteFailure();
}

int rename(StateSession &session, const std::string &idOrName, const std::string &name)
{
    if (trimmed(name).empty())
        return reportEmptyName();
    const auto id = readableSmartCollectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    return session.state().renameSmartCollection(*id, name) ? kDone : session.reportWriteFailure();
}

int deleteSmartCollection(StateSession &session, const std::string &idOrName)
{
    const auto id = smartCollectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    return session.state().deleteSmartCollection(*id) ? kDone : session.reportWriteFailure();
}

} // namespace

int runSmartCommand(const CommandContext &context, const Words &words, const FilterOptions &options,
                    OutputFormat format)
{
    const auto chosen = chooseAction(kSmartActions, words, smartUsage());
    if (!chosen)
        return kWrongUsage;
    const auto &[action, arguments] = *chosen;
    const auto filters = filtersFromOptions(options);
    if (!filters)
        return reportWrongUsage(filters.error());
    const bool takesFilters = action == "save" || action == "update";
    if (takesFilters && !filters->isActive())
        return reportWrongUsage(localized("Il faut au moins un filtre."), smartUsage());
    if (!takesFilters && filters->isActive())
        return reportWrongUsage(localized("« %1 » ne prend pas de filtre.", {action}), smartUsage());

    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    int status = kDone;
    if (action == "save")
        status = save(*session, arguments.front(), *filters, format);
    else if (action == "update")
        status = update(*session, arguments.front(), *filters);
    else if (action == "rename")
        status = rename(*session, arguments[0], arguments[1]);
    else if (action == "delete")
        status = deleteSmartCollection(*session, arguments.front());
    else
        reportUnreadable(session->state());
    if (status == kDone && (action == "list" || format == OutputFormat::Json))
        printList(session->state(), format);
    return status;
}

} // namespace kerlune
