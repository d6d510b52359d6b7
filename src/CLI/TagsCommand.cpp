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

constexpr std::array kTagActions{Action{"list"}, Action{"add", 2, Action::kAnyNumber},
                                 Action{"remove", 2, Action::kAnyNumber}, Action{"rename", 2}, Action{"delete", 1}};

std::string tagUsage()
{
    return localized("Usage : kerlune tags [list | add TAG FAMILLE… | remove TAG FAMILLE… | rename TAG NOUVEAU | "
                     "delete TAG]");
}

std::set<std::string> familiesWith(const AppState &state, const std::string &tag)
{
    std::set<std::string> families;
    for (const auto &[family, tags] : state.tagsByFamily()) {
        if (tags.contains(tag))
            families.insert(family);
    }
    return families;
}

std::string tagLine(const AppState &state, const std::string &tag)
{
    const auto count = static_cast<std::int64_t>(familiesWith(state, tag).size());
    return displayText(tag) + " — " + localizedCount("%1 famille", "%1 familles", count);
}

void printTags(const AppState &state, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        printJsonLines(state.allTags(), [&](const auto &tag) {
            return nlohmann::json{
                {"name", tag.first}, {"count", tag.second}, {"families", familiesWith(state, tag.first)}};
        });
        return;
    }
    for (const auto &[tag, count] : state.allTags()) {
        std::cout << tagLine(state, tag) << '\n';
        for (const std::string &family : familiesWith(state, tag))
            std::cout << "    " << displayText(family) << '\n';
    }
}

int add(StateSession &session, const std::string &tag, const Words &names)
{
    const std::string name = trimmed(tag);
    if (name.empty())
        return reportWrongUsage(localized("Un tag ne peut pas être vide."));
    const auto families = indexedFamilies(session.state(), names);
    if (!families)
        return report(families.error());
    if (!session.state().setTag(name, *families, true))
        return session.reportWriteFailure();
    std::cerr << tagLine(session.state(), name) << '\n';
    return kDone;
}

int remove(StateSession &session, const std::string &tag, const Words &names)
{
    const Words families = presentFamilies(familiesWith(session.state(), tag), names);
    if (!families.empty() && !session.state().setTag(tag, families, false))
        return session.reportWriteFailure();
    std::cerr << tagLine(session.state(), tag) << '\n';
    return kDone;
}

int renameTag(StateSession &session, const std::string &tag, const std::string &newName)
{
    const std::string name = trimmed(newName);
    if (name.empty())
        return reportWrongUsage(localized("Un tag ne peut pas être vide."));
    if (familiesWith(session.state(), tag).empty())
        return reportFailure(localized("Aucun tag « %1 ».", {displayText(tag)}));
    const bool isMerged = name != tag && !familiesWith(session.state(), name).empty();
    if (!session.state().renameTag(tag, name))
        return session.reportWriteFailure();
    if (isMerged)
        printMessage(localized("Le tag « %1 » existait déjà : les deux n’en font plus qu’un.", {displayText(name)}));
    std::cerr << tagLine(session.state(), name) << '\n';
    return kDone;
}

int deleteTag(StateSession &session, const std::string &tag)
{
    if (familiesWith(session.state(), tag).empty())
        printMessage(localized("Aucun tag « %1 ».", {displayText(tag)}));
    return session.state().deleteTag(tag) ? kDone : session.reportWriteFailure();
}

} // namespace

int runTagsCommand(const CommandContext &context, const Words &words, OutputFormat format)
{
    const auto chosen = chooseAction(kTagActions, words, tagUsage());
    if (!chosen)
        return kWrongUsage;
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    const auto &[action, arguments] = *chosen;
    int status = kDone;
    if (action == "add")
        status = add(*session, arguments.front(), {arguments.begin() + 1, arguments.end()});
    else if (action == "remove")
        status = remove(*session, arguments.front(), {arguments.begin() + 1, arguments.end()});
    else if (action == "rename")
        status = renameTag(*session, arguments[0], arguments[1]);
    else if (action == "delete")
        status = deleteTag(*session, arguments.front());
    if (status == kDone && (action == "list" || format == OutputFormat::Json))
        printTags(session->state(), format);
    return status;
}

} // namespace kerlune
