// What the user made: favourites, recents, collections, tags, saved filters.

#include "Store/FontIndexStore.h"
#include "Store/Statement.h"
#include "Store/UserDataRows.h"
#include "Support/Uuid.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kerlune {

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

} // namespace kerlune
