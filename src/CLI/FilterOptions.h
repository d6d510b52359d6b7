#pragma once

#include "State/Filters.h"

#include <tl/expected.hpp>

#include <string>
#include <vector>

namespace CLI {
class App;
} // namespace CLI

namespace kerlune {

// Filters as the options of a command give them. An empty text counts as not given.
struct FilterOptions {
    std::string search = {};
    std::vector<std::string> classes = {};
    bool variable = false;
    bool monospace = false;
    bool color = false;
    bool italic = false;
    bool noItalic = false;
    std::vector<std::string> languages = {};
    std::string weight = {};
    bool riskyLicense = false;
    std::string glyphs = {};
    std::vector<std::string> tags = {};
};

// The options must live as long as the app parses.
void addFilterOptions(CLI::App &app, FilterOptions &options);

std::string classKeys(); // "sans, serif, …"

// Errors: a value that is none, with those that are, for display.
tl::expected<Filters, std::string> filtersFromOptions(const FilterOptions &options);

} // namespace kerlune
