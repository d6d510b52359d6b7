#pragma once

#include "State/Filters.h"

#include <string>

namespace kerlune {

// Filters under a name: it shows what they select in the library as it is at the moment.
struct SmartCollection {
    std::string id; // a UUID
    std::string name;
    Filters filters = {};

    bool operator==(const SmartCollection &) const = default;
};

} // namespace kerlune

template <>
struct std::hash<kerlune::SmartCollection> {
    std::size_t operator()(const kerlune::SmartCollection &collection) const
    {
        return std::hash<std::string>{}(collection.id);
    }
};
