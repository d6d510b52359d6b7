#pragma once

#include "State/AppState.h"

#include <QString>

namespace kerlune {

// How the window shows whether a family is active: one sign for each state, and a word beside it where there is room.
struct ActivationSign {
    const char *icon; // of Theme
    bool isAccented;  // drawn in the accent's colour
};

ActivationSign activationSign(ActivationState activation);
QString activationWord(ActivationState activation);

} // namespace kerlune
