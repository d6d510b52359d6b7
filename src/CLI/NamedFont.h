#pragma once

#include "CLI/StateSession.h"
#include "Model/FontRecord.h"

#include <memory>
#include <string>

namespace kerlune {

// The library, with the one font that a command is about.
struct NamedFont {
    std::unique_ptr<StateSession> session;
    FontRecordPointer record; // null, after a message, when there is none of that name

    static NamedFont find(const CommandContext &context, const std::string &postScriptName);
};

// Says that a command wants one name.
int reportFontNameMissing();

} // namespace kerlune
