#pragma once

#include "CLI/Commands.h"

#include <nlohmann/json_fwd.hpp>

#include <iostream>
#include <string>

namespace kerlune {

// What commands write: results on standard output, messages on standard error. Bytes that are not UTF-8 become U+FFFD
// in JSON; in messages the caller sees to foreign text (displayText).

void printJson(const nlohmann::json &value); // indented
std::string jsonLine(const nlohmann::json &value);

// An array with one element to the line; only one of them at a time is in memory as JSON.
template <typename Elements, typename Encode>
void printJsonLines(const Elements &elements, Encode &&encode)
{
    std::cout << '[';
    const char *separator = "\n";
    for (const auto &element : elements) {
        std::cout << separator << jsonLine(encode(element));
        separator = ",\n";
    }
    std::cout << "\n]\n";
}

void printMessage(const std::string &message);

// A message, and the exit status that goes with it.
int reportFailure(const std::string &message);
int reportWrongUsage(const std::string &message, const std::string &advice = {});

// Why a command does not do what it was asked to.
struct Refusal {
    int status = kFailed;
    std::string message = {};
};
int report(const Refusal &refusal);

} // namespace kerlune
