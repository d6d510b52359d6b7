#pragma once

#include "Platform/FontFile.h"
#include "Platform/Tag.h"

#include <memory>
#include <vector>

// FreeType's handles, known here by name only.
struct FT_FaceRec_;
struct FT_LibraryRec_;

namespace kerlune {

// Of outlines that are loaded at one pixel to the font unit: FreeType's 26.6.
constexpr double kOutlineUnitsPerFontUnit = 64;

// One face opened by FreeType over our own reading of the file (never its mapping), with a FreeType library of its own.
//
// Thread: one at a time.
class FreeTypeFace final {
public:
    // FreeType offers either the pictures of a face with 'sbix' or its outlines.
    enum class Offer { Pictures, Outlines };

    static tl::expected<std::unique_ptr<FreeTypeFace>, FontError>
    open(std::shared_ptr<const FontFile> file, std::uint32_t faceIndex, Offer offer = Offer::Pictures);
    ~FreeTypeFace();
    FreeTypeFace(const FreeTypeFace &) = delete;
    FreeTypeFace &operator=(const FreeTypeFace &) = delete;

    FT_FaceRec_ *face() const;
    FT_LibraryRec_ *library() const;
    std::uint32_t faceCount() const; // of the whole file

    // Length of a table in bytes, 0 when the face has none.
    std::size_t tableLength(Tag tag) const;
    // Bytes of a table; empty unless all of them lie inside it and can be read.
    std::vector<std::uint8_t> readTable(Tag tag, std::size_t offset, std::size_t length) const;

private:
    struct Implementation;
    explicit FreeTypeFace(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace kerlune
