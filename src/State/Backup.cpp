#include "State/Backup.h"

#include "Support/Localization.h"
#include "Support/Text.h"
#include "Support/UtcTime.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace kerlune {

namespace {

using nlohmann::json;

constexpr const char *kFormat = "kerlune-backup";
constexpr int kVersion = 1;
constexpr std::size_t kMostDepth = 100; // writing a value calls itself for each level

bool isTooDeep(const json &value)
{
    std::vector<std::pair<const json *, std::size_t>> open{{&value, 1}};
    while (!open.empty()) {
        const auto [current, depth] = open.back();
        open.pop_back();
        if (!current->is_structured())
            continue;
        if (depth > kMostDepth)
            return true;
        for (const json &element : *current)
            open.emplace_back(&element, depth + 1);
    }
    return false;
}

// The stored text as a value. What is no JSON becomes a text, and so does what would not come back as it is.
json encodeFilters(const std::string &filters)
{
    json value = json::parse(filters, nullptr, false);
    if (value.is_discarded() || value.is_string() || isTooDeep(value))
        return validUtf8(filters);
    return value;
}

// Absent when a text in it is not UTF-8.
std::optional<std::string> decodedFilters(const json &filters)
{
    if (filters.is_string())
        return filters.get<std::string>();
    try {
        return filters.dump();
    } catch (const json::type_error &) {
        return std::nullopt;
    }
}

json encodeFamilies(const std::map<std::string, double> &families, const char *dateKey)
{
    json list = json::array();
    for (const auto &[family, date] : families) {
        if (!family.empty())
            list.push_back({{"family", validUtf8(family)}, {dateKey, utcTimeText(date)}});
    }
    return list;
}

json encodeNames(const std::set<std::string> &names)
{
    json list = json::array();
    for (const std::string &name : names) {
        if (!name.empty())
            list.push_back(validUtf8(name));
    }
    return list;
}

json encodeCollections(const std::vector<UserData::Collection> &collections)
{
    json list = json::array();
    for (const UserData::Collection &collection : collections) {
        if (collection.id.empty())
            continue;
        json object{{"id", validUtf8(collection.id)},
                    {"name", validUtf8(collection.name)},
                    {"created", utcTimeText(collection.created)},
                    {"families", encodeNames(collection.families)}};
        if (collection.sortOrder != 0)
            object["sortOrder"] = collection.sortOrder;
        list.push_back(std::move(object));
    }
    return list;
}

json encodeTags(const std::map<std::string, std::set<std::string>> &tags)
{
    json object = json::object();
    for (const auto &[family, itsTags] : tags) {
        if (family.empty())
            continue;
        for (json &tag : encodeNames(itsTags))
            object[validUtf8(family)].push_back(std::move(tag)); // two that are not UTF-8 may become one
    }
    return object;
}

json encodeSmartCollections(const std::vector<UserData::SmartCollection> &collections)
{
    json list = json::array();
    for (const UserData::SmartCollection &collection : collections) {
        if (collection.id.empty())
            continue;
        json object{{"id", validUtf8(collection.id)},
                    {"name", validUtf8(collection.name)},
                    {"created", utcTimeText(collection.created)}};
        object["filters"] = encodeFilters(collection.filters);
        list.push_back(std::move(object));
    }
    return list;
}

// A value in the backup and where it stands: "collections[2].name". Nothing is copied: a value may be nested deeper
// than a copy could go.
struct Place {
    const json *value = nullptr; // null when it is missing
    std::string path = {};

    Place member(const char *key) const
    {
        const auto found = value->find(key);
        return {found == value->end() ? nullptr : &*found, path.empty() ? key : path + "." + key};
    }
};

// Reads the values of a backup. The first that is wrong is kept as the problem; what is read after it does not count.
class BackupReader final {
public:
    tl::expected<UserData, std::string> read(const json &backup)
    {
        const Place root{&backup};
        UserData data;
        checkFormat(root);
        data.favorites = families(root.member("favorites"), "added");
        data.recents = families(root.member("recents"), "used");
        forEachObject(root.member("collections"),
                      [&](const Place &place) { data.collections.push_back(collection(place)); });
        data.tags = tags(root.member("tags"));
        forEachObject(root.member("smartCollections"),
                      [&](const Place &place) { data.smartCollections.push_back(smartCollection(place)); });
        if (m_problem)
            return tl::unexpected(*m_problem);
        return data;
    }

private:
    void checkFormat(const Place &root)
    {
        const Place format = root.member("format");
        if (format.value == nullptr || *format.value != kFormat) {
            m_problem = localized("ce n’est pas une sauvegarde de Kerlune");
            return;
        }
        const std::int64_t version = integer(root.member("version"));
        if (version < 1)
            refuse(marked("« %1 » n’est pas un numéro de version"), root.member("version"));
        if (version > kVersion)
            m_problem = localized("cette sauvegarde vient d’une version plus récente de Kerlune");
    }

    // A list by date: of one family that is there twice, the first counts.
    std::map<std::string, double> families(const Place &list, const char *dateKey)
    {
        std::map<std::string, double> families;
        forEachObject(list, [&](const Place &place) {
            families.emplace(name(place.member("family")), date(place.member(dateKey)));
        });
        return families;
    }

    UserData::Collection collection(const Place &place)
    {
        UserData::Collection collection{.id = name(place.member("id")),
                                        .name = text(place.member("name")),
                                        .created = date(place.member("created"))};
        if (const Place sortOrder = place.member("sortOrder"); sortOrder.value != nullptr)
            collection.sortOrder = integer(sortOrder);
        forEach(place.member("families"), [&](const Place &family) { collection.families.insert(name(family)); });
        return collection;
    }

    UserData::SmartCollection smartCollection(const Place &place)
    {
        UserData::SmartCollection collection{.id = name(place.member("id")),
                                             .name = text(place.member("name")),
                                             .created = date(place.member("created"))};
        const Place filters = place.member("filters");
        if (filters.value == nullptr)
            refuse(marked("« %1 » manque"), filters);
        else if (isTooDeep(*filters.value))
            refuse(marked("« %1 » a trop de niveaux"), filters);
        else if (auto decoded = decodedFilters(*filters.value); decoded && isValidUtf8(*decoded))
            collection.filters = *std::move(decoded);
        else
            refuse(marked("« %1 » n’est pas de l’UTF-8 valide"), filters);
        return collection;
    }

    std::map<std::string, std::set<std::string>> tags(const Place &place)
    {
        std::map<std::string, std::set<std::string>> tags;
        if (place.value == nullptr)
            return tags;
        if (!place.value->is_object()) {
            refuse(marked("« %1 » n’est pas un objet"), place);
            return tags;
        }
        for (const auto &member : place.value->items()) {
            const json key = member.key();
            const std::string path = place.path + '[' + validUtf8(member.key()) + ']';
            const std::string family = name({&key, path});
            forEach({&member.value(), path}, [&](const Place &tag) { tags[family].insert(name(tag)); });
        }
        return tags;
    }

    // A list that is missing counts as empty.
    void forEach(const Place &list, const std::function<void(const Place &)> &take)
    {
        if (list.value == nullptr)
            return;
        if (!list.value->is_array()) {
            refuse(marked("« %1 » n’est pas une liste"), list);
            return;
        }
        for (std::size_t i = 0; i < list.value->size() && !m_problem; ++i)
            take({&(*list.value)[i], list.path + '[' + std::to_string(i) + ']'});
    }

    void forEachObject(const Place &list, const std::function<void(const Place &)> &take)
    {
        forEach(list, [&](const Place &place) {
            if (place.value->is_object())
                take(place);
            else
                refuse(marked("« %1 » n’est pas un objet"), place);
        });
    }

    double date(const Place &place)
    {
        const auto seconds = utcTimeFromText(text(place));
        if (!seconds)
            refuse(marked("« %1 » n’est pas une date"), place);
        return seconds.value_or(0);
    }

    std::string name(const Place &place)
    {
        std::string name = text(place);
        if (name.empty())
            refuse(marked("« %1 » est vide"), place);
        return name;
    }

    std::string text(const Place &place)
    {
        if (place.value == nullptr)
            return refuse(marked("« %1 » manque"), place);
        if (!place.value->is_string())
            return refuse(marked("« %1 » n’est pas un texte"), place);
        auto text = place.value->get<std::string>();
        return isValidUtf8(text) ? text : refuse(marked("« %1 » n’est pas de l’UTF-8 valide"), place);
    }

    std::int64_t integer(const Place &place)
    {
        if (place.value == nullptr)
            refuse(marked("« %1 » manque"), place);
        else if (!place.value->is_number_integer())
            refuse(marked("« %1 » n’est pas un nombre entier"), place);
        else if (place.value->is_number_unsigned())
            return static_cast<std::int64_t>(
                std::min<std::uint64_t>(place.value->get<std::uint64_t>(), std::numeric_limits<std::int64_t>::max()));
        else
            return place.value->get<std::int64_t>();
        return 0;
    }

    std::string refuse(const char *sentence, const Place &place)
    {
        if (!m_problem)
            m_problem = localized(sentence, {place.path});
        return {};
    }

    std::optional<std::string> m_problem;
};

} // namespace

json encodeBackup(const UserData &data)
{
    json backup{{"format", kFormat}, {"version", kVersion}};
    backup["favorites"] = encodeFamilies(data.favorites, "added");
    backup["collections"] = encodeCollections(data.collections);
    backup["tags"] = encodeTags(data.tags);
    backup["smartCollections"] = encodeSmartCollections(data.smartCollections);
    backup["recents"] = encodeFamilies(data.recents, "used");
    return backup;
}

tl::expected<UserData, std::string> decodeBackup(const json &backup)
{
    return BackupReader().read(backup);
}

} // namespace kerlune
