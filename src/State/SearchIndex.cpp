#include "State/SearchIndex.h"

#include "Support/ParallelFor.h"
#include "Support/Text.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <numeric>

namespace kerlune {

namespace {

constexpr std::size_t kBlock = 64; // positions that are looked at together
constexpr char kEndMark = '\xFF';  // a byte that no UTF-8 text holds: no match crosses it
constexpr std::size_t kFamiliesOfAPart = 128;
constexpr std::size_t kSampleStep = 16;

static_assert(std::endian::native == std::endian::little, "the first candidate is the lowest bit of a word");

void appendHaystack(std::string &text, const FontFamily &family)
{
    const auto append = [&](std::string_view word) {
        text += ' ';
        appendFolded(text, word);
    };
    appendFolded(text, family.name);
    for (const FontRecordPointer &face : family.faces) {
        append(face->postScriptName);
        if (face->foundry)
            append(*face->foundry);
        if (face->designer)
            append(*face->designer);
    }
}

// Haystacks of families that follow each other.
struct Part {
    std::string text;
    std::vector<std::size_t> ends = {}; // in the text, behind the end marks
};

std::vector<Part> makeParts(std::span<const FontFamilyPointer> families)
{
    std::vector<Part> parts((families.size() + kFamiliesOfAPart - 1) / kFamiliesOfAPart);
    parallelForRanges(parts.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i) {
            const std::size_t begin = i * kFamiliesOfAPart;
            for (const auto &family : families.subspan(begin, std::min(kFamiliesOfAPart, families.size() - begin))) {
                appendHaystack(parts[i].text, *family);
                parts[i].text += kEndMark;
                parts[i].ends.push_back(parts[i].text.size());
            }
        }
    });
    return parts;
}

// Finds one needle in a long text. Three bytes of the needle, the rarest ones, are compared at 64 positions at a time;
// the loop becomes vector instructions. Only where all three fit is the needle compared as a whole.
class NeedleSearch final {
public:
    static constexpr std::size_t kNone = std::string_view::npos;

    // Precondition: the needle is not empty.
    NeedleSearch(std::string_view needle, const std::array<std::uint32_t, 256> &frequencies)
        : m_needle(needle)
    {
        std::vector<std::size_t> offsets(needle.size());
        std::iota(offsets.begin(), offsets.end(), 0U);
        const std::size_t count = std::min(m_probes.size(), offsets.size());
        const auto frequency = [&](std::size_t offset) {
            return frequencies[static_cast<std::uint8_t>(needle[offset])];
        };
        std::partial_sort(offsets.begin(), offsets.begin() + static_cast<std::ptrdiff_t>(count), offsets.end(),
                          [&](std::size_t a, std::size_t b) { return frequency(a) < frequency(b); });
        for (std::size_t i = 0; i < m_probes.size(); ++i)
            m_probes[i] = offsets[std::min(i, count - 1)];
    }

    // The first occurrence at `from` or behind it. At least kBlock bytes behind the text must be readable.
    std::size_t find(std::string_view text, std::size_t from) const
    {
        if (text.size() < m_needle.size())
            return kNone;
        const std::size_t lastStart = text.size() - m_needle.size();
        for (std::size_t start = from; start <= lastStart; start += kBlock) {
            const auto words = std::bit_cast<Words>(candidatesFrom(text.data() + start));
            if (std::accumulate(words.begin(), words.end(), std::uint64_t{0}, std::bit_or()) == 0)
                continue;
            for (std::size_t i = 0; i < kBlock; i += kWord) {
                for (std::uint64_t word = words[i / kWord]; word != 0; word &= word - 1) { // a candidate is one bit
                    const std::size_t position = start + i + static_cast<std::size_t>(std::countr_zero(word)) / kWord;
                    if (position <= lastStart && text.substr(position, m_needle.size()) == m_needle)
                        return position;
                }
            }
        }
        return kNone;
    }

private:
    static constexpr std::size_t kWord = 8;         // bytes, and bits in a byte
    using Block = std::array<std::uint8_t, kBlock>; // 1 for a candidate, otherwise 0
    using Words = std::array<std::uint64_t, kBlock / kWord>;

    Block candidatesFrom(const char *text) const
    {
        const char *const first = text + m_probes[0];
        const char *const second = text + m_probes[1];
        const char *const third = text + m_probes[2];
        const char a = m_needle[m_probes[0]];
        const char b = m_needle[m_probes[1]];
        const char c = m_needle[m_probes[2]];
        Block candidates;
        for (std::size_t i = 0; i < kBlock; ++i)
            candidates[i] = static_cast<std::uint8_t>((first[i] == a) & (second[i] == b) & (third[i] == c));
        return candidates;
    }

    std::string_view m_needle;
    std::array<std::size_t, 3> m_probes{}; // offsets in the needle
};

} // namespace

SearchIndex::SearchIndex(std::span<const FontFamilyPointer> families)
    : m_families(families.begin(), families.end())
{
    const std::vector<Part> parts = makeParts(families);
    const std::size_t length =
        std::accumulate(parts.begin(), parts.end(), std::size_t{0},
                        [](std::size_t sum, const Part &part) { return sum + part.text.size(); });
    m_text.reserve(length + kBlock);
    m_starts.reserve(families.size() + 1);
    for (const Part &part : parts) {
        for (const std::size_t end : part.ends)
            m_starts.push_back(m_text.size() + end);
        m_text += part.text;
    }
    m_text.append(kBlock, kEndMark);
    for (std::size_t i = 0; i < length; i += kSampleStep)
        ++m_frequencies[static_cast<std::uint8_t>(m_text[i])];

    m_positions.reserve(m_families.size());
    for (std::size_t i = 0; i < m_families.size(); ++i)
        m_positions.emplace(m_families[i]->name, i);
}

std::string_view SearchIndex::haystack(std::size_t position) const
{
    return std::string_view(m_text).substr(m_starts[position], m_starts[position + 1] - m_starts[position] - 1);
}

bool SearchIndex::matches(std::string_view familyName, std::string_view needle) const
{
    const auto position = m_positions.find(familyName);
    return position != m_positions.end() && haystack(position->second).find(needle) != std::string_view::npos;
}

std::vector<std::size_t> SearchIndex::positions(std::string_view needle) const
{
    if (needle.empty()) {
        std::vector<std::size_t> all(familyCount());
        std::iota(all.begin(), all.end(), 0U);
        return all;
    }
    std::vector<std::size_t> found;
    if (needle.find(kEndMark) != std::string_view::npos)
        return found;
    const NeedleSearch search(needle, m_frequencies);
    const std::string_view text = std::string_view(m_text).substr(0, m_starts.back());
    std::size_t family = 0;
    for (std::size_t hit = search.find(text, 0); hit != NeedleSearch::kNone;
         hit = search.find(text, m_starts[family])) {
        while (m_starts[family + 1] <= hit)
            ++family;
        found.push_back(family++);
    }
    return found;
}

} // namespace kerlune
