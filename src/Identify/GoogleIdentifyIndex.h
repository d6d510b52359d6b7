#pragma once

#include "Catalogs/GoogleFontFamily.h"
#include "Catalogs/GoogleSubsets.h"

#include <QBindable>
#include <QCoroTask>
#include <QObject>
#include <QProperty>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// Makes the families of the Google catalogue comparable without installing them: a small font of each, which holds the
// letters only, is downloaded once and kept. As a font of the library it can be drawn with, and be given a fingerprint.
//
// Thread: main.
// Errors: a family that cannot be had is left out, and tried again by the next build. Only where there is none at all
// does lastError() say so.
class GoogleIdentifyIndex final : public QObject {
    Q_OBJECT

public:
    using Descriptors = std::map<std::string, FontRecordPointer>; // by the family's name in the catalogue

    static constexpr std::size_t kBatch = 6;

    static std::filesystem::path cacheDirectory(const Directories &directories)
    {
        return GoogleSubsets::cacheDirectory(directories);
    }

    // The subsets must outlive this.
    explicit GoogleIdentifyIndex(GoogleSubsets &subsets)
        : m_subsets(subsets)
    {}

    bool isBuilding() const { return m_isBuilding.value(); }
    double progress() const { return m_progress.value(); }                              // of the current build, 0…1
    std::size_t readyCount() const { return m_readyCount.value(); }                     // families with a descriptor
    const std::optional<std::string> &lastError() const { return m_lastError.value(); } // for the user
    const Descriptors &descriptors() const { return m_descriptors; }                    // grows while a build runs
    QBindable<bool> bindableIsBuilding() { return &m_isBuilding; }
    QBindable<double> bindableProgress() { return &m_progress; }
    QBindable<std::size_t> bindableReadyCount() { return &m_readyCount; }
    QBindable<std::optional<std::string>> bindableLastError() { return &m_lastError; }

    // Takes what is there already; nothing is downloaded. Blocks while it reads the files, on all cores: some 40 ms for
    // 1,900 families. build() reads them without blocking.
    void loadFromCache(const GoogleFamilies &families);
    // Downloads what is missing, six at a time. A second one while one runs does nothing.
    QCoro::Task<> build(GoogleFamilies families);

private:
    QCoro::Task<> buildBatch(GoogleFamilies batch);
    QCoro::Task<> take(std::string family, QFuture<FontRecordPointer> fetching);

    GoogleSubsets &m_subsets;
    QProperty<bool> m_isBuilding;
    QProperty<double> m_progress;
    QProperty<std::size_t> m_readyCount;
    QProperty<std::optional<std::string>> m_lastError;
    Descriptors m_descriptors;
};

} // namespace kerlune
