#pragma once

#include "UI/Preview/PreviewRequest.h"

#include <cstddef>
#include <list>
#include <unordered_map>

namespace kerlune {

// Keeps the previews last used within a limit of bytes. The newest one stays, however large it is.
//
// Thread: one at a time.
class PreviewCache final {
public:
    explicit PreviewCache(std::size_t byteLimit);

    PreviewPointer find(const PreviewRequest &request); // null when it is not kept; it counts as used then
    bool contains(const PreviewRequest &request) const { return m_places.contains(request); }
    void insert(const PreviewRequest &request, PreviewPointer preview); // in place of one for the same request
    void clear();

    std::size_t byteCount() const { return m_byteCount; } // about

private:
    struct Entry {
        PreviewRequest request;
        PreviewPointer preview;
        std::size_t byteCount;
    };
    struct Hash {
        std::size_t operator()(const PreviewRequest &request) const noexcept { return qHash(request); }
    };

    void removeLast();

    std::size_t m_byteLimit;
    std::size_t m_byteCount = 0;
    std::list<Entry> m_entries; // the one last used first
    std::unordered_map<PreviewRequest, std::list<Entry>::iterator, Hash> m_places;
};

} // namespace kerlune
