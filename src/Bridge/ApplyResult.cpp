#include "Bridge/ApplyResult.h"

#include "Support/Localization.h"

namespace kerlune {

std::string failureMessage(const ApplyResult &result)
{
    using namespace ApplyOutcome;
    if (const auto *failed = std::get_if<Failed>(&result))
        return failed->message;
    if (const auto *notAuthorized = std::get_if<NotAuthorized>(&result)) {
        return localized("%1 n'a pas autorisé Kerlune. Réglages Système > Confidentialité et sécurité > "
                         "Automatisation.",
                         {displayName(notAuthorized->target)});
    }
    if (const auto *notRunning = std::get_if<NotRunning>(&result))
        return localized("%1 n'est pas lancé.", {displayName(notRunning->target)});
    return {};
}

} // namespace kerlune
