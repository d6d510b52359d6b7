#pragma once

#include "Identify/FingerprintMatrix.h"
#include "Model/FontRecord.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// The faces of a library that have a fingerprint, with what comparing them needs side by side. Going through 50,000
// records and looking up their names takes several times as long as the comparison itself, and a library is searched
// many times before it changes.
//
// Thread: main. Holds until the matrix changes.
class ComparableFaces final {
public:
    struct Face {
        std::span<const float> vector;
        std::uint64_t scriptMask;
        std::uint32_t record; // its position in records()
        std::uint32_t family; // below familyCount()
        bool isMonospace;
    };

    ComparableFaces() = default;
    ComparableFaces(const std::vector<FontRecordPointer> &records, const FingerprintMatrix &vectors);

    bool holds(const std::vector<FontRecordPointer> &records) const { return m_records == records; }
    const std::vector<FontRecordPointer> &records() const { return m_records; }
    // As their vectors lie in memory, then as the records do: memory is fastest when it is read from end to end.
    const std::vector<Face> &faces() const { return m_faces; }
    std::size_t familyCount() const { return m_familyCount; }
    // The first of this name, which has this vector; null when there is none.
    const Face *find(const std::string &postScriptName, std::span<const float> vector) const;

private:
    std::vector<FontRecordPointer> m_records;
    std::vector<Face> m_faces;
    std::size_t m_familyCount = 0;
};

} // namespace kerlune
