#pragma once

#include "Platform/CharacterMap.h"
#include "Platform/FaceTables.h"
#include "Platform/FontDescriptor.h"
#include "Platform/NameTable.h"
#include "Support/Handle.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct hb_face_t;
extern "C" void hb_face_destroy(hb_face_t *);

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
// Thread: one at a time. The names and a few numbers are kept, everything else is read when it is asked for.
class FontFace final {
public:
    static constexpr std::uint32_t kMostInstances = 1024; // named instances beyond these are not offered

    // instanceIndex 0 is the default instance, n the n-th named instance of 'fvar'.
    static tl::expected<std::shared_ptr<const FontFace>, FontError>
    open(const std::shared_ptr<const FontFile> &file, std::uint32_t faceIndex, std::uint32_t instanceIndex = 0);
    static tl::expected<std::shared_ptr<const FontFace>, FontError> open(const FontDescriptor &descriptor);

    const std::shared_ptr<const FontFile> &file() const { return m_file; }
    std::uint32_t faceIndex() const { return m_faceIndex; }
    std::uint32_t instanceIndex() const { return m_instanceIndex; }
    const FaceTables &tables() const { return m_tables; }

    // Names. A named instance has its own PostScript and style names.
    std::optional<std::string> postScriptName() const;
    std::optional<std::string> familyName() const; // typographic family, else family
    std::optional<std::string> styleName() const;  // typographic subfamily, else subfamily
    std::optional<std::string> name(NameId id) const { return m_names.find(id); }

    // Whether the face can be in the index at all: it has a PostScript name that is not hidden, and an em.
    tl::expected<void, FontError> checkUsable() const;

    std::uint32_t unitsPerEm() const { return m_unitsPerEm; } // OpenType head.unitsPerEm; 0 when the face is broken
    std::uint16_t macStyle() const { return m_macStyle; }     // OpenType head.macStyle
    std::uint32_t glyphCount() const;                         // OpenType maxp.numGlyphs
    CharacterMap characterMap() const { return CharacterMap::read(m_tables); }

    bool isVariable() const { return m_axisCount > 0; }
    // Where the face lies in its design space; empty for the default instance.
    const std::vector<AxisValue> &coordinates() const { return m_coordinates; }
    std::vector<NamedInstance> otherInstances() const; // all but those at the default coordinates

    // For shaping and measuring; reads through this face and must not outlive it.
    hb_face_t *harfBuzz() const { return m_harfBuzz.get(); }

private:
    using HarfBuzzFace = Handle<hb_face_t, hb_face_destroy>;

    FontFace(std::shared_ptr<const FontFile> file, std::uint32_t faceIndex, FaceTables tables);
    tl::expected<void, FontError> selectInstance(std::uint32_t instanceIndex);
    std::vector<AxisValue> instanceCoordinates(std::uint32_t instanceIndex) const;
    std::string instancePostScriptName(std::uint32_t instanceIndex) const;
    std::optional<std::string> instanceStyleName(std::uint32_t instanceIndex) const;

    std::shared_ptr<const FontFile> m_file;
    std::uint32_t m_faceIndex;
    std::uint32_t m_instanceIndex = 0;
    FaceTables m_tables;
    NameTable m_names;
    std::uint32_t m_unitsPerEm = 0;
    std::uint16_t m_macStyle = 0;
    std::uint32_t m_axisCount = 0;
    std::vector<AxisValue> m_coordinates;
    HarfBuzzFace m_harfBuzz; // reads through m_tables
};

} // namespace kerlune
