// The fonts that look like one of 50,000, against cblas_sgemv of the same matrix, which is the least that comparing one
// fingerprint with all can cost. Prints milliseconds and their ratio.

#include "Identify/FingerprintIndex.h"
#include "MadeRecords.h"
#include "MedianReporter.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <benchmark/benchmark.h>
#include <cblas.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

namespace {

using namespace kerlune;

constexpr std::size_t kFamilies = 10'000;
constexpr std::size_t kFacesOfAFamily = 5;
constexpr std::size_t kFaces = kFamilies * kFacesOfAFamily;

// Proportional all of them: none is passed over.
std::vector<FontRecordPointer> comparableRecords()
{
    auto records = MadeRecords::make(kFamilies, kFacesOfAFamily);
    for (FontRecordPointer &record : records) {
        FontRecord proportional = *record;
        proportional.isMonospace = false;
        record = std::make_shared<const FontRecord>(std::move(proportional));
    }
    return records;
}

struct Library {
    Library()
        : records(comparableRecords())
        , matrix(kFaces * Fingerprint::kLength)
        , product(kFaces)
    {
        const auto folder = std::filesystem::temp_directory_path() / ("similar-speed-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        std::shared_ptr<FontIndexStore> store = FontIndexStore::open(folder / "index.sqlite").value();
        std::mt19937 random(1);
        std::uniform_real_distribution<float> cell(0, 1);
        std::unordered_map<std::string, Fingerprint::Vector> vectors;
        for (std::size_t i = 0; i < kFaces; ++i) {
            Fingerprint::Vector vector(Fingerprint::kLength);
            for (float &value : vector)
                value = cell(random);
            vector = Fingerprint::l2Normalized(std::move(vector));
            std::copy(vector.begin(), vector.end(), matrix.begin() + static_cast<long>(i * Fingerprint::kLength));
            vectors.emplace(records[i]->postScriptName, std::move(vector));
        }
        store->saveFingerprints(vectors);
        index = std::make_unique<FingerprintIndex>(store);
        QCoro::waitFor(index->load());
        std::filesystem::remove_all(folder);
    }

    std::vector<FontRecordPointer> records;
    std::vector<float> matrix;
    std::vector<float> product;
    std::unique_ptr<FingerprintIndex> index;
};

Library &library()
{
    static Library made;
    return made;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (library().index->vectors().count() != kFaces) {
        std::puts("the fingerprints could not be stored");
        return 1;
    }
    registerBenchmark("sgemv", [](benchmark::State &state) {
        for (auto _ : state) {
            cblas_sgemv(CblasRowMajor, CblasNoTrans, kFaces, Fingerprint::kLength, 1, library().matrix.data(),
                        Fingerprint::kLength, library().matrix.data(), 1, 0, library().product.data(), 1);
            benchmark::DoNotOptimize(library().product);
        }
    });
    registerBenchmark("similar", [](benchmark::State &state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(library().index->similar(
                library().records.front()->postScriptName, library().records, FingerprintIndex::kShownSimilar, false));
        }
    });
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("%zu faces: similar %.1f ms, sgemv %.1f ms, ratio %.2f (goal: at most 2)\n", kFaces,
                reporter.median("similar"), reporter.median("sgemv"),
                reporter.median("similar") / reporter.median("sgemv"));
    return 0;
}
