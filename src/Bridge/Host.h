#pragma once

#include "Bridge/ApplyResult.h"
#include "Bridge/UsedFont.h"
#include "Model/FontRecord.h"

#include <QCoroTask>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// One program in which fonts are applied: how it is reached. A further program is a class of this kind and a script
// that answers as the others do (see HostBridge::interpret).
//
// Thread: main.
// Errors: of apply() only as an ApplyResult, of the others none.
class Host {
public:
    virtual ~Host() = default;

    virtual QCoro::Task<ApplyResult> apply(FontRecordPointer record) = 0;

    // The names of its open documents; absent where it does not tell.
    virtual QCoro::Task<std::optional<std::set<std::string>>> documentNames() { co_return std::nullopt; }
    // The fonts of these documents, those that are missing included; absent where it does not tell.
    virtual QCoro::Task<std::optional<std::vector<UsedFont>>> usedFonts(std::vector<std::string> /*documents*/)
    {
        co_return std::nullopt;
    }
};

} // namespace kerlune
