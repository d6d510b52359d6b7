#include "Platform/FreeTypeFace.h"

#include "Platform/FreeTypeMemory.h"
#include "Support/Handle.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>

namespace kerlune {

namespace {

unsigned long readStream(FT_Stream stream, unsigned long offset, unsigned char *buffer, unsigned long count)
{
    const auto *file = static_cast<const FontFile *>(stream->descriptor.pointer);
    if (count == 0) // FreeType asks whether it may seek there; 0 is yes
        return offset <= stream->size ? 0 : 1;
    return file->read(offset, std::span(buffer, count)) ? count : 0;
}

FontError errorForFreeType(FT_Error error)
{
    switch (error) {
    case FT_Err_Unknown_File_Format:
        return FontError::UnknownFormat;
    case FT_Err_Array_Too_Large:
        return FontError::TooLarge;
    case FT_Err_Invalid_Argument: // the index lies beyond the file's faces
        return FontError::NoSuchFace;
    default:
        return FontError::Damaged;
    }
}

} // namespace

struct FreeTypeFace::Implementation {
    std::shared_ptr<const FontFile> file;
    FT_StreamRec stream{};
    FreeTypeMemory memory;
    Handle<FT_LibraryRec_, FT_Done_Library> library;
    Handle<FT_FaceRec_, FT_Done_Face> face; // goes first, as each member needs those before it
};

FreeTypeFace::FreeTypeFace(std::unique_ptr<Implementation> implementation)
    : m_implementation(std::move(implementation))
{}

FreeTypeFace::~FreeTypeFace() = default;

tl::expected<std::unique_ptr<FreeTypeFace>, FontError> FreeTypeFace::open(std::shared_ptr<const FontFile> file,
                                                                          std::uint32_t faceIndex)
{
    if (faceIndex > 0xFFFF) // the upper bits would name an instance
        return tl::unexpected(FontError::NoSuchFace);
    auto parts = std::make_unique<Implementation>();
    FT_Library library = nullptr;
    if (FT_New_Library(parts->memory.record(), &library) != 0)
        return tl::unexpected(FontError::Unreadable);
    parts->library.reset(library);
    FT_Add_Default_Modules(library);
    parts->stream.descriptor.pointer = const_cast<FontFile *>(file.get()); // NOLINT: only read through
    parts->stream.size = static_cast<unsigned long>(file->size());
    parts->stream.read = readStream;
    parts->file = std::move(file);

    FT_Open_Args arguments{};
    arguments.flags = FT_OPEN_STREAM;
    arguments.stream = &parts->stream;
    FT_Face face = nullptr;
    if (const FT_Error error = FT_Open_Face(library, &arguments, static_cast<FT_Long>(faceIndex), &face); error != 0)
        return tl::unexpected(errorForFreeType(error));
    parts->face.reset(face);
    if (!FT_IS_SFNT(face))
        return tl::unexpected(FontError::UnknownFormat);
    return std::unique_ptr<FreeTypeFace>(new FreeTypeFace(std::move(parts)));
}

FT_FaceRec_ *FreeTypeFace::face() const
{
    return m_implementation->face.get();
}

FT_LibraryRec_ *FreeTypeFace::library() const
{
    return m_implementation->library.get();
}

std::uint32_t FreeTypeFace::faceCount() const
{
    return static_cast<std::uint32_t>(std::clamp<FT_Long>(face()->num_faces, 0, 0xFFFF));
}

std::size_t FreeTypeFace::tableLength(Tag tag) const
{
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(face(), tag, 0, nullptr, &length) == 0 ? length : 0;
}

std::vector<std::uint8_t> FreeTypeFace::readTable(Tag tag, std::size_t offset, std::size_t length) const
{
    const std::size_t available = tableLength(tag);
    if (length == 0 || offset > available || length > available - offset)
        return {};
    std::vector<std::uint8_t> bytes(length);
    FT_ULong count = length;
    if (FT_Load_Sfnt_Table(face(), tag, static_cast<FT_Long>(offset), bytes.data(), &count) != 0)
        return {};
    return bytes;
}

} // namespace kerlune
