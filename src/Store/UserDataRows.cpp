#include "Store/UserDataRows.h"

#include "Store/Statement.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace kerlune {

namespace {

double date(const Statement &select, int column)
{
    const double value = select.real(column);
    return std::isfinite(value) ? value : 0;
}

// Hands each row of `sql` to `takeRow`, but not those whose first `keys` columns hold a NULL. False when they did not
// all come.
bool readRows(sqlite3 *connection, std::string_view sql, int keys,
              const std::function<void(const Statement &)> &takeRow)
{
    Statement select(connection, sql);
    while (select.nextRow()) {
        bool isNamed = true;
        for (int column = 0; column < keys; ++column)
            isNamed = isNamed && !select.isNull(column);
        if (isNamed)
            takeRow(select);
    }
    return select.isComplete();
}

bool readCollections(sqlite3 *connection, std::vector<UserData::Collection> &collections)
{
    const bool haveAll =
        readRows(connection, "SELECT id, name, created, sort_order FROM collections ORDER BY sort_order, created, id;",
                 1, [&](const Statement &row) {
                     collections.push_back({row.text(0), row.text(1), date(row, 2), row.integer(3)});
                 });
    std::unordered_map<std::string, std::size_t> positions;
    for (std::size_t i = 0; i < collections.size(); ++i)
        positions.emplace(collections[i].id, i);
    return haveAll &&
           readRows(connection, "SELECT collection_id, family FROM collection_items;", 2, [&](const Statement &row) {
               if (const auto found = positions.find(row.text(0)); found != positions.end())
                   collections[found->second].families.insert(row.text(1));
           });
}

// One statement that writes a row, run for many rows. One at a time: when it ends, the connection tells its error, if
// any.
class RowWriter final {
public:
    RowWriter(sqlite3 *connection, std::string_view sql)
        : m_statement(connection, sql)
    {}

    template <typename... Values>
    bool write(const Values &...values)
    {
        m_statement.reset();
        int parameter = 0;
        (m_statement.bind(++parameter, values), ...);
        return m_statement.finishes();
    }

private:
    Statement m_statement;
};

bool mergeFavorites(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT OR IGNORE INTO favorites(family,added) VALUES(?,?);");
    return std::all_of(data.favorites.begin(), data.favorites.end(),
                       [&](const auto &favorite) { return rows.write(favorite.first, favorite.second); });
}

bool mergeRecents(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT INTO recents(family,used) VALUES(?,?)\n"
                               "ON CONFLICT(family) DO UPDATE SET used=max(ifnull(used,0), excluded.used);");
    return std::all_of(data.recents.begin(), data.recents.end(),
                       [&](const auto &recent) { return rows.write(recent.first, recent.second); });
}

bool mergeCollections(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT INTO collections(id,name,created,sort_order) VALUES(?,?,?,?)\n"
                               "ON CONFLICT(id) DO UPDATE SET name=excluded.name;");
    return std::all_of(data.collections.begin(), data.collections.end(), [&](const auto &collection) {
        return rows.write(collection.id, collection.name, collection.created, collection.sortOrder);
    });
}

bool mergeMembers(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT OR IGNORE INTO collection_items(collection_id,family) VALUES(?,?);");
    for (const UserData::Collection &collection : data.collections) {
        for (const std::string &family : collection.families) {
            if (!rows.write(collection.id, family))
                return false;
        }
    }
    return true;
}

bool mergeTags(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT OR IGNORE INTO tags(family,tag) VALUES(?,?);");
    for (const auto &[family, itsTags] : data.tags) {
        for (const std::string &tag : itsTags) {
            if (!rows.write(family, tag))
                return false;
        }
    }
    return true;
}

bool mergeSmartCollections(sqlite3 *connection, const UserData &data)
{
    RowWriter rows(connection, "INSERT INTO smart_collections(id,name,filters,created) VALUES(?,?,?,?)\n"
                               "ON CONFLICT(id) DO UPDATE SET name=excluded.name, filters=excluded.filters;");
    return std::all_of(data.smartCollections.begin(), data.smartCollections.end(), [&](const auto &collection) {
        return rows.write(collection.id, collection.name, collection.filters, collection.created);
    });
}

} // namespace

std::optional<UserData> readUserData(sqlite3 *connection)
{
    UserData data;
    const bool haveAll =
        readRows(connection, "SELECT family, added FROM favorites;", 1,
                 [&](const Statement &row) { data.favorites.emplace(row.text(0), date(row, 1)); }) &&
        readCollections(connection, data.collections) &&
        readRows(connection, "SELECT family, tag FROM tags;", 2,
                 [&](const Statement &row) { data.tags[row.text(0)].insert(row.text(1)); }) &&
        readRows(connection, "SELECT id, name, filters, created FROM smart_collections ORDER BY created, id;", 1,
                 [&](const Statement &row) {
                     data.smartCollections.push_back({row.text(0), row.text(1), row.text(2), date(row, 3)});
                 }) &&
        readRows(connection, "SELECT family, used FROM recents;", 1,
                 [&](const Statement &row) { data.recents.emplace(row.text(0), date(row, 1)); });
    return haveAll ? std::optional(std::move(data)) : std::nullopt;
}

bool mergeUserData(sqlite3 *connection, const UserData &data)
{
    return mergeFavorites(connection, data) && mergeRecents(connection, data) && mergeCollections(connection, data) &&
           mergeMembers(connection, data) && mergeTags(connection, data) && mergeSmartCollections(connection, data);
}

} // namespace kerlune
