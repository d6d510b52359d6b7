// Writing 50,000 records, and reading them and making the library of them, against the bare SQLite loop over the same
// rows. Prints the ratios.

#include "MadeRecords.h"
#include "MedianReporter.h"
#include "State/LoadedLibrary.h"
#include "Store/FontIndexStore.h"
#include "Store/RecordRow.h"
#include "Store/Schema.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace kerlune;

const std::vector<FontRecordPointer> &records()
{
    static const auto all = MadeRecords::make(10'000, 5);
    return all;
}

std::filesystem::path folder()
{
    static const auto path = std::filesystem::temp_directory_path() / ("kerlune-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(path);
    return path;
}

std::filesystem::path filledDatabase()
{
    static const auto path = [] {
        auto file = folder() / "read.sqlite";
        (*FontIndexStore::open(file))->replaceAll(records());
        return file;
    }();
    return path;
}

sqlite3 *openBare(const std::filesystem::path &path)
{
    sqlite3 *connection = nullptr;
    sqlite3_open(path.c_str(), &connection);
    return connection;
}

// Opening the store, reading every record, and making the library of them.
void readStore(benchmark::State &state)
{
    const auto path = filledDatabase();
    for (auto _ : state) {
        LoadedLibrary library = makeLibrary((*FontIndexStore::open(path))->loadAll());
        benchmark::DoNotOptimize(library.families.data());
        state.PauseTiming(); // a program keeps what it loaded, and begins with fresh memory
        library = {};
        malloc_trim(0);
        state.ResumeTiming();
    }
}

// The first part of it.
void readRecords(benchmark::State &state)
{
    const auto path = filledDatabase();
    for (auto _ : state) {
        auto records = (*FontIndexStore::open(path))->loadAll();
        benchmark::DoNotOptimize(records.data());
        state.PauseTiming();
        records.clear();
        malloc_trim(0);
        state.ResumeTiming();
    }
}

template <typename TakeRow>
void stepThroughRows(benchmark::State &state, TakeRow &&takeRow)
{
    const auto path = filledDatabase();
    for (auto _ : state) {
        sqlite3 *connection = openBare(path);
        sqlite3_stmt *select = nullptr;
        sqlite3_prepare_v2(connection, "SELECT * FROM fonts;", -1, &select, nullptr);
        while (sqlite3_step(select) == SQLITE_ROW)
            takeRow(select);
        sqlite3_finalize(select);
        sqlite3_close(connection);
    }
}

// Takes nothing from the rows.
void readBare(benchmark::State &state)
{
    stepThroughRows(state, [](sqlite3_stmt *select) { benchmark::DoNotOptimize(select); });
}

// Takes every value as it is stored: what reading a record needs at the least.
void readBareValues(benchmark::State &state)
{
    stepThroughRows(state, [](sqlite3_stmt *select) {
        for (int column = 0; column < sqlite3_column_count(select); ++column) {
            switch (sqlite3_column_type(select, column)) {
            case SQLITE_TEXT:
                benchmark::DoNotOptimize(sqlite3_column_text(select, column));
                benchmark::DoNotOptimize(sqlite3_column_bytes(select, column));
                break;
            case SQLITE_INTEGER:
                benchmark::DoNotOptimize(sqlite3_column_int64(select, column));
                break;
            default:
                benchmark::DoNotOptimize(sqlite3_column_double(select, column));
            }
        }
    });
}

void writeStore(benchmark::State &state)
{
    const auto store = *FontIndexStore::open(folder() / "write-store.sqlite");
    for (auto _ : state)
        store->replaceAll(records());
}

// The same rows in one transaction, texts bound without a copy.
void writeBare(benchmark::State &state)
{
    sqlite3 *connection = openBare(folder() / "write-bare.sqlite");
    sqlite3_exec(connection, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;", nullptr, nullptr, nullptr);
    sqlite3_exec(connection, kSchema, nullptr, nullptr, nullptr);
    for (auto _ : state) {
        sqlite3_exec(connection, "BEGIN IMMEDIATE; DELETE FROM fonts;", nullptr, nullptr, nullptr);
        sqlite3_stmt *insert = nullptr;
        sqlite3_prepare_v2(connection, kInsertRecord, -1, &insert, nullptr);
        const auto bindText = [&](int parameter, const std::string &text) {
            sqlite3_bind_text(insert, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        };
        for (const FontRecordPointer &record : records()) {
            sqlite3_reset(insert);
            bindText(1, record->postScriptName);
            bindText(2, record->family);
            bindText(3, record->style);
            bindText(4, record->filePath);
            for (int column = 5; column < 20; ++column)
                sqlite3_bind_int64(insert, column, record->glyphCount);
            bindText(20, *record->version);
            bindText(21, *record->foundry);
            bindText(22, *record->designer);
            bindText(23, *record->licenseURL);
            bindText(24, *record->copyrightNotice);
            sqlite3_bind_int64(insert, 25, record->fsType);
            sqlite3_step(insert);
        }
        sqlite3_finalize(insert);
        sqlite3_exec(connection, "COMMIT;", nullptr, nullptr, nullptr);
    }
    sqlite3_close(connection);
}

} // namespace

int main(int argc, char **argv)
{
    registerBenchmark("readBare", readBare);
    registerBenchmark("readBareValues", readBareValues);
    registerBenchmark("readRecords", readRecords);
    registerBenchmark("readStore", readStore);
    registerBenchmark("writeBare", writeBare);
    registerBenchmark("writeStore", writeStore);
    benchmark::Initialize(&argc, argv);
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf(
        "open and read the records: %.2f × the bare loop\n"
        "open, read and make the library: %.2f × the bare loop (goal: at most 3), %.2f × one that takes the values\n"
        "write: %.2f × the bare loop\n",
        reporter.median("readRecords") / reporter.median("readBare"),
        reporter.median("readStore") / reporter.median("readBare"),
        reporter.median("readStore") / reporter.median("readBareValues"),
        reporter.median("writeStore") / reporter.median("writeBare"));
    std::filesystem::remove_all(folder());
    return 0;
}
