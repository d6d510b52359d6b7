#include "UI/ActivationSign.h"

#include "UI/InterfaceText.h"

namespace kerlune {

ActivationSign activationSign(ActivationState activation)
{
    switch (activation) {
    case ActivationState::system:
        return {"lock", false};
    case ActivationState::active:
        return {"active", true};
    case ActivationState::inactive:
        return {"inactive", false};
    case ActivationState::partial:
        return {"partial", true};
    }
    return {"inactive", false};
}

QString activationWord(ActivationState activation)
{
    switch (activation) {
    case ActivationState::system:
        return uiText("Police du système");
    case ActivationState::active:
        return uiText("Active");
    case ActivationState::inactive:
        return uiText("Inactive");
    case ActivationState::partial:
        return uiText("Active en partie");
    }
    return {};
}

} // namespace kerlune
