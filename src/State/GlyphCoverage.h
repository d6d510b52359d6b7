#pragma once

#include "Model/FontFamily.h"
#include "Platform/CharacterMap.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kerlune {

// Tells which faces have certain characters, by asking the fonts themselves. What was read is kept, up to 64 MiB, so
// that the next character typed is answered at once.
//
// Thread: any; blocks while it reads files, on all cores.
// Errors: a face that cannot be read has no character.
class GlyphCoverage final {
public:
    // Those of the families whose representative face has every character, in the order given.
    std::vector<FontFamilyPointer> familiesWith(std::u32string_view characters,
                                                const std::vector<FontFamilyPointer> &families);

    void clear();       // what was read is forgotten
    void stopReading(); // from now on nothing is read any more, and families that were not read have no character

private:
    using Map = std::shared_ptr<const CharacterMap>;

    struct Entry {
        std::string path;
        double mtime = 0;
        Map map;
    };

    Map characterMap(const FontRecord &face); // null when it cannot be read

    std::atomic<bool> m_isStopped = false;
    std::mutex m_mutex;                               // guards what follows
    std::unordered_map<std::string, Entry> m_entries; // by PostScript name
    std::size_t m_bytes = 0;                          // of the maps kept
};

} // namespace kerlune
