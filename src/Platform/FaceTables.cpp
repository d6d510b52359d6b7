#include "Platform/FaceTables.h"

#include "Platform/FreeTypeFace.h"
#include "Support/BigEndian.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

bool isWrapped(const FontFile &file)
{
    return file.container() == FontFile::Container::Woff || file.container() == FontFile::Container::Suitcase;
}

} // namespace

FaceTables::FaceTables(std::shared_ptr<const FontFile> file)
    : m_file(std::move(file))
{}

FaceTables::~FaceTables() = default;
FaceTables::FaceTables(FaceTables &&) noexcept = default;
FaceTables &FaceTables::operator=(FaceTables &&) noexcept = default;

tl::expected<std::uint32_t, FontError> FaceTables::faceCount(const std::shared_ptr<const FontFile> &file)
{
    if (!isWrapped(*file))
        return file->faceCount();
    return FreeTypeFace::open(file, 0).map([](const auto &face) { return face->faceCount(); });
}

tl::expected<FaceTables, FontError> FaceTables::open(std::shared_ptr<const FontFile> file, std::uint32_t faceIndex)
{
    FaceTables tables(std::move(file));
    if (isWrapped(*tables.m_file)) {
        auto unwrapped = FreeTypeFace::open(tables.m_file, faceIndex);
        if (!unwrapped)
            return tl::unexpected(unwrapped.error());
        tables.m_unwrapped = std::move(*unwrapped);
        return tables;
    }
    if (const auto read = tables.readDirectory(faceIndex); !read)
        return tl::unexpected(read.error());
    return tables;
}

tl::expected<void, FontError> FaceTables::readDirectory(std::uint32_t faceIndex)
{
    // OpenType, Table Directory: numTables at offset 4, records of 16 bytes from offset 12.
    if (faceIndex >= m_file->faceCount())
        return tl::unexpected(FontError::NoSuchFace);
    const std::uint64_t start = m_file->directoryOffset(faceIndex);
    std::array<std::uint8_t, 12> header{};
    if (!m_file->read(start, header))
        return tl::unexpected(FontError::Damaged);
    const std::size_t count = *readU16(header, 4);
    std::vector<std::uint8_t> records(count * 16);
    if (count == 0 || !m_file->read(start + header.size(), records))
        return tl::unexpected(FontError::Damaged);

    m_entries.reserve(count);
    for (std::size_t at = 0; at < records.size(); at += 16) {
        const Entry entry{*readU32(records, at), *readU32(records, at + 8), *readU32(records, at + 12)};
        if (std::uint64_t{entry.offset} + entry.length <= m_file->size())
            m_entries.push_back(entry);
    }
    return {};
}

const FaceTables::Entry *FaceTables::entry(Tag tag) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [tag](const Entry &e) { return e.tag == tag; });
    return found == m_entries.end() ? nullptr : &*found;
}

std::size_t FaceTables::length(Tag tag) const
{
    const Entry *found = entry(tag);
    const std::size_t length = m_unwrapped != nullptr ? m_unwrapped->tableLength(tag)
                               : found != nullptr     ? found->length
                                                      : 0;
    return length <= kMostBytes ? length : 0;
}

std::vector<std::uint8_t> FaceTables::read(Tag tag, std::size_t limit) const
{
    return readRange(tag, 0, std::min(limit, length(tag)));
}

std::vector<std::uint8_t> FaceTables::readRange(Tag tag, std::size_t offset, std::size_t length) const
{
    if (m_unwrapped != nullptr)
        return m_unwrapped->readTable(tag, offset, length);
    const Entry *found = entry(tag);
    if (found == nullptr || offset > found->length || length > found->length - offset)
        return {};
    std::vector<std::uint8_t> bytes(length);
    if (!m_file->read(std::uint64_t{found->offset} + offset, bytes))
        return {};
    return bytes;
}

} // namespace kerlune
