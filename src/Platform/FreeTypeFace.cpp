#include "Platform/FreeTypeFace.h"

#include "Platform/FreeTypeMemory.h"
#include "Support/Handle.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_PARAMETER_TAGS_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

// A file read in blocks: FreeType asks for a few bytes at a time.
class BlockReader final {
public:
    explicit BlockReader(std::shared_ptr<const FontFile> file)
        : m_file(std::move(file))
    {}

    const FontFile &file() const { return *m_file; }

    bool read(std::uint64_t offset, std::span<std::uint8_t> buffer)
    {
        if (buffer.size() >= kBlockSize)
            return m_file->read(offset, buffer);
        const bool isLoaded = offset >= m_start && offset + buffer.size() <= m_start + m_block.size();
        if (!isLoaded && !load(offset, buffer.size()))
            return false;
        std::copy_n(m_block.begin() + static_cast<std::ptrdiff_t>(offset - m_start), buffer.size(), buffer.begin());
        return true;
    }

private:
    static constexpr std::size_t kBlockSize = 2048;

    bool load(std::uint64_t offset, std::size_t least)
    {
        m_start = offset;
        m_block.resize(offset < m_file->size() ? std::min<std::uint64_t>(kBlockSize, m_file->size() - offset) : 0);
        if (m_block.size() >= least && m_file->read(offset, m_block))
            return true;
        m_block.clear();
        return false;
    }

    std::shared_ptr<const FontFile> m_file;
    std::uint64_t m_start = 0;
    std::vector<std::uint8_t> m_block;
};

unsigned long readStream(FT_Stream stream, unsigned long offset, unsigned char *buffer, unsigned long count)
{
    if (count == 0) // FreeType asks whether it may seek there; 0 is yes
        return offset <= stream->size ? 0 : 1;
    return static_cast<BlockReader *>(stream->descriptor.pointer)->read(offset, std::span(buffer, count)) ? count : 0;
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
    explicit Implementation(std::shared_ptr<const FontFile> file)
        : reader(std::move(file))
    {}

    BlockReader reader;
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
                                                                          std::uint32_t faceIndex, Offer offer)
{
    if (faceIndex > 0xFFFF) // the upper bits would name an instance
        return tl::unexpected(FontError::NoSuchFace);
    auto parts = std::make_unique<Implementation>(std::move(file));
    FT_Library library = nullptr;
    if (FT_New_Library(parts->memory.record(), &library) != 0)
        return tl::unexpected(FontError::Unreadable);
    parts->library.reset(library);
    FT_Add_Default_Modules(library);
    parts->stream.descriptor.pointer = &parts->reader;
    parts->stream.size = static_cast<unsigned long>(parts->reader.file().size());
    parts->stream.read = readStream;

    FT_Open_Args arguments{};
    arguments.flags = FT_OPEN_STREAM;
    arguments.stream = &parts->stream;
    FT_Parameter ignoreSbix{FT_PARAM_TAG_IGNORE_SBIX, nullptr};
    if (offer == Offer::Outlines) {
        arguments.flags |= FT_OPEN_PARAMS;
        arguments.num_params = 1;
        arguments.params = &ignoreSbix;
    }
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
