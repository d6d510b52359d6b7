#pragma once

#include "Platform/CharacterMap.h"
#include "Platform/FaceTables.h"
#include "Platform/FontDescriptor.h"
#include "Platform/NameTable.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct hb_face_t;

namespace kerlune {

// A design coordinate of a variable font, in the axis's own units (OpenType 'fvar': wght 400, wdth 75, slnt −12).
struct AxisValue {
    Tag axis;
    double value;

    bool operator==(const AxisValue &) const = default;
};

// A named instance other than the default one.
struct NamedInstance {
    std::uint32_t index; // 1-based position in 'fvar'
    std::string postScriptName;
    std::string styleName;
};

// One face of a font file, at one point of its design space: its names, tables, characters and metrics.
//
// Thread: a face and its instances share what they read, and are used by one thread at a time. The names and a few
// numbers are kept, everything else is read when it is asked for.
class FontFace final {
public:
    static constexpr std::chrono::seconds kMostTimeForFaces{2}; // listing the faces of one file, processor time

    // instanceIndex 0 is the default instance, n the n-th named instance of 'fvar'.
    static tl::expected<std::shared_ptr<const FontFace>, FontError>
    open(const std::shared_ptr<const FontFile> &file, std::uint32_t faceIndex, std::uint32_t instanceIndex = 0);
    static tl::expected<std::shared_ptr<const FontFace>, FontError> open(const FontDescriptor &descriptor);

    // The same face at another instance.
    tl::expected<std::shared_ptr<const FontFace>, FontError> instance(std::uint32_t instanceIndex) const;

    const std::shared_ptr<const FontFile> &file() const;
    std::uint32_t faceIndex() const;
    std::uint32_t instanceIndex() const { return m_instanceIndex; }
    const FaceTables &tables() const;

    // Names. A named instance has its own PostScript and style names.
    std::optional<std::string> postScriptName() const;
    std::optional<std::string> familyName() const; // typographic family, else family
    std::optional<std::string> styleName() const;  // typographic subfamily, else subfamily
    std::optional<std::string> name(NameId id) const;

    // Whether the face can be in the index at all: it has a PostScript name that is not hidden, and an em.
    tl::expected<void, FontError> checkUsable() const;

    std::uint32_t unitsPerEm() const; // OpenType head.unitsPerEm; 0 when the face is broken
    std::uint16_t macStyle() const;   // OpenType head.macStyle
    std::uint32_t glyphCount() const; // OpenType maxp.numGlyphs
    CharacterMap characterMap() const { return CharacterMap::read(tables()); }

    bool isVariable() const;
    // Where the face lies in its design space; empty for the default instance.
    const std::vector<AxisValue> &coordinates() const { return m_coordinates; }
    // All but those at the default coordinates. After that much processor time, and after 4 MiB of names, the rest is
    // left out.
    std::vector<NamedInstance> otherInstances(std::chrono::nanoseconds mostTime = kMostTimeForFaces) const;

    // For shaping and measuring; reads through this face and must not outlive it.
    hb_face_t *harfBuzz() const;

private:
    struct Source; // what all instances of a face share

    FontFace(std::shared_ptr<const Source> source, std::uint32_t instanceIndex, std::vector<AxisValue> coordinates);
    std::vector<AxisValue> instanceCoordinates(std::uint32_t instanceIndex) const;
    std::string instancePostScriptName(std::uint32_t instanceIndex) const;
    std::optional<std::string> instanceStyleName(std::uint32_t instanceIndex) const;

    std::shared_ptr<const Source> m_source;
    std::uint32_t m_instanceIndex;
    std::vector<AxisValue> m_coordinates;
};

} // namespace kerlune
