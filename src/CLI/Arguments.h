#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace kerlune {

// Arguments that reach a command as they were typed. By itself CLI11 would take "--search= --json" for a search for
// "--json", "[a,b]" for a list of two and "{}" for an empty one, and forget after the first operand that "--" ends the
// options.

// The command line in the form that signedArguments() gives it may be parsed by the app, which already has all its
// options: operands and values bear a sign that makes plain text of them. addText() and addTexts() take it away again.
std::vector<std::string> signedArguments(const CLI::App &app, int argc, const char *const *argv); // the last one first
std::string withoutSign(std::string argument);

// An option with one value.
CLI::Option *addText(CLI::App &app, const std::string &name, std::string &text, const std::string &description);
// Operands, or an option that may be given several times and each time takes all words up to the next option.
CLI::Option *addTexts(CLI::App &app, const std::string &name, std::vector<std::string> &texts,
                      const std::string &description);

} // namespace kerlune
