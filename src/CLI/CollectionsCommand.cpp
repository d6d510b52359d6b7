#include "CLI/Action.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
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
using Collection = FontIndexStore::Collection;

constexpr std::array kCollectionActions{Action{"list"},
                                        Action{"create", 1},
                                        Action{"rename", 2},
                                        Action{"delete", 1},
                                        Action{"add", 2, Action::kAnyNumber},
                                        Action{"remove", 2, Action::kAnyNumber}};

std::string collectionUsage()
{
    return localized("Usage : kerlune collections [list | create NOM | rename ID NOM | delete ID | add ID FAMILLE… | "
                     "remove ID FAMILLE…]");
}

const std::set<std::string> &members(const AppState &state, const std::string &id)
{
    static const std::set<std::string> none;
    const auto found = state.collectionCache().find(id);
    return found == state.collectionCache().end() ? none : found->second;
}

std::string collectionLine(const AppState &state, const Collection &collection)
{
    const auto count = static_cast<std::int64_t>(members(state, collection.id).size());
    return displayText(collection.name) + "  [" + displayText(collection.id) + "] — " +
           localizedCount("%1 famille", "%1 familles", count);
}

void printList(const AppState &state, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJsonLines(state.collections(), [&](const Collection &collection) {
            return nlohmann::json{
                {"id", collection.id}, {"name", collection.name}, {"families", members(state, collection.id)}};
        });
        return;
    }
    for (const Collection &collection : state.collections()) {
        std::cout << collectionLine(state, collection) << '\n';
        for (const std::string &family : members(state, collection.id))
            std::cout << "    " << displayText(family) << '\n';
    }
}

// Ends an action on one collection: says what it is like now, or that nothing was written.
int finish(const StateSession &session, bool isWritten, const std::string &id)
{
    if (!isWritten)
        return session.reportWriteFailure();
    for (const Collection &collection : session.state().collections()) {
        if (collection.id == id)
            std::cerr << collectionLine(session.state(), collection) << '\n';
    }
    return kDone;
}

int reportEmptyName()
{
    return reportWrongUsage(localized("Le nom d’une collection ne peut pas être vide."));
}

int create(StateSession &session, const std::string &name, OutputFormat format)
{
    if (trimmed(name).empty())
        return reportEmptyName();
    const auto id = session.state().createCollection(name);
    if (!id)
        return session.reportWriteFailure();
    if (format == OutputFormat::Text)
        std::cout << *id << '\n';
    return kDone;
}

int rename(StateSession &session, const std::string &idOrName, const std::string &name)
{
    if (trimmed(name).empty())
        return reportEmptyName();
    const auto id = collectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    return finish(session, session.state().renameCollection(*id, name), *id);
}

int deleteCollection(StateSession &session, const std::string &idOrName)
{
    const auto id = collectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    return session.state().deleteCollection(*id) ? kDone : session.reportWriteFailure();
}

int add(StateSession &session, const std::string &idOrName, const Words &names)
{
    const auto id = collectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    const auto families = indexedFamilies(session.state(), names);
    if (!families)
        return report(families.error());
    return finish(session, session.state().addToCollection(*id, *families), *id);
}

int remove(StateSession &session, const std::string &idOrName, const Words &names)
{
    const auto id = collectionId(session.state(), idOrName);
    if (!id)
        return report(id.error());
    const Words families = presentFamilies(members(session.state(), *id), names);
    return finish(session, session.state().removeFromCollection(*id, families), *id);
}

} // namespace

int runCollectionsCommand(const CommandContext &context, const Words &words, OutputFormat format)
{
    const auto chosen = chooseAction(kCollectionActions, words, collectionUsage());
    if (!chosen)
        return kWrongUsage;
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    const auto &[action, arguments] = *chosen;
    int status = kDone;
    if (action == "create")
        status = create(*session, arguments.front(), format);
    else if (action == "rename")
        status = rename(*session, arguments[0], arguments[1]);
    else if (action == "delete")
        status = deleteCollection(*session, arguments.front());
    else if (action == "add")
        status = add(*session, arguments.front(), {arguments.begin() + 1, arguments.end()});
    else if (action == "remove")
        status = remove(*session, arguments.front(), {arguments.begin() + 1, arguments.end()});
    if (status == kDone && (action == "list" || format == OutputFormat::Json))
        printList(session->state(), format);
    return status;
}

} // namespace kerlune
