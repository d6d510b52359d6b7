#pragma once

#include <cstdint>
#include <string>

namespace kerlune {

// Names one face that can be opened: a face of a file, and for a variable face one of its instances.
struct FontDescriptor {
    std::string path;                // absolute, symbolic links resolved
    std::uint32_t faceIndex = 0;     // position in the file
    std::uint32_t instanceIndex = 0; // 0 the default instance, n the n-th named instance of OpenType 'fvar'
    std::string postScriptName;      // never empty

    bool operator==(const FontDescriptor &) const = default;
};

} // namespace kerlune
