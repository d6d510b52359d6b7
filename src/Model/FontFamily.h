#pragma once

#include "Model/FontRecord.h"

#include <memory>
#include <string>
#include <vector>

namespace kerlune {

// The faces under one family name. Its name identifies it.
struct FontFamily {
    std::string name;
    std::vector<FontRecordPointer> faces; // none is null

    const std::string &id() const { return name; }

    // Upright before italic, then by width, then by weight, then by style name. Width comes first so that condensed
    // styles stand as one block ahead of the normal ones.
    std::vector<FontRecordPointer> sortedFaces() const;

    // The face that stands for the family: nearest to regular weight, then upright, then nearest to normal width.
    // Precondition: the family has a face.
    const FontRecordPointer &representative() const;

    bool isVariable() const;          // a face is
    bool isColor() const;             // a face is
    std::uint64_t scriptMask() const; // what its faces cover together, see ScriptCoverage

    bool riskyLicense() const; // a face forbids embedding (OpenType OS/2, fsType bit 1)

    bool operator==(const FontFamily &other) const; // compares the faces themselves, not their addresses
};

// Families are shared and never change: lists of them copy pointers.
using FontFamilyPointer = std::shared_ptr<const FontFamily>;

} // namespace kerlune

template <>
struct std::hash<kerlune::FontFamily> {
    std::size_t operator()(const kerlune::FontFamily &family) const;
};
