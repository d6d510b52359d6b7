#include "CLI/Action.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

#include <algorithm>

namespace kerlune {

std::optional<ChosenAction> chooseAction(std::span<const Action> actions, const std::vector<std::string> &words,
                                         const std::string &usage)
{
    if (words.empty())
        return ChosenAction{std::string(actions.front().word)};
    const auto action = std::find_if(actions.begin(), actions.end(),
                                     [&](const Action &candidate) { return candidate.word == words.front(); });
    if (action == actions.end()) {
        reportWrongUsage(localized("Action inconnue : « %1 ».", {displayText(words.front())}), usage);
        return std::nullopt;
    }
    const std::size_t count = words.size() - 1;
    if (count < action->fewest || count > action->most) {
        reportWrongUsage(localized("Nombre d’arguments incorrect pour « %1 ».", {words.front()}), usage);
        return std::nullopt;
    }
    return ChosenAction{words.front(), {words.begin() + 1, words.end()}};
}

} // namespace kerlune
