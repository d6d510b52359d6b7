#pragma once

#include <string>

namespace kerlune {

// A random UUID (RFC 9562, version 4) in its upper-case text form of 36 characters.
// Thread: any.
std::string newUuid();

} // namespace kerlune
