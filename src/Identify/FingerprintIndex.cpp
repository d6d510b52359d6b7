#include "Identify/FingerprintIndex.h"

#include "Model/ScriptCoverage.h"
#include "Support/ParallelFor.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

// Faces whose Latin is often a generic one.
constexpr std::array<std::string_view, 19> kNonLatinScripts{
    "arabic", "hebrew",  "devanagari", "thai",     "japanese", "korean", "chinese", "tamil", "bengali", "gujarati",
    "telugu", "kannada", "malayalam",  "gurmukhi", "sinhala",  "oriya",  "myanmar", "lao",   "khmer"};

// None when not all of them can be read.
std::shared_ptr<FingerprintMatrix> storedVectors(FontIndexStore &store)
{
    auto vectors = std::make_shared<FingerprintMatrix>();
    vectors->reserve(static_cast<std::size_t>(store.fingerprintCount()));
    const bool isComplete = store.readFingerprints([&](const std::string &name, std::span<const std::uint8_t> blob) {
        vectors->insert(name, Fingerprint::decode(blob));
    });
    return isComplete ? vectors : std::make_shared<FingerprintMatrix>();
}

// Which faces are compared with the reference.
class Choice final {
public:
    Choice(const ComparableFaces::Face *reference, bool latinFocusOnly)
        : m_reference(reference)
        , m_excludedScripts(latinFocusOnly && (reference == nullptr ||
                                               (reference->scriptMask & FingerprintIndex::nonLatinMask()) == 0)
                                ? FingerprintIndex::nonLatinMask()
                                : 0)
        , m_isMonospace(reference != nullptr && reference->isMonospace)
    {}

    bool takes(const ComparableFaces::Face &face) const
    {
        return face.isMonospace == m_isMonospace && (face.scriptMask & m_excludedScripts) == 0 &&
               (m_reference == nullptr || face.family != m_reference->family);
    }

private:
    const ComparableFaces::Face *m_reference;
    std::uint64_t m_excludedScripts;
    bool m_isMonospace;
};

constexpr float kPassedOver = -std::numeric_limits<float>::infinity();

struct ScoredFace {
    float score = kPassedOver;
    std::uint32_t record = 0;
};

// The best face of each family, of equal ones the first.
std::vector<ScoredFace> bestOfFamilies(const ComparableFaces &faces, const Choice &choice,
                                       std::span<const float> reference)
{
    const auto &all = faces.faces();
    std::vector<float> scores(all.size(), kPassedOver);
    parallelForRanges(all.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i) {
            if (!choice.takes(all[i]))
                continue;
            const float score = FingerprintMatrix::score(reference, all[i].vector);
            scores[i] = std::isfinite(score) ? score : 0; // whatever the database holds
        }
    });
    std::vector<ScoredFace> best(faces.familyCount());
    for (std::size_t i = 0; i < all.size(); ++i) {
        ScoredFace &kept = best[all[i].family];
        if (scores[i] > kept.score || (scores[i] == kept.score && all[i].record < kept.record))
            kept = {scores[i], all[i].record};
    }
    std::erase_if(best, [](const ScoredFace &face) { return face.score == kPassedOver; });
    return best;
}

} // namespace

FingerprintIndex::FingerprintIndex(std::shared_ptr<FontIndexStore> store, QObject *parent)
    : QObject(parent)
    , m_store(std::move(store))
{
    m_pool.setMaxThreadCount(1); // what it runs uses all cores itself
    m_pool.setThreadPriority(QThread::LowPriority);
}

FingerprintIndex::~FingerprintIndex()
{
    m_stop.request_stop();
}

std::uint64_t FingerprintIndex::nonLatinMask()
{
    static const std::uint64_t mask = [] {
        std::uint64_t bits = 0;
        const auto &languages = ScriptCoverage::all();
        for (std::size_t i = 0; i < std::min<std::size_t>(languages.size(), 64); ++i) {
            if (std::find(kNonLatinScripts.begin(), kNonLatinScripts.end(), languages[i].id) != kNonLatinScripts.end())
                bits |= std::uint64_t{1} << i;
        }
        return bits;
    }();
    return mask;
}

QCoro::Task<> FingerprintIndex::load()
{
    if (m_store == nullptr || m_isLoaded)
        co_return;
    const QPointer<FingerprintIndex> self(this);
    if (!m_reading)
        m_reading = QtConcurrent::run(&m_pool, [store = m_store] { return storedVectors(*store); });
    const auto reading = *m_reading;
    const std::shared_ptr<FingerprintMatrix> stored = co_await reading;
    if (!self || m_isLoaded)
        co_return;
    m_reading.reset();
    m_vectors = stored;
    m_comparable.reset();
    m_isLoaded = true;
    if (m_unsaved != nullptr)
        add(*m_unsaved);
    m_revision = m_revision.value() + 1;
}

QCoro::Task<> FingerprintIndex::readNames()
{
    const QPointer<FingerprintIndex> self(this);
    const auto reading = QtConcurrent::run(&m_pool, [store = m_store] { return store->fingerprintNames(); });
    std::unordered_set<std::string> names = co_await reading;
    if (self)
        m_names = std::move(names);
}

QCoro::Task<> FingerprintIndex::build(Records records)
{
    if (isBuilding() || m_store == nullptr)
        co_return;
    const QPointer<FingerprintIndex> self(this);
    m_comparable.reset(); // the library has changed: what it was need not stay in memory
    m_isBuilding = true;
    m_progress = 0;
    if (!m_isLoaded && !m_names)
        co_await readNames();
    if (!self)
        co_return;
    keepMissing(records);
    if (!records.empty())
        co_await compute(std::move(records));
    if (!self)
        co_return;
    m_progress = 1;
    m_isBuilding = false;
}

// One record of each name that has no fingerprint: the first, as where fonts are asked for by name.
void FingerprintIndex::keepMissing(Records &records) const
{
    std::unordered_set<std::string_view> names;
    std::erase_if(records, [&](const FontRecordPointer &record) {
        const std::string &name = record->postScriptName;
        return (m_isLoaded ? m_vectors->contains(name) : m_names->contains(name)) || !names.insert(name).second;
    });
}

QCoro::Task<> FingerprintIndex::compute(Records records)
{
    const QPointer<FingerprintIndex> self(this);
    const auto report = [this, total = records.size()](std::size_t done) { // the pool ends before this goes
        const double share = static_cast<double>(done) / static_cast<double>(total);
        QMetaObject::invokeMethod(this, [this, share] { m_progress = std::max(m_progress.value(), share); });
    };
    const auto computing =
        QtConcurrent::run(&m_pool, [records = std::move(records), report, stop = m_stop.get_token()] {
            return std::make_shared<const Vectors>(computeFingerprints(records, report, stop));
        });
    const std::shared_ptr<const Vectors> computed = co_await computing;
    if (!self)
        co_return;
    add(*computed);
    m_unsaved = computed;
    m_revision = m_revision.value() + 1;
    m_progress = 1;
    const auto saving = QtConcurrent::run(&m_pool, [store = m_store, computed] { store->saveFingerprints(*computed); });
    co_await saving;
    if (self)
        m_unsaved.reset();
}

void FingerprintIndex::add(const Vectors &computed)
{
    m_comparable.reset();
    if (m_isLoaded)
        m_vectors->reserve(m_vectors->count() + computed.size());
    for (const auto &[name, vector] : computed) {
        if (m_isLoaded)
            m_vectors->insert(name, vector);
        if (m_names)
            m_names->insert(name);
    }
}

std::vector<FingerprintIndex::Similar> FingerprintIndex::similar(const std::string &postScriptName,
                                                                 const Records &candidates, std::size_t limit,
                                                                 bool latinFocusOnly) const
{
    const auto reference = m_vectors->find(postScriptName);
    if (!reference)
        return {};
    if (!m_comparable || !m_comparable->holds(candidates))
        m_comparable.emplace(candidates, *m_vectors);
    const Choice choice(m_comparable->find(postScriptName, *reference), latinFocusOnly);
    std::vector<ScoredFace> best = bestOfFamilies(*m_comparable, choice, *reference);
    const auto shown = best.begin() + static_cast<std::ptrdiff_t>(std::min(best.size(), limit));
    std::partial_sort(best.begin(), shown, best.end(), [](const ScoredFace &a, const ScoredFace &b) {
        return a.score != b.score ? a.score > b.score : a.record < b.record;
    });

    std::vector<Similar> result;
    std::transform(best.begin(), shown, std::back_inserter(result), [&](const ScoredFace &face) {
        return Similar{candidates[face.record], face.score};
    });
    return result;
}

} // namespace kerlune
