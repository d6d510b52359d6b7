#include "Platform/DescriptorCache.h"

#include "Support/AtomicFile.h"

#include <QDataStream>
#include <QFile>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr quint32 kMagic = 0x4B464443;      // "KFDC"
constexpr quint32 kVersion = 1;             // raise it whenever the faces of a file are described differently
constexpr std::size_t kLeastEntrySize = 28; // bytes: of an empty path and without faces

QByteArray bytesOf(const std::string &text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

void write(QDataStream &stream, const FontCatalog::Listing &listing)
{
    stream << static_cast<quint32>(listing.fonts.size());
    for (const FontDescriptor &font : listing.fonts)
        stream << font.faceIndex << font.instanceIndex << bytesOf(font.postScriptName);
    stream << static_cast<quint32>(listing.skipped.size());
    for (const SkippedFont &skipped : listing.skipped)
        stream << static_cast<quint8>(skipped.reason);
}

FontCatalog::Listing read(QDataStream &stream, const std::string &path)
{
    FontCatalog::Listing listing;
    quint32 count = 0;
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        FontDescriptor font{path, 0, 0, {}};
        QByteArray name;
        stream >> font.faceIndex >> font.instanceIndex >> name;
        font.postScriptName = name.toStdString();
        listing.fonts.push_back(std::move(font));
    }
    stream >> count;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        quint8 reason = 0;
        stream >> reason;
        if (reason > static_cast<quint8>(FontError::NameTooLong))
            stream.setStatus(QDataStream::ReadCorruptData);
        listing.skipped.push_back({path, static_cast<FontError>(reason)});
    }
    return listing;
}

// The last two bytes are the checksum of all before them.
bool hasMatchingChecksum(const QByteArray &bytes)
{
    if (bytes.size() < 2)
        return false;
    QDataStream end(bytes.last(2));
    quint16 checksum = 0;
    end >> checksum;
    return checksum == qChecksum(QByteArrayView(bytes).chopped(2));
}

} // namespace

DescriptorCache::DescriptorCache(std::filesystem::path file)
    : m_file(std::move(file))
{
    load();
}

const FontCatalog::Listing *DescriptorCache::find(const std::string &path, const Stamp &stamp)
{
    const auto found = m_entries.find(path);
    if (found == m_entries.end() || found->second.stamp != stamp)
        return nullptr;
    found->second.isUsed = true;
    return &found->second.listing;
}

void DescriptorCache::insert(const std::string &path, const Stamp &stamp, FontCatalog::Listing listing)
{
    m_entries.insert_or_assign(path, Entry{stamp, std::move(listing), true});
    m_isChanged = true;
}

void DescriptorCache::leaveOut(const FontDescriptor &font, FontError reason)
{
    const auto found = m_entries.find(font.path);
    if (found == m_entries.end() || std::erase(found->second.listing.fonts, font) == 0)
        return;
    found->second.listing.skipped.push_back({font.path, reason});
    m_isChanged = true;
}

void DescriptorCache::save()
{
    dropUnusedEntries();
    if (!m_isChanged)
        return;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << kMagic << kVersion << static_cast<quint32>(m_entries.size());
    for (const auto &[path, entry] : m_entries) {
        stream << bytesOf(path) << static_cast<qint64>(entry.stamp.modificationTime)
               << static_cast<quint64>(entry.stamp.size);
        write(stream, entry.listing);
    }
    stream << qChecksum(bytes);
    if (writeFileAtomically(m_file, std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size()))))
        m_isChanged = false;
}

void DescriptorCache::load()
{
    QFile file(QFile::decodeName(m_file.c_str()));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_4);
    quint32 magic = 0;
    quint32 version = 0;
    quint32 count = 0;
    stream >> magic >> version >> count;
    const bool isSound = magic == kMagic && version == kVersion && hasMatchingChecksum(bytes);
    if (isSound)
        m_entries.reserve(std::min(std::size_t{count}, static_cast<std::size_t>(bytes.size()) / kLeastEntrySize));
    for (quint32 i = 0; isSound && i < count; ++i) {
        QByteArray bytesOfPath;
        qint64 modificationTime = 0;
        quint64 size = 0;
        stream >> bytesOfPath >> modificationTime >> size;
        std::string path = bytesOfPath.toStdString();
        FontCatalog::Listing listing = read(stream, path);
        if (stream.status() != QDataStream::Ok)
            break;
        m_entries.insert_or_assign(std::move(path), Entry{{modificationTime, size}, std::move(listing), false});
    }
}

void DescriptorCache::dropUnusedEntries()
{
    const auto isUnused = [](const auto &item) { return !item.second.isUsed; };
    const auto unused = static_cast<std::size_t>(std::count_if(m_entries.begin(), m_entries.end(), isUnused));
    if (2 * unused > m_entries.size() && std::erase_if(m_entries, isUnused) > 0)
        m_isChanged = true;
}

} // namespace kerlune
