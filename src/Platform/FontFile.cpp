#include "Platform/FontFile.h"

#include "Platform/Tag.h"
#include "Support/BigEndian.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kHeadSize = 4096;
constexpr std::uint32_t kMostFaces = 65'535;
constexpr std::uint32_t kMostUncompressed = 30U << 20; // bytes

FontError errorForErrno(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return FontError::NotFound;
    case EACCES:
    case EPERM:
        return FontError::PermissionDenied;
    case ENAMETOOLONG:
        return FontError::NameTooLong;
    case ENXIO:
        return FontError::NotAFile;
    default:
        return FontError::Unreadable;
    }
}

// Resource fork (Inside Macintosh: More Macintosh Toolbox, 1-121): offsets and lengths of data and map.
bool looksLikeSuitcase(ByteView head, std::uint64_t fileSize)
{
    const auto dataOffset = readU32(head, 0);
    const auto mapOffset = readU32(head, 4);
    const auto dataLength = readU32(head, 8);
    const auto mapLength = readU32(head, 12);
    return mapLength && *dataOffset >= 16 && *mapLength >= 28 && std::uint64_t{*dataOffset} + *dataLength <= fileSize &&
           std::uint64_t{*mapOffset} + *mapLength <= fileSize;
}

FontFile::Status fileStatus(const struct stat &status)
{
    return {static_cast<std::uint64_t>(status.st_size),
            static_cast<double>(status.st_mtim.tv_sec) + static_cast<double>(status.st_mtim.tv_nsec) * 1e-9};
}

} // namespace

tl::expected<std::shared_ptr<const FontFile>, FontError> FontFile::open(std::string path)
{
    if (!isValidUtf8(path))
        return tl::unexpected(FontError::NotUtf8Path);
    // Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return tl::unexpected(errorForErrno(errno));
    const std::shared_ptr<FontFile> file(new FontFile(std::move(path), descriptor));

    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return tl::unexpected(errorForErrno(errno));
    if (!S_ISREG(status.st_mode))
        return tl::unexpected(FontError::NotAFile);
    file->m_status = fileStatus(status);

    if (const auto recognised = file->recogniseContainer(); !recognised)
        return tl::unexpected(recognised.error());
    return file;
}

std::optional<FontFile::Status> FontFile::status(const std::string &path)
{
    struct stat status = {};
    const bool isFile = stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? std::optional(fileStatus(status)) : std::nullopt;
}

FontFile::FontFile(std::string path, int descriptor)
    : m_path(std::move(path))
    , m_descriptor(descriptor)
{}

FontFile::~FontFile()
{
    ::close(m_descriptor);
}

tl::expected<void, FontError> FontFile::recogniseContainer()
{
    std::vector<std::uint8_t> head(std::min<std::uint64_t>(kHeadSize, m_status.size));
    if (!read(0, head))
        return tl::unexpected(FontError::Unreadable);
    m_head = std::move(head);

    const auto magic = readU32(m_head, 0);
    if (!magic)
        return tl::unexpected(FontError::UnknownFormat);
    switch (*magic) {
    case 0x00010000:
    case 0x00020000:
    case tag("true"):
    case tag("typ1"):
    case tag("OTTO"):
        m_directoryOffsets = {0};
        return {};
    case tag("ttcf"):
        return readCollectionHeader();
    case tag("wOFF"):
    case tag("wOF2"):
        m_container = Container::Woff;
        m_faceCount = 0;
        // WOFF 1 and 2, header: totalSfntSize at offset 16.
        if (readU32(m_head, 16).value_or(0) > kMostUncompressed)
            return tl::unexpected(FontError::TooLarge);
        return {};
    default:
        if (!looksLikeSuitcase(m_head, m_status.size))
            return tl::unexpected(FontError::UnknownFormat);
        m_container = Container::Suitcase;
        m_faceCount = 0;
        return {};
    }
}

tl::expected<void, FontError> FontFile::readCollectionHeader()
{
    // OpenType, TTC Header: numFonts at offset 8, then one table directory offset for each font.
    m_container = Container::Collection;
    const std::uint32_t count = readU32(m_head, 8).value_or(0);
    if (count == 0 || count > kMostFaces || 12 + std::uint64_t{count} * 4 > m_status.size)
        return tl::unexpected(FontError::Damaged);
    std::vector<std::uint8_t> offsets(std::size_t{count} * 4);
    if (!read(12, offsets))
        return tl::unexpected(FontError::Unreadable);
    m_faceCount = count;
    for (std::uint32_t i = 0; i < count; ++i)
        m_directoryOffsets.push_back(*readU32(offsets, std::size_t{i} * 4));
    return {};
}

std::uint32_t FontFile::directoryOffset(std::uint32_t faceIndex) const
{
    return m_directoryOffsets.at(faceIndex);
}

bool FontFile::read(std::uint64_t offset, std::span<std::uint8_t> buffer) const
{
    if (offset > m_status.size || buffer.size() > m_status.size - offset)
        return false;
    if (offset + buffer.size() <= m_head.size()) {
        std::copy_n(m_head.begin() + static_cast<std::ptrdiff_t>(offset), buffer.size(), buffer.begin());
        return true;
    }
    while (!buffer.empty()) {
        const ssize_t count = pread(m_descriptor, buffer.data(), buffer.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        buffer = buffer.subspan(static_cast<std::size_t>(count));
        offset += static_cast<std::uint64_t>(count);
    }
    return true;
}

std::string describe(FontError error)
{
    switch (error) {
    case FontError::NotFound:
        return localized("fichier introuvable");
    case FontError::PermissionDenied:
        return localized("accès refusé");
    case FontError::NotAFile:
        return localized("pas un fichier");
    case FontError::Unreadable:
        return localized("erreur de lecture");
    case FontError::NameTooLong:
        return localized("chemin trop long");
    case FontError::NotUtf8Path:
        return localized("nom de fichier qui n’est pas de l’UTF-8 valide");
    case FontError::UnknownFormat:
        return localized("format autre que TrueType et OpenType");
    case FontError::Damaged:
        return localized("police endommagée");
    case FontError::TooLarge:
        return localized("police compressée de plus de 30 Mio");
    case FontError::NoSuchFace:
        return localized("graisse absente du fichier");
    case FontError::NoPostScriptName:
        return localized("aucun nom PostScript lisible");
    case FontError::HiddenName:
        return localized("police masquée du système");
    case FontError::NoUnitsPerEm:
        return localized("cadratin de 0 unité");
    case FontError::RefusedBySystem:
        return localized("lisible, mais refusée par la configuration des polices du système");
    case FontError::BlocksReaders:
        return localized("tube sur lequel les programmes qui lisent les polices attendent sans fin ; retirez-le");
    case FontError::TooCostly:
        return localized("lecture de plus de 2 secondes");
    }
    return {};
}

} // namespace kerlune
