#include "Identify/FingerprintIndex.h"
#include "Platform/FontCatalog.h"
#include "Support/CpuStopwatch.h"
#include "Support/ParallelFor.h"

#include <algorithm>
#include <mutex>
#include <numeric>

namespace kerlune {

namespace {

using Vectors = std::unordered_map<std::string, Fingerprint::Vector>;

constexpr std::chrono::seconds kMostTimeForFile{10}; // processor time; the faces after that have no fingerprint

// One file, opened once for the records of its faces.
class FaceSource final {
public:
    explicit FaceSource(const std::string &path)
        : m_file(FontFile::open(path))
    {}

    std::shared_ptr<const FontFace> face(const std::string &postScriptName)
    {
        if (!m_file)
            return nullptr;
        if ((*m_file)->faceCount() == 1) {
            const auto only = FontFace::open(*m_file, 0);
            if (only && (*only)->postScriptName() == postScriptName)
                return *only;
        }
        if (!m_isListed) // a collection, or an instance of a variable font
            m_fonts = fontsOfFile((*m_file)->path()).fonts;
        m_isListed = true;
        const auto found = std::find_if(m_fonts.begin(), m_fonts.end(), [&](const FontDescriptor &font) {
            return font.postScriptName == postScriptName;
        });
        const auto opened = found == m_fonts.end() ? tl::unexpected(FontError::NoSuchFace)
                                                   : FontFace::open(*m_file, found->faceIndex, found->instanceIndex);
        return opened ? *opened : nullptr;
    }

private:
    tl::expected<std::shared_ptr<const FontFile>, FontError> m_file;
    std::vector<FontDescriptor> m_fonts;
    bool m_isListed = false;
};

// Counts the faces done, whichever thread does them, and gathers the vectors.
class Results final {
public:
    explicit Results(const std::function<void(std::size_t)> &onProgress)
        : m_onProgress(onProgress)
    {}

    void add(const std::string &postScriptName, std::optional<Fingerprint::Vector> vector)
    {
        constexpr std::size_t kStep = 100;
        std::size_t done = 0;
        {
            const std::lock_guard turn(m_mutex);
            done = ++m_done;
            if (!vector)
                return;
            m_vectors.insert_or_assign(postScriptName, *std::move(vector));
        }
        if (done % kStep == 0)
            m_onProgress(done);
    }

    Vectors take() { return std::move(m_vectors); }

private:
    const std::function<void(std::size_t)> &m_onProgress;
    std::mutex m_mutex;
    std::size_t m_done = 0;
    Vectors m_vectors;
};

// Positions of the records, those of one file one after the other, and where each file's begin.
struct ByFile {
    std::vector<std::size_t> order;
    std::vector<std::size_t> begins; // with one more at the end
};

ByFile byFile(const std::vector<FontRecordPointer> &records)
{
    ByFile files;
    files.order.resize(records.size());
    std::iota(files.order.begin(), files.order.end(), 0);
    std::stable_sort(files.order.begin(), files.order.end(),
                     [&](std::size_t a, std::size_t b) { return records[a]->filePath < records[b]->filePath; });
    for (std::size_t i = 0; i < files.order.size(); ++i) {
        if (i == 0 || records[files.order[i]]->filePath != records[files.order[i - 1]]->filePath)
            files.begins.push_back(i);
    }
    files.begins.push_back(files.order.size());
    return files;
}

} // namespace

Vectors computeFingerprints(const std::vector<FontRecordPointer> &records,
                            const std::function<void(std::size_t)> &onProgress, const std::stop_token &stop)
{
    const ByFile files = byFile(records);
    Results results(onProgress);
    const auto computeFile = [&](std::size_t file) {
        const std::size_t begin = files.begins[file];
        FaceSource source(records[files.order[begin]]->filePath);
        const CpuStopwatch stopwatch;
        for (std::size_t i = begin; i != files.begins[file + 1] && !stop.stop_requested(); ++i) {
            const std::string &name = records[files.order[i]]->postScriptName;
            const auto face = stopwatch.elapsed() > kMostTimeForFile ? nullptr : source.face(name);
            results.add(name, face == nullptr ? std::nullopt : Fingerprint::compute(face));
        }
    };
    parallelForRanges(files.begins.size() - 1, [&](std::size_t first, std::size_t last) {
        for (std::size_t file = first; file != last; ++file)
            computeFile(file);
    });
    return results.take();
}

} // namespace kerlune
