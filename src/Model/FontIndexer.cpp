#include "Model/FontIndexer.h"

#include "Model/Classifier.h"
#include "Model/FontTraits.h"
#include "Model/SFNTReader.h"
#include "Model/ScriptCoverage.h"
#include "Platform/FontFace.h"
#include "Platform/FontMetrics.h"
#include "Support/CpuStopwatch.h"
#include "Support/ParallelFor.h"
#include "Support/Text.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace kerlune {

namespace {

using Reading = tl::expected<FontRecord, FontError>;

constexpr std::int64_t kProgressStep = 128;
constexpr std::chrono::seconds kMostTimeForAFace{2};
constexpr std::chrono::seconds kMostTimeForAFile{10}; // a thousand slow instances would take half an hour

Reading extractFace(const std::shared_ptr<const FontFace> &face, std::uint64_t scriptMask)
{
    if (const auto usable = face->checkUsable(); !usable)
        return tl::unexpected(usable.error());
    const SFNTReader::OS2Info os2 = SFNTReader::readOS2(*face);
    const FontTraits traits = readTraits(*face, os2);
    const FontMetrics metrics = readMetrics(face);

    FontRecord record;
    record.postScriptName = *face->postScriptName();
    record.family = face->familyName().value_or(record.postScriptName);
    record.style = face->styleName().value_or("");
    record.filePath = face->file()->path();
    record.mtime = face->file()->modificationTime();
    record.fileSize = face->file()->size();
    record.weight = traits.weight;
    record.width = traits.width;
    record.slant = traits.slant;
    record.symbolicTraits = traits.symbolic;
    record.isVariable = face->isVariable();
    record.isMonospace = (traits.symbolic & FontTraits::kMonospace) != 0 || os2.panoseMonospaced;
    record.isColor = (traits.symbolic & FontTraits::kColor) != 0;
    record.isItalic = (traits.symbolic & FontTraits::kItalic) != 0 || traits.slant > 0.02;
    record.xHeightRatio = metrics.xHeight;
    record.capHeightRatio = metrics.capHeight;
    record.glyphCount = face->glyphCount();
    record.scriptMask = scriptMask;
    record.classification = Classifier::classify(
        {record.family, record.isMonospace, record.scriptMask, record.glyphCount, traits.symbolic}, face);
    record.version = face->name(NameId::Version);
    record.foundry = face->name(NameId::Manufacturer);
    record.designer = face->name(NameId::Designer);
    record.licenseURL = face->name(NameId::LicenseUrl);
    record.copyrightNotice = face->name(NameId::Copyright);
    record.fsType = os2.fsType;
    return record;
}

// Reads faces one after the other. Neighbours share what they have in common: the file, and the instances of a variable
// face its tables and its coverage.
class RecordReader final {
public:
    Reading read(const FontDescriptor &descriptor)
    {
        const CpuStopwatch stopwatch;
        const auto face = open(descriptor);
        if (m_spent > kMostTimeForAFile)
            return tl::unexpected(FontError::TooCostly);
        Reading record = face.and_then([&](const auto &open) { return extractFace(open, m_scriptMask); });
        m_spent += stopwatch.elapsed();
        if (stopwatch.elapsed() > kMostTimeForAFace)
            return tl::unexpected(FontError::TooCostly);
        return record;
    }

private:
    tl::expected<std::shared_ptr<const FontFace>, FontError> open(const FontDescriptor &descriptor)
    {
        if (m_file == nullptr || m_file->path() != descriptor.path) {
            m_face.reset();
            m_spent = {};
            auto file = FontFile::open(descriptor.path);
            if (!file)
                return tl::unexpected(file.error());
            m_file = *std::move(file);
        }
        if (m_face == nullptr || m_face->faceIndex() != descriptor.faceIndex) {
            auto face = FontFace::open(m_file, descriptor.faceIndex);
            if (!face)
                return tl::unexpected(face.error());
            m_face = *std::move(face);
            m_scriptMask = ScriptCoverage::mask(*m_face);
        }
        return m_face->instance(descriptor.instanceIndex);
    }

    std::shared_ptr<const FontFile> m_file;
    std::shared_ptr<const FontFace> m_face; // the default instance of the last one
    std::uint64_t m_scriptMask = 0;         // of m_face
    std::chrono::nanoseconds m_spent{};     // on the faces of m_file so far
};

} // namespace

FontIndexer::FontIndexer(const FontCatalog &catalog)
    : m_catalog(catalog)
{}

FontIndexer::Index FontIndexer::buildIndex(const ProgressHandler &onProgress, const std::stop_token &stop) const
{
    FontCatalog::Listing available = availableDescriptors(Duplicates::Remove);
    const std::vector<FontDescriptor> &fonts = available.fonts;
    std::vector<Extraction> extractions = extractAll(fonts, onProgress, stop);

    Index index{{}, std::move(available.skipped)};
    std::vector<FontDescriptor> costly;
    for (std::size_t i = 0; i < fonts.size(); ++i) {
        if (extractions[i]) {
            index.records.push_back(*std::move(extractions[i]));
            continue;
        }
        index.skipped.push_back({fonts[i].path, extractions[i].error()});
        // What passes by itself, such as a file that is just being replaced, is tried again the next time.
        if (extractions[i].error() == FontError::TooCostly)
            costly.push_back(fonts[i]);
    }
    if (!costly.empty())
        m_catalog.leaveOut(costly, FontError::TooCostly);
    return index;
}

auto FontIndexer::extractAll(std::span<const FontDescriptor> descriptors, const ProgressHandler &onProgress,
                             const std::stop_token &stop) -> std::vector<Extraction>
{
    const auto total = static_cast<std::int64_t>(descriptors.size());
    std::vector<Extraction> extractions(descriptors.size(), tl::unexpected(FontError::Unreadable));
    std::int64_t completed = 0;
    std::mutex mutex; // guards the two above

    parallelForRanges(descriptors.size(), [&](std::size_t first, std::size_t last) {
        RecordReader reader;
        for (std::size_t i = first; i != last && !stop.stop_requested(); ++i) {
            Extraction extraction = reader.read(descriptors[i]).map([](FontRecord &&record) {
                return std::make_shared<const FontRecord>(std::move(record));
            });
            std::int64_t done = 0;
            {
                const std::lock_guard lock(mutex);
                extractions[i] = std::move(extraction);
                done = ++completed;
            }
            if (onProgress && (done % kProgressStep == 0 || done == total))
                onProgress({done, total});
        }
    });
    return extractions;
}

FontCatalog::Listing FontIndexer::availableDescriptors(Duplicates duplicates) const
{
    return m_catalog.availableFonts(duplicates);
}

tl::expected<FontRecord, FontError> FontIndexer::extract(const FontDescriptor &descriptor)
{
    return RecordReader().read(descriptor);
}

std::vector<FontFamily> FontIndexer::groupIntoFamilies(std::span<const FontRecordPointer> records)
{
    std::vector<FontFamily> families;
    std::unordered_map<std::string_view, std::size_t> positions; // views into the records, which stay
    for (auto first = records.begin(); first != records.end();) {
        const std::string &family = (*first)->family;
        const auto last =
            std::find_if(first, records.end(), [&](const auto &record) { return record->family != family; });
        const auto [position, isNew] = positions.try_emplace(family, families.size());
        if (isNew)
            families.push_back({family, {}});
        std::vector<FontRecordPointer> &faces = families[position->second].faces;
        faces.insert(faces.end(), first, last); // mostly these are all
        first = last;
    }

    std::vector<std::pair<std::string, std::size_t>> keys(families.size());
    parallelForRanges(families.size(), [&](std::size_t first, std::size_t last) {
        const NameCollator collator;
        for (std::size_t i = first; i != last; ++i)
            keys[i] = {collator.sortKey(families[i].name), i};
    });
    std::sort(keys.begin(), keys.end()); // equal keys by position: stable

    std::vector<FontFamily> sorted;
    sorted.reserve(families.size());
    for (const auto &[key, position] : keys)
        sorted.push_back(std::move(families[position]));
    return sorted;
}

} // namespace kerlune
