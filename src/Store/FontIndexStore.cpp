#include "Store/FontIndexStore.h"

#include "Store/RecordReader.h"
#include "Store/RecordRow.h"
#include "Store/Schema.h"
#include "Store/Statement.h"
#include "Support/Localization.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <chrono>
#include <thread>
#include <utility>

namespace kerlune {

namespace {

constexpr const char *kQueueLabel = "org.kerlune.Kerlune.store";
constexpr int kMostWait = 10'000; // milliseconds for another process's write to end

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
