#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// All that the user made, for a backup. Dates are seconds since 1970-01-01 UTC.
struct UserData {
    struct Collection {
        std::string id = {};
        std::string name = {};
        double created = 0;
        std::int64_t sortOrder = 0;
        std::set<std::string> families = {};

        bool operator==(const Collection &) const = default;
    };

    struct SmartCollection {
        std::string id = {};
        std::string name = {};
        std::string filters = {}; // JSON text
        double created = 0;

        bool operator==(const SmartCollection &) const = default;
    };

    std::map<std::string, double> favorites = {};           // by family, with the date when it was added
    std::vector<Collection> collections = {};               // in the order in which they are listed
    std::map<std::string, std::set<std::string>> tags = {}; // by family
    std::vector<SmartCollection> smartCollections = {};     // in creation order
    std::map<std::string, double> recents = {};             // by family, with the date of the last use

    bool operator==(const UserData &) const = default;
};

} // namespace kerlune
