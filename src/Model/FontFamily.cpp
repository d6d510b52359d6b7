#include "Model/FontFamily.h"

#include "Support/Hash.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>

namespace kerlune {

std::vector<FontRecordPointer> FontFamily::sortedFaces() const
{
    const auto order = [](const FontRecordPointer &face) {
        return std::tie(face->isItalic, face->width, face->weight, face->style);
    };
    std::vector<FontRecordPointer> sorted = faces;
    std::stable_sort(sorted.begin(), sorted.end(), [&](const auto &a, const auto &b) { return order(a) < order(b); });
    return sorted;
}

const FontRecordPointer &FontFamily::representative() const
{
    if (faces.empty())
        std::abort();
    const auto distance = [](const FontRecordPointer &face) {
        return std::tuple(std::abs(face->weight), face->isItalic, std::abs(face->width));
    };
    return *std::min_element(faces.begin(), faces.end(),
                             [&](const auto &a, const auto &b) { return distance(a) < distance(b); });
}

bool FontFamily::isVariable() const
{
    return std::any_of(faces.begin(), faces.end(), [](const FontRecordPointer &face) { return face->isVariable; });
}

bool FontFamily::isColor() const
{
    return std::any_of(faces.begin(), faces.end(), [](const FontRecordPointer &face) { return face->isColor; });
}

std::uint64_t FontFamily::scriptMask() const
{
    std::uint64_t mask = 0;
    for (const FontRecordPointer &face : faces)
        mask |= face->scriptMask;
    return mask;
}

bool FontFamily::riskyLicense() const
{
    return std::any_of(faces.begin(), faces.end(),
                       [](const FontRecordPointer &face) { return (face->fsType & 0x0002) != 0; });
}

bool FontFamily::operator==(const FontFamily &other) const
{
    return name == other.name && std::equal(faces.begin(), faces.end(), other.faces.begin(), other.faces.end(),
                                            [](const auto &a, const auto &b) { return *a == *b; });
}

} // namespace kerlune

std::size_t std::hash<kerlune::FontFamily>::operator()(const kerlune::FontFamily &family) const
{
    kerlune::Hasher hasher;
    hasher.feed(family.name, family.faces.size());
    for (const auto &face : family.faces)
        hasher.feed(*face);
    return hasher.value();
}
