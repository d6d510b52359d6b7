#pragma once

#include "CLI/Output.h"
#include "State/AppState.h"

#include <tl/expected.hpp>

#include <set>
#include <string>
#include <vector>

namespace kerlune {

// What the words of a command line name. Errors say for display that nothing is named so, or more than one thing.

// The families of the index that the names mean: exactly, else the only one that differs in case. Each once.
tl::expected<std::vector<std::string>, Refusal> indexedFamilies(const AppState &state,
                                                                const std::vector<std::string> &names);

// The same among those that `present` holds. What is not there is told on standard error and left out.
std::vector<std::string> presentFamilies(const std::set<std::string> &present, const std::vector<std::string> &names);

// The id of a collection, which may be named where no other one has its name.
tl::expected<std::string, Refusal> collectionId(const AppState &state, const std::string &idOrName);
// Likewise of a smart collection; one that this version cannot read is found too.
tl::expected<std::string, Refusal> smartCollectionId(const AppState &state, const std::string &idOrName);
// Only one that can be read.
tl::expected<std::string, Refusal> readableSmartCollectionId(const AppState &state, const std::string &idOrName);

// A selection as selectionFromText() takes it. A watched folder may be given by its path, a collection or smart
// collection by its name.
tl::expected<SidebarSelection, Refusal> selectionNamed(const AppState &state, const std::string &text);

} // namespace kerlune
