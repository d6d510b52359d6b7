#pragma once

#include "Model/FontRecord.h"
#include "Store/UserData.h"
#include "Support/Handle.h"
#include "Support/SerialQueue.h"

#include <tl/expected.hpp>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

struct sqlite3;
extern "C" int sqlite3_close_v2(sqlite3 *);

namespace kerlune {

// The database: the last index, the fingerprints, and what the user made (favourites, recents, collections, tags,
// smart collections). docs/index-database.md describes the file.
//
// Thread: any. Each operation runs as a whole on a serial queue and blocks its caller; none interleaves with another.
// Errors: opening, replaceAll() and restore() say what failed. Every other operation that fails does nothing, or
// answers that there is nothing. One that returns a bool says whether it was written; a change to what is not there is.
class FontIndexStore final {
public:
    struct StoreError {
        enum class Kind { open, prepare, step };

        enum class Cause { notWritable, notADatabase, damaged, diskFull, inUse, other };

        Kind kind;
        std::string message; // SQLite's own
        Cause cause = Cause::other;

        std::string description() const; // for display
    };

    struct Collection {
        std::string id;
        std::string name;

        bool operator==(const Collection &) const = default;
    };

    // A smart collection as it is stored; `filters` is JSON text.
    struct SmartCollectionRow {
        std::string id;
        std::string name;
        std::string filters;

        bool operator==(const SmartCollectionRow &) const = default;
    };

    using Vector = std::vector<float>;
    using Clock = std::function<double()>; // seconds since 1970-01-01 UTC

    static constexpr int kSchemaVersion = 3;

    // "index.sqlite" in the application-support folder, which is created when it is missing.
    static std::filesystem::path defaultPath(const std::filesystem::path &applicationSupport);

    static tl::expected<std::unique_ptr<FontIndexStore>, StoreError> open(const std::filesystem::path &path,
                                                                          Clock clock = systemClock());
    static Clock systemClock();

    // The index.
    tl::expected<void, StoreError> replaceAll(std::span<const FontRecordPointer> records); // whole or not at all
    std::vector<FontRecordPointer> loadAll();
    std::int64_t indexedCount();
    std::set<std::string> indexedFamilies();
    std::optional<std::string> meta(const std::string &key);
    void setMeta(const std::string &key, const std::string &value);

    // Changes whenever another process has written to the database. Absent while another operation runs: this one does
    // not wait.
    std::optional<std::int64_t> dataVersion();

    // Fingerprints by PostScript name. Saving keeps those of other faces.
    void saveFingerprints(const std::unordered_map<std::string, Vector> &vectors);
    std::unordered_map<std::string, Vector> loadFingerprints();
    std::int64_t fingerprintCount();
    std::unordered_set<std::string> fingerprintNames(); // PostScript names
    // Hands over each as it is stored: 32-bit little-endian floats. False when they did not all come.
    bool readFingerprints(
        const std::function<void(const std::string &postScriptName, std::span<const std::uint8_t> vector)> &take);

    // Favourite and recently used families.
    std::set<std::string> favorites();
    bool setFavorite(const std::string &family, bool on);
    bool setFavorites(std::span<const std::string> families, bool on); // all or none
    bool noteRecent(const std::string &family);  // later than all others, even where the clock went back
    std::vector<std::string> recents(int limit); // most recent first

    // Collections of families.
    std::vector<Collection> collections();
    std::optional<std::string> createCollection(const std::string &name); // its new id; absent when it was not written
    bool renameCollection(const std::string &id, const std::string &name);
    bool deleteCollection(const std::string &id);
    // A collection that is no longer there takes no members.
    bool addToCollection(const std::string &id, std::span<const std::string> families);
    bool removeFromCollection(const std::string &id, std::span<const std::string> families);
    std::vector<std::string> collectionMembers(const std::string &id);
    std::map<std::string, std::set<std::string>> allCollectionMembers(); // by the id of each collection

    // Tags of families.
    std::map<std::string, std::set<std::string>> tags(); // by family
    bool setTag(const std::string &tag, std::span<const std::string> families, bool on);
    bool renameTag(const std::string &old, const std::string &name);
    bool deleteTag(const std::string &tag);

    // Smart collections, in creation order. Saving an id again changes its name and filters.
    std::vector<SmartCollectionRow> smartCollections();
    bool saveSmartCollection(const SmartCollectionRow &collection);
    bool renameSmartCollection(const std::string &id, const std::string &name);
    bool setSmartCollectionFilters(const std::string &id, const std::string &filters); // JSON text
    bool deleteSmartCollection(const std::string &id);

    // All that the user made, as it is at one moment. Absent when a part of it cannot be read.
    std::optional<UserData> userData();
    // Adds what the data hold to what is there, whole or not at all. A favourite that is there keeps
    // its date and a recently used family the later one. A collection or smart collection whose id is there
    // takes the name of the data, its families in addition or its filters, and keeps its date.
    tl::expected<void, StoreError> restore(const UserData &data);

private:
    FontIndexStore(Handle<sqlite3, sqlite3_close_v2> connection, Clock clock);

    using Written = tl::expected<void, StoreError>;

    // The operations below run on the queue.
    Written prepareDatabase();
    bool migrate();
    Written insertAll(std::span<const FontRecordPointer> records);
    std::optional<std::string> metaOnQueue(const std::string &key);
    Written setMetaOnQueue(const std::string &key, const std::string &value);
    bool execute(const char *sql);
    bool executeWhenFree(const char *sql); // for what SQLite's own waiting does not cover, such as the change to WAL
    Written transact(const std::function<Written()> &write); // whole or not at all
    Written run(std::string_view sql, std::initializer_list<std::string_view> texts,
                std::initializer_list<double> numbers = {});
    // Runs the statement for each family, as its first parameter; the other one stays.
    Written runForEach(std::string_view sql, std::span<const std::string> families, std::string_view other);
    std::vector<std::string> firstColumn(std::string_view sql, std::initializer_list<std::string_view> texts = {});
    StoreError error(StoreError::Kind kind) const;

    SerialQueue m_queue;
    Handle<sqlite3, sqlite3_close_v2> m_db;
    Clock m_clock;
};

} // namespace kerlune
