#include "Store/FontIndexStore.h"

#include "Store/RecordReader.h"
#include "Store/RecordRow.h"
#include "Store/Schema.h"
#include "Store/Statement.h"
#include "Store/UserDataRows.h"
#include "Support/Localization.h"
#include "Support/Uuid.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstring>
#include <thread>
#include <utility>

namespace kerlune {

namespace {

constexpr const char *kQueueLabel = "org.kerlune.Kerlune.store";
constexpr int kMostWait = 10'000; // milliseconds for another process's write to end

static_assert(std::endian::native == std::endian::little, "fingerprints are stored little-endian");

// A decimal integer as a whole, with an optional sign.
std::optional<std::int64_t> parseInteger(std::string_view text)
{
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// The shortest decimal text that reads back as the same number, with a fraction.
std::string shortestDecimal(double value)
{
    std::array<char, 400> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    std::string text(buffer.data(), result.ptr);
    return text.find('.') == std::string::npos ? text + ".0" : text;
}

FontIndexStore::StoreError::Cause causeOf(int resultCode)
{
    using Cause = FontIndexStore::StoreError::Cause;
    switch (resultCode & 0xFF) { // the primary result code
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return Cause::notWritable;
    case SQLITE_NOTADB:
        return Cause::notADatabase;
    case SQLITE_CORRUPT:
        return Cause::damaged;
    case SQLITE_FULL:
        return Cause::diskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Cause::inUse;
    default:
        return Cause::other;
    }
}

} // namespace

std::string FontIndexStore::StoreError::description() const
{
    switch (kind) {
    case Kind::open:
        return localized("Ouverture de l'index impossible : ") + message;
    case Kind::prepare:
        return localized("Requête invalide : ") + message;
    case Kind::step:
        return localized("Écriture impossible : ") + message;
    }
    return message;
}

std::filesystem::path FontIndexStore::defaultPath(const std::filesystem::path &applicationSupport)
{
    std::error_code ignored; // shows when the database is opened
    std::filesystem::create_directories(applicationSupport, ignored);
    return applicationSupport / "index.sqlite";
}

FontIndexStore::Clock FontIndexStore::systemClock()
{
    return [] { return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count(); };
}

FontIndexStore::FontIndexStore(Handle<sqlite3, sqlite3_close_v2> connection, Clock clock)
    : m_queue(kQueueLabel)
    , m_db(std::move(connection))
    , m_clock(std::move(clock))
{}

tl::expected<std::unique_ptr<FontIndexStore>, FontIndexStore::StoreError>
FontIndexStore::open(const std::filesystem::path &path, Clock clock)
{
    sqlite3 *connection = nullptr;
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX;
    const int result = sqlite3_open_v2(path.c_str(), &connection, kFlags, nullptr);
    std::unique_ptr<FontIndexStore> store(
        new FontIndexStore(Handle<sqlite3, sqlite3_close_v2>(connection), std::move(clock)));
    if (result != SQLITE_OK)
        return tl::unexpected(store->error(StoreError::Kind::open));
    sqlite3_busy_timeout(connection, kMostWait);
    const auto ready = store->m_queue.sync([&] { return store->prepareDatabase(); });
    if (!ready)
        return tl::unexpected(ready.error());
    return store;
}

tl::expected<void, FontIndexStore::StoreError> FontIndexStore::prepareDatabase()
{
    // SQLite looks at the file here for the first time: one that is no database, or cannot be written, shows now.
    if (!executeWhenFree("PRAGMA journal_mode=WAL;") || !execute("PRAGMA synchronous=NORMAL;") || !migrate())
        return tl::unexpected(error(StoreError::Kind::open));
    return {};
}

bool FontIndexStore::migrate()
{
    const auto isCurrent = [this] {
        const auto version = metaOnQueue("schema_version");
        return version && parseInteger(*version) == kSchemaVersion;
    };
    if (!executeWhenFree(kSchema))
        return false;
    if (isCurrent())
        return true;
    // Another process may do the same at this moment, and write its index right after: look again under the lock.
    const auto migrated = transact([&]() -> Written {
        if (isCurrent())
            return {};
        return run("DELETE FROM fonts;", {}).and_then([&] {
            return setMetaOnQueue("schema_version", std::to_string(kSchemaVersion));
        });
    });
    return migrated && isCurrent(); // a table of another shape takes no version
}

tl::expected<void, FontIndexStore::StoreError> FontIndexStore::replaceAll(std::span<const FontRecordPointer> records)
{
    return m_queue.sync([&] {
        auto replaced = transact([&] { return insertAll(records); });
        if (replaced) {
            setMetaOnQueue("indexed_at", shortestDecimal(m_clock()));
            setMetaOnQueue("count", std::to_string(records.size()));
        }
        return replaced;
    });
}

tl::expected<void, FontIndexStore::StoreError> FontIndexStore::insertAll(std::span<const FontRecordPointer> records)
{
    if (auto deleted = run("DELETE FROM fonts;", {}); !deleted)
        return deleted;
    Statement insert(m_db.get(), kInsertRecord);
    if (!insert)
        return tl::unexpected(error(StoreError::Kind::prepare));
    for (const FontRecordPointer &record : records) {
        insert.reset();
        bindRecord(insert, *record);
        if (!insert.finishes())
            return tl::unexpected(error(StoreError::Kind::step));
    }
    return {};
}

std::vector<FontRecordPointer> FontIndexStore::loadAll()
{
    // Half an index would pass for a whole one: then it is none.
    return m_queue.sync([&] { return readRecords(m_db.get()).value_or(std::vector<FontRecordPointer>()); });
}

std::int64_t FontIndexStore::indexedCount()
{
    const auto count = meta("count");
    return count ? parseInteger(*count).value_or(0) : 0;
}

std::set<std::string> FontIndexStore::indexedFamilies()
{
    return m_queue.sync([&] {
        const auto families = firstColumn("SELECT DISTINCT family FROM fonts;");
        return std::set<std::string>(families.begin(), families.end());
    });
}

std::optional<std::string> FontIndexStore::meta(const std::string &key)
{
    return m_queue.sync([&] { return metaOnQueue(key); });
}

void FontIndexStore::setMeta(const std::string &key, const std::string &value)
{
    m_queue.sync([&] { setMetaOnQueue(key, value); });
}

std::optional<std::int64_t> FontIndexStore::dataVersion()
{
    const auto version = m_queue.syncIfFree([&]() -> std::optional<std::int64_t> {
        Statement select(m_db.get(), "PRAGMA data_version;");
        return select.nextRow() ? std::optional(select.integer(0)) : std::nullopt;
    });
    return version.value_or(std::nullopt);
}

void FontIndexStore::saveFingerprints(const std::unordered_map<std::string, Vector> &vectors)
{
    const auto insertVectors = [&]() -> Written {
        Statement insert(m_db.get(), "INSERT OR REPLACE INTO fingerprints VALUES(?,?);");
        for (const auto &[postScriptName, vector] : vectors) {
            insert.reset();
            insert.bind(1, postScriptName);
            insert.bind(2, std::span(reinterpret_cast<const std::uint8_t *>(vector.data()), vector.size() * 4));
            if (!insert.finishes())
                return tl::unexpected(error(StoreError::Kind::step));
        }
        return {};
    };
    m_queue.sync([&] { transact(insertVectors); });
}

std::unordered_map<std::string, FontIndexStore::Vector> FontIndexStore::loadFingerprints()
{
    std::unordered_map<std::string, Vector> vectors;
    const bool isComplete = readFingerprints([&](const std::string &name, std::span<const std::uint8_t> blob) {
        Vector vector(blob.size() / sizeof(float));
        if (!blob.empty())
            std::memcpy(vector.data(), blob.data(), blob.size());
        vectors.insert_or_assign(name, std::move(vector));
    });
    return isComplete ? vectors : std::unordered_map<std::string, Vector>();
}

std::int64_t FontIndexStore::fingerprintCount()
{
    return m_queue.sync([&] {
        Statement select(m_db.get(), "SELECT COUNT(*) FROM fingerprints;");
        return select.nextRow() ? select.integer(0) : 0;
    });
}

std::unordered_set<std::string> FontIndexStore::fingerprintNames()
{
    const auto names = m_queue.sync([&] { return firstColumn("SELECT ps_name FROM fingerprints;"); });
    return {names.begin(), names.end()};
}

bool FontIndexStore::readFingerprints(
    const std::function<void(const std::string &postScriptName, std::span<const std::uint8_t> vector)> &take)
{
    return m_queue.sync([&] {
        Statement select(m_db.get(), "SELECT ps_name, vector FROM fingerprints;");
        while (select.nextRow()) {
            const auto blob = select.blob(1);
            if (!select.isNull(0) && !select.isNull(1) && blob.size() % sizeof(float) == 0)
                take(select.text(0), blob);
        }
        return select.isComplete();
    });
}

std::set<std::string> FontIndexStore::favorites()
{
    return m_queue.sync([&] {
        const auto families = firstColumn("SELECT family FROM favorites;");
        return std::set<std::string>(families.begin(), families.end());
    });
}

bool FontIndexStore::setFavorite(const std::string &family, bool on)
{
    return m_queue.sync([&] {
        const Written written =
            on ? run("INSERT OR REPLACE INTO favorites(family,added) VALUES(?,?);", {family}, {m_clock()})
               : run("DELETE FROM favorites WHERE family=?;", {family});
        return written.has_value();
    });
}

bool FontIndexStore::setFavorites(std::span<const std::string> families, bool on)
{
    const double now = m_clock();
    const auto writeRows = [&]() -> Written {
        for (const std::string &family : families) {
            Written written = on ? run("INSERT OR IGNORE INTO favorites(family,added) VALUES(?,?);", {family}, {now})
                                 : run("DELETE FROM favorites WHERE family=?;", {family});
            if (!written)
                return written;
        }
        return {};
    };
    return m_queue.sync([&] { return transact(writeRows).has_value(); });
}

bool FontIndexStore::noteRecent(const std::string &family)
{
    return m_queue.sync([&] {
        double last = 0;
        if (Statement select(m_db.get(), "SELECT max(used) FROM recents;"); select.nextRow())
            last = select.real(0);
        constexpr double kStep = 0.001; // seconds
        const double used = std::isfinite(last) ? std::max(m_clock(), last + kStep) : m_clock();
        return run("INSERT OR REPLACE INTO recents(family,used) VALUES(?,?);", {family}, {used}).has_value();
    });
}

std::vector<std::string> FontIndexStore::recents(int limit)
{
    return m_queue.sync([&] {
        return firstColumn("SELECT family FROM recents ORDER BY used DESC LIMIT " + std::to_string(limit) + ";");
    });
}

std::vector<FontIndexStore::Collection> FontIndexStore::collections()
{
    return m_queue.sync([&] {
        std::vector<Collection> collections;
        Statement select(m_db.get(), "SELECT id,name FROM collections ORDER BY sort_order, created;");
        while (select.nextRow())
            collections.push_back({select.text(0), select.text(1)});
        if (!select.isComplete())
            collections.clear();
        return collections;
    });
}

std::optional<std::string> FontIndexStore::createCollection(const std::string &name)
{
    return m_queue.sync([&] {
        const std::string id = newUuid();
        const Written written =
            run("INSERT INTO collections(id,name,created,sort_order) VALUES(?,?,?,0);", {id, name}, {m_clock()});
        return written ? std::optional(id) : std::nullopt;
    });
}

bool FontIndexStore::renameCollection(const std::string &id, const std::string &name)
{
    return m_queue.sync([&] { return run("UPDATE collections SET name=? WHERE id=?;", {name, id}).has_value(); });
}

bool FontIndexStore::deleteCollection(const std::string &id)
{
    const auto deleteRows = [&] {
        return run("DELETE FROM collections WHERE id=?;", {id}).and_then([&] {
            return run("DELETE FROM collection_items WHERE collection_id=?;", {id});
        });
    };
    return m_queue.sync([&] { return transact(deleteRows).has_value(); });
}

bool FontIndexStore::addToCollection(const std::string &id, std::span<const std::string> families)
{
    const auto insertRows = [&] {
        return runForEach("INSERT OR IGNORE INTO collection_items(family,collection_id)\n"
                          "SELECT ?1,?2 WHERE EXISTS(SELECT 1 FROM collections WHERE id=?2);",
                          families, id);
    };
    return m_queue.sync([&] { return transact(insertRows).has_value(); });
}

bool FontIndexStore::removeFromCollection(const std::string &id, std::span<const std::string> families)
{
    const auto deleteRows = [&] {
        return runForEach("DELETE FROM collection_items WHERE family=? AND collection_id=?;", families, id);
    };
    return m_queue.sync([&] { return transact(deleteRows).has_value(); });
}

std::vector<std::string> FontIndexStore::collectionMembers(const std::string &id)
{
    return m_queue.sync(
        [&] { return firstColumn("SELECT family FROM collection_items WHERE collection_id=?;", {id}); });
}

std::map<std::string, std::set<std::string>> FontIndexStore::allCollectionMembers()
{
    return m_queue.sync([&] {
        std::map<std::string, std::set<std::string>> members;
        Statement select(m_db.get(),
                         "SELECT id, family FROM collections LEFT JOIN collection_items ON collection_id=id;");
        while (select.nextRow()) {
            std::set<std::string> &families = members[select.text(0)];
            if (!select.isNull(1))
                families.insert(select.text(1));
        }
        if (!select.isComplete())
            members.clear();
        return members;
    });
}

std::map<std::string, std::set<std::string>> FontIndexStore::tags()
{
    return m_queue.sync([&] {
        std::map<std::string, std::set<std::string>> tagsByFamily;
        Statement select(m_db.get(), "SELECT family, tag FROM tags;");
        while (select.nextRow())
            tagsByFamily[select.text(0)].insert(select.text(1));
        if (!select.isComplete())
            tagsByFamily.clear();
        return tagsByFamily;
    });
}

bool FontIndexStore::setTag(const std::string &tag, std::span<const std::string> families, bool on)
{
    const auto writeRows = [&] {
        return runForEach(on ? "INSERT OR IGNORE INTO tags(family,tag) VALUES(?,?);"
                             : "DELETE FROM tags WHERE family=? AND tag=?;",
                          families, tag);
    };
    return m_queue.sync([&] { return transact(writeRows).has_value(); });
}

bool FontIndexStore::renameTag(const std::string &old, const std::string &name)
{
    const auto writeRows = [&]() -> Written {
        if (old == name)
            return {};
        return run("INSERT OR IGNORE INTO tags(family,tag) SELECT family, ? FROM tags WHERE tag=?;", {name, old})
            .and_then([&] { return run("DELETE FROM tags WHERE tag=?;", {old}); });
    };
    return m_queue.sync([&] { return transact(writeRows).has_value(); });
}

bool FontIndexStore::deleteTag(const std::string &tag)
{
    return m_queue.sync([&] { return run("DELETE FROM tags WHERE tag=?;", {tag}).has_value(); });
}

std::vector<FontIndexStore::SmartCollectionRow> FontIndexStore::smartCollections()
{
    return m_queue.sync([&] {
        std::vector<SmartCollectionRow> collections;
        Statement select(m_db.get(), "SELECT id,name,filters FROM smart_collections ORDER BY created;");
        while (select.nextRow())
            collections.push_back({select.text(0), select.text(1), select.text(2)});
        if (!select.isComplete())
            collections.clear();
        return collections;
    });
}

bool FontIndexStore::saveSmartCollection(const SmartCollectionRow &collection)
{
    return m_queue.sync([&] {
        const Written written = run("INSERT INTO smart_collections(id,name,filters,created) VALUES(?,?,?,?)\n"
                                    "ON CONFLICT(id) DO UPDATE SET name=excluded.name, filters=excluded.filters;",
                                    {collection.id, collection.name, collection.filters}, {m_clock()});
        return written.has_value();
    });
}

bool FontIndexStore::renameSmartCollection(const std::string &id, const std::string &name)
{
    return m_queue.sync([&] { return run("UPDATE smart_collections SET name=? WHERE id=?;", {name, id}).has_value(); });
}

bool FontIndexStore::setSmartCollectionFilters(const std::string &id, const std::string &filters)
{
    return m_queue.sync([&] {
        return run("UPDATE smart_collections SET filters=? WHERE id=?;", {filters, id}).has_value();
    });
}

bool FontIndexStore::deleteSmartCollection(const std::string &id)
{
    return m_queue.sync([&] { return run("DELETE FROM smart_collections WHERE id=?;", {id}).has_value(); });
}

std::optional<UserData> FontIndexStore::userData()
{
    return m_queue.sync([&]() -> std::optional<UserData> {
        if (!execute("BEGIN;"))
            return std::nullopt;
        auto data = readUserData(m_db.get());
        execute("ROLLBACK;");
        return data;
    });
}

tl::expected<void, FontIndexStore::StoreError> FontIndexStore::restore(const UserData &data)
{
    return m_queue.sync([&] {
        return transact([&]() -> Written {
            if (!mergeUserData(m_db.get(), data))
                return tl::unexpected(error(StoreError::Kind::step));
            return {};
        });
    });
}

std::optional<std::string> FontIndexStore::metaOnQueue(const std::string &key)
{
    Statement select(m_db.get(), "SELECT value FROM meta WHERE key=?;");
    select.bind(1, key);
    if (!select.nextRow() || select.isNull(0))
        return std::nullopt;
    return select.text(0);
}

FontIndexStore::Written FontIndexStore::setMetaOnQueue(const std::string &key, const std::string &value)
{
    return run("INSERT OR REPLACE INTO meta(key,value) VALUES(?,?);", {key, value});
}

bool FontIndexStore::execute(const char *sql)
{
    return sqlite3_exec(m_db.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool FontIndexStore::executeWhenFree(const char *sql)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(kMostWait);
    while (!execute(sql)) {
        const bool isBusy = (sqlite3_errcode(m_db.get()) & 0xFF) == SQLITE_BUSY;
        if (!isBusy || std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

FontIndexStore::Written FontIndexStore::transact(const std::function<Written()> &write)
{
    if (!execute("BEGIN IMMEDIATE;")) // outside a transaction each statement would count by itself
        return tl::unexpected(error(StoreError::Kind::step));
    Written written = write();
    if (written && !execute("COMMIT;"))
        written = tl::unexpected(error(StoreError::Kind::step));
    if (!written)
        execute("ROLLBACK;"); // an open transaction would swallow every later write
    return written;
}

FontIndexStore::Written FontIndexStore::run(std::string_view sql, std::initializer_list<std::string_view> texts,
                                            std::initializer_list<double> numbers)
{
    Statement statement(m_db.get(), sql);
    if (!statement)
        return tl::unexpected(error(StoreError::Kind::prepare));
    int parameter = 0;
    for (const std::string_view text : texts)
        statement.bind(++parameter, text);
    for (const double number : numbers)
        statement.bind(++parameter, number);
    if (!statement.finishes())
        return tl::unexpected(error(StoreError::Kind::step));
    return {};
}

FontIndexStore::Written FontIndexStore::runForEach(std::string_view sql, std::span<const std::string> families,
                                                   std::string_view other)
{
    Statement statement(m_db.get(), sql);
    if (!statement)
        return tl::unexpected(error(StoreError::Kind::prepare));
    for (const std::string &family : families) {
        statement.reset();
        statement.bind(1, family);
        statement.bind(2, other);
        if (!statement.finishes())
            return tl::unexpected(error(StoreError::Kind::step));
    }
    return {};
}

std::vector<std::string> FontIndexStore::firstColumn(std::string_view sql,
                                                     std::initializer_list<std::string_view> texts)
{
    Statement select(m_db.get(), sql);
    int parameter = 0;
    for (const std::string_view text : texts)
        select.bind(++parameter, text);
    std::vector<std::string> values;
    while (select.nextRow()) {
        if (!select.isNull(0))
            values.push_back(select.text(0));
    }
    if (!select.isComplete())
        values.clear();
    return values;
}

FontIndexStore::StoreError FontIndexStore::error(StoreError::Kind kind) const
{
    return {kind, sqlite3_errmsg(m_db.get()), causeOf(sqlite3_errcode(m_db.get()))};
}

} // namespace kerlune
