#pragma once

#include "Bridge/ApplyResult.h"
#include "Model/FontRecord.h"

#include <QCoroTask>

namespace kerlune {

// One program in which fonts are applied: how it is reached. A further program is a class of this kind and a script
// that answers as the others do (see HostBridge::interpret).
//
// Thread: main.
// Errors: only as an ApplyResult.
class Host {
public:
    virtual ~Host() = default;

    virtual QCoro::Task<ApplyResult> apply(FontRecordPointer record) = 0;
};

} // namespace kerlune
