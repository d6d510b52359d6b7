#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// What a command can be told to do by its first word, and how many words follow.
struct Action {
    static constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();

    std::string_view word;
    std::size_t fewest = 0;
    std::size_t most = fewest;
};

// The action with the words that follow.
struct ChosenAction {
    std::string word;
    std::vector<std::string> arguments = {};
};

// The first action when there are no words. Absent, after a message, when there is no such action or the number of
// words is wrong.
std::optional<ChosenAction> chooseAction(std::span<const Action> actions, const std::vector<std::string> &words,
                                         const std::string &usage);

} // namespace kerlune
