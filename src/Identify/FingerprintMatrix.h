#pragma once

#include "Identify/Fingerprint.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kerlune {

// Fingerprints by PostScript name: rows of one contiguous matrix, so that comparing one with all runs at the speed of
// memory. Vectors of another length than Fingerprint::kLength, such as an older layout's, are kept beside it.
//
// Thread: any for reading; changing it needs it alone.
class FingerprintMatrix final {
public:
    // Floats from one row to the next: whole cache lines. What follows a vector in its row is 0.
    static constexpr std::size_t kStride = (Fingerprint::kLength + 15) / 16 * 16;

    void reserve(std::size_t vectors);
    void insert(const std::string &postScriptName, std::span<const float> vector); // replaces the one that is there

    std::size_t count() const { return m_rows.size() + m_others.size(); }
    bool contains(const std::string &postScriptName) const;
    std::optional<std::span<const float>> find(const std::string &postScriptName) const;

    // The dot product, in single precision and always in the same order of additions; 0 where the lengths differ or are
    // 0. The two come from find().
    static float score(std::span<const float> a, std::span<const float> b);

private:
    struct alignas(64) CacheLine {
        float values[16];
    };
    static constexpr std::size_t kLinesOfRow = kStride / 16;

    float *row(std::size_t index) { return m_lines[index * kLinesOfRow].values; }
    const float *row(std::size_t index) const { return m_lines[index * kLinesOfRow].values; }

    std::vector<CacheLine> m_lines;
    std::unordered_map<std::string, std::size_t> m_rows; // by PostScript name
    std::unordered_map<std::string, std::vector<float>> m_others;
};

} // namespace kerlune
