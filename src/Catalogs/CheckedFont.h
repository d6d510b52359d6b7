#pragma once

#include "Model/FontIndexer.h"

#include <string>

namespace kerlune {

// The first face of a file that may come from anywhere, once it is sure that it can be read and drawn; null else.
//
// Thread: any; blocks while it reads.
inline FontRecordPointer checkedFont(const std::string &path)
{
    auto record = FontIndexer::extract({.path = path, .postScriptName = {}});
    return record && record->glyphCount > 0 ? std::make_shared<const FontRecord>(*std::move(record)) : nullptr;
}

} // namespace kerlune
