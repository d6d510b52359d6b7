#pragma once

#include "Identify/ComparableFaces.h"
#include "Identify/FingerprintMatrix.h"
#include "Store/FontIndexStore.h"

#include <QBindable>
#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QProperty>
#include <QThreadPool>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace kerlune {

// The fingerprints of the library: computes those that are missing, keeps them in the store, and tells which fonts look
// like a given one. Those of 50,000 faces take 176 MB: they are in memory only once they have been asked for by load().
//
// Thread: main. Computing, reading and writing are done on others; going waits for them.
// Errors: none. A font that cannot be measured has no fingerprint, and every build tries it again.
class FingerprintIndex final : public QObject {
    Q_OBJECT

public:
    using Records = std::vector<FontRecordPointer>;

    struct Similar {
        FontRecordPointer record;
        float score = 0; // cosine of the angle between the two fingerprints: 1 for the same drawings
    };

    static constexpr std::size_t kShownSimilar = 8;

    explicit FingerprintIndex(std::shared_ptr<FontIndexStore> store, QObject *parent = nullptr);
    ~FingerprintIndex() override;

    const FingerprintMatrix &vectors() const { return *m_vectors; } // none before load()
    bool isLoaded() const { return m_isLoaded; }
    std::int64_t revision() const { return m_revision.value(); } // grows when vectors come
    bool isBuilding() const { return m_isBuilding.value(); }
    double progress() const { return m_progress.value(); } // of the current build, 0…1
    QBindable<std::int64_t> bindableRevision() { return &m_revision; }
    QBindable<bool> bindableIsBuilding() { return &m_isBuilding; }
    QBindable<double> bindableProgress() { return &m_progress; }

    // Reads what the store holds, once; later ones come by themselves.
    QCoro::Task<> load();
    // Computes those of these faces that are missing. A second one while one runs does nothing.
    QCoro::Task<> build(Records records);

    // The faces of other families that look most like the one of this name, best first: one for each family, of the
    // same spacing (fixed or proportional). With latinFocusOnly, faces that cover a non-Latin script are left out,
    // unless the reference covers one too.
    std::vector<Similar> similar(const std::string &postScriptName, const Records &candidates, std::size_t limit,
                                 bool latinFocusOnly) const;

    // Bits of FontRecord::scriptMask: scripts whose fonts often carry a generic Latin.
    static std::uint64_t nonLatinMask();

private:
    using Vectors = std::unordered_map<std::string, Fingerprint::Vector>;

    QCoro::Task<> readNames();
    void keepMissing(Records &records) const;
    QCoro::Task<> compute(Records records);
    void add(const Vectors &computed);

    std::shared_ptr<FontIndexStore> m_store;
    std::shared_ptr<FingerprintMatrix> m_vectors = std::make_shared<FingerprintMatrix>();
    std::optional<QFuture<std::shared_ptr<FingerprintMatrix>>> m_reading; // of the stored ones, while it runs
    mutable std::optional<ComparableFaces> m_comparable;                  // of the candidates that were asked for last
    bool m_isLoaded = false;
    std::optional<std::unordered_set<std::string>> m_names; // of the faces that have one, where these are not loaded
    std::shared_ptr<const Vectors> m_unsaved;               // which a reading may have come too early for
    QProperty<std::int64_t> m_revision;
    QProperty<bool> m_isBuilding;
    QProperty<double> m_progress;
    std::stop_source m_stop;
    QThreadPool m_pool; // the last one: it waits for what still runs
};

// The fingerprints of these faces, computed on all cores; those that cannot be measured are absent. `onProgress` is
// called on the computing threads, with the number of faces looked at, whenever that is a multiple of 100 and the last
// one had a fingerprint.
//
// Thread: any; blocks.
std::unordered_map<std::string, Fingerprint::Vector>
computeFingerprints(const std::vector<FontRecordPointer> &records, const std::function<void(std::size_t)> &onProgress,
                    const std::stop_token &stop);

} // namespace kerlune
