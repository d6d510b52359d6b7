#pragma once

#include "Model/FontFamily.h"
#include "Platform/FontCatalog.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace kerlune {

// Turns every face on offer into a record, and records into families. A font enters the index by being offered by the
// catalogue; nothing is walked here and nothing is reused from an earlier run.
//
// Thread: any; buildIndex() blocks until every face is read, on all cores: run it off the main thread.
// Errors: a face that cannot be read has no record and is named in Index::skipped.
class FontIndexer final {
public:
    struct Progress {
        std::int64_t done = 0;  // faces processed
        std::int64_t total = 0; // faces to process
    };
    // Called on the worker threads, slightly out of order; the report with done = total always comes, unless there is
    // no face at all.
    using ProgressHandler = std::function<void(const Progress &)>;

    struct Index {
        std::vector<FontRecordPointer> records; // in the catalogue's order
        std::vector<SkippedFont> skipped;       // by the catalogue, then by the indexer
    };

    explicit FontIndexer(const FontCatalog &catalog);

    // Where `stop` ends it early, the index is not whole.
    Index buildIndex(const ProgressHandler &onProgress = {}, const std::stop_token &stop = {}) const;
    FontCatalog::Listing availableDescriptors(Duplicates duplicates) const;

    // Faces in their order, on all cores; quicker where those of a file follow each other. After `stop`, those that are
    // not yet read come back as errors.
    using Extraction = tl::expected<FontRecordPointer, FontError>;
    static std::vector<Extraction> extractAll(std::span<const FontDescriptor> descriptors,
                                              const ProgressHandler &onProgress = {}, const std::stop_token &stop = {});

    // One face. Reading it may take two seconds of processor time.
    static tl::expected<FontRecord, FontError> extract(const FontDescriptor &descriptor);

    // Families by name as a file browser sorts them; within a family, faces in the order of the records.
    static std::vector<FontFamily> groupIntoFamilies(std::span<const FontRecordPointer> records);

private:
    const FontCatalog &m_catalog;
};

} // namespace kerlune
