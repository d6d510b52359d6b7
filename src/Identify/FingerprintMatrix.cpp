#include "Identify/FingerprintMatrix.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace kerlune {

void FingerprintMatrix::reserve(std::size_t vectors)
{
    m_lines.reserve(vectors * kLinesOfRow);
    m_rows.reserve(vectors);
}

void FingerprintMatrix::insert(const std::string &postScriptName, std::span<const float> vector)
{
    if (vector.size() != Fingerprint::kLength) {
        m_rows.erase(postScriptName); // its row stays unused
        m_others.insert_or_assign(postScriptName, std::vector(vector.begin(), vector.end()));
        return;
    }
    m_others.erase(postScriptName);
    const auto [entry, isNew] = m_rows.try_emplace(postScriptName, m_lines.size() / kLinesOfRow);
    if (isNew)
        m_lines.resize(m_lines.size() + kLinesOfRow); // of zeros
    std::copy(vector.begin(), vector.end(), row(entry->second));
}

bool FingerprintMatrix::contains(const std::string &postScriptName) const
{
    return m_rows.contains(postScriptName) || m_others.contains(postScriptName);
}

std::optional<std::span<const float>> FingerprintMatrix::find(const std::string &postScriptName) const
{
    if (const auto found = m_rows.find(postScriptName); found != m_rows.end())
        return std::span(row(found->second), Fingerprint::kLength);
    const auto other = m_others.find(postScriptName);
    return other == m_others.end() ? std::nullopt : std::optional(std::span<const float>(other->second));
}

// Sixteen sums side by side, which the compiler keeps in vector registers of any width: the order of additions, and
// with it the result, is the same on every processor.
float FingerprintMatrix::score(std::span<const float> a, std::span<const float> b)
{
    if (a.size() != b.size())
        return 0;
    constexpr std::size_t kLanes = 16;
    std::array<float, kLanes> sums{};
    const std::size_t whole = a.size() / kLanes * kLanes;
    for (std::size_t i = 0; i < whole; i += kLanes) {
        for (std::size_t lane = 0; lane < kLanes; ++lane)
            sums[lane] += a[i + lane] * b[i + lane];
    }
    for (std::size_t i = whole; i < a.size(); ++i)
        sums[i - whole] += a[i] * b[i];
    return std::accumulate(sums.begin(), sums.end(), 0.0F);
}

} // namespace kerlune
