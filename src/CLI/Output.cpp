#include "CLI/Output.h"

#include <nlohmann/json.hpp>

namespace kerlune {

namespace {

constexpr auto kReplaceDamaged = nlohmann::json::error_handler_t::replace;

} // namespace

void printJson(const nlohmann::json &value)
{
    std::cout << value.dump(4, ' ', false, kReplaceDamaged) << '\n';
}

std::string jsonLine(const nlohmann::json &value)
{
    return value.dump(-1, ' ', false, kReplaceDamaged);
}

void printMessage(const std::string &message)
{
    std::cerr << "kerlune: " << message << '\n';
}

int reportFailure(const std::string &message)
{
    printMessage(message);
    return kFailed;
}

int reportWrongUsage(const std::string &message, const std::string &advice)
{
    printMessage(message);
    if (!advice.empty())
        printMessage(advice);
    return kWrongUsage;
}

int report(const Refusal &refusal)
{
    printMessage(refusal.message);
    return refusal.status;
}

} // namespace kerlune
