#include "Catalogs/GoogleFontsCatalog.h"

#include "Catalogs/ByteView.h"
#include "Catalogs/HttpsClient.h"
#include "Support/AtomicFile.h"
#include "Support/JsonFile.h"
#include "Support/Localization.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <system_error>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune::GoogleFontsCatalog {

namespace {

using namespace std::chrono_literals;
using OrderedJson = nlohmann::ordered_json; // variants of one weight keep the service's order

constexpr HttpsClient::Limits kCatalogLimits{.mostBytes = 64LL << 20, .silence = 30s};
constexpr std::string_view kGuard = ")]}'";
constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max(); // a rank after all others
constexpr std::int64_t kMostWeight = 1'000'000'000;

CatalogError otherError(std::string message)
{
    return {.kind = CatalogError::Case::other, .name = std::move(message)};
}

std::optional<std::string> text(const OrderedJson &object, const char *key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? std::optional(found->get<std::string>()) : std::nullopt;
}

bool isTrue(const OrderedJson &object, const char *key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_boolean() && found->get<bool>();
}

std::int64_t rank(const OrderedJson &object, const char *key)
{
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number())
        return kLast;
    if (found->is_number_unsigned() && found->get<std::uint64_t>() > static_cast<std::uint64_t>(kLast))
        return kLast;
    if (found->is_number_integer())
        return found->get<std::int64_t>();
    constexpr double kExact = 9'007'199'254'740'992; // 2^53: whole numbers up to here are what they seem
    const auto value = found->get<double>();
    return std::trunc(value) == value && std::abs(value) <= kExact ? static_cast<std::int64_t>(value) : kLast;
}

std::vector<std::string> designers(const OrderedJson &object)
{
    const auto found = object.find("designers");
    if (found == object.end() || !found->is_array())
        return {};
    const bool areTexts = std::all_of(found->begin(), found->end(), [](const auto &name) { return name.is_string(); });
    return areTexts ? found->get<std::vector<std::string>>() : std::vector<std::string>();
}

std::vector<std::string> variants(const OrderedJson &object)
{
    std::vector<std::string> keys;
    if (const auto fonts = object.find("fonts"); fonts != object.end() && fonts->is_object()) {
        for (const auto &[key, ignored] : fonts->items())
            keys.push_back(key);
    }
    std::stable_sort(keys.begin(), keys.end(),
                     [](const std::string &a, const std::string &b) { return weightOrder(a) < weightOrder(b); });
    return keys;
}

GoogleFontFamily familyOf(const OrderedJson &object, std::string name)
{
    const auto axes = object.find("axes");
    return {.family = std::move(name),
            .displayName = text(object, "displayName"),
            .category = text(object, "category").value_or(""),
            .popularity = rank(object, "popularity"),
            .trending = rank(object, "trending"),
            .dateAdded = text(object, "dateAdded").value_or(""),
            .designers = designers(object),
            .variants = variants(object),
            .isVariable = axes != object.end() && axes->is_array() && !axes->empty(),
            .isNoto = isTrue(object, "isNoto")};
}

// What a worker thread makes of an answer: the list, which is on disk too.
Outcome<GoogleFamilies> parseAndKeep(const QByteArray &body, const std::filesystem::path &cacheFile)
{
    auto families = parseCatalog(viewOf(body));
    if (!families)
        return families;
    auto list = nlohmann::json::array();
    for (const GoogleFontFamily &family : *families)
        list.push_back(encodeGoogleFamily(family));
    static_cast<void>(writeFileAtomically(cacheFile, list.dump(2) + '\n')); // its date has to change in any case
    return families;
}

} // namespace

std::string CatalogError::description() const
{
    switch (kind) {
    case Case::badResponse:
        return localized("Google Fonts a répondu par une erreur (%1).", {std::to_string(status)});
    case Case::noFontFiles:
        return localized("Google Fonts ne propose aucun fichier pour « %1 ».", {name});
    case Case::invalidFont:
        return localized("Le fichier « %1 » n'est pas une police valide.", {name});
    case Case::unreadable:
        return localized("Le catalogue Google Fonts est illisible : son format a peut-être changé.");
    case Case::other:
        return name;
    }
    return {};
}

std::filesystem::path cacheFile(const Directories &directories)
{
    return directories.applicationSupport / "google-fonts-catalog.json";
}

std::filesystem::path installRoot(const Directories &directories)
{
    return googleFontsFolder(directories);
}

QCoro::Task<Outcome<GoogleFamilies>> fetchCatalog(HttpsClient &client, QUrl metadataUrl,
                                                  std::filesystem::path cacheFile)
{
    const Outcome<QByteArray> body = co_await get(client, std::move(metadataUrl));
    if (!body)
        co_return tl::unexpected(body.error());
    const auto parsing = QtConcurrent::run(parseAndKeep, *body, cacheFile);
    co_return co_await parsing;
}

QCoro::Task<Outcome<QByteArray>> get(HttpsClient &client, QUrl url)
{
    const auto fetching = client.get(url, kCatalogLimits);
    const HttpsClient::Result response = co_await fetching;
    if (!response)
        co_return tl::unexpected(otherError(response.error().description()));
    if (response->status < 200 || response->status > 299)
        co_return tl::unexpected(CatalogError{.kind = CatalogError::Case::badResponse, .status = response->status});
    co_return response->body;
}

Outcome<GoogleFamilies> parseCatalog(std::string_view bytes)
{
    const OrderedJson answer = OrderedJson::parse(stripXSSI(bytes), nullptr, false);
    if (answer.is_discarded())
        return tl::unexpected(otherError(localized("La réponse de Google Fonts n’est pas du JSON valide.")));
    const CatalogError unreadable{.kind = CatalogError::Case::unreadable};
    const auto list = answer.is_object() ? answer.find("familyMetadataList") : answer.end();
    if (!answer.is_object() || list == answer.end() || !list->is_array())
        return tl::unexpected(unreadable);

    GoogleFamilies families;
    for (const OrderedJson &element : *list) {
        if (!element.is_object())
            return tl::unexpected(unreadable);
        if (auto name = text(element, "family"); name && !name->empty())
            families.push_back(familyOf(element, *std::move(name)));
    }
    if (families.empty())
        return tl::unexpected(unreadable);
    return families;
}

std::string_view stripXSSI(std::string_view bytes)
{
    return bytes.starts_with(kGuard) ? bytes.substr(kGuard.size()) : bytes;
}

std::int64_t weightOrder(std::string_view variant)
{
    const auto digits = std::min(variant.find_first_not_of("0123456789"), variant.size());
    std::int64_t weight = 400;
    if (digits > 0 && std::from_chars(variant.data(), variant.data() + digits, weight).ec != std::errc())
        weight = kMostWeight;
    return std::min(weight, kMostWeight) * 2 + (variant.ends_with('i') ? 1 : 0);
}

std::optional<std::int64_t> cachedCatalogAge(const std::filesystem::path &cacheFile)
{
    std::error_code error;
    const auto modified = std::filesystem::last_write_time(cacheFile, error);
    if (error)
        return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(std::filesystem::file_time_type::clock::now() - modified).count();
}

bool isFresh(const std::filesystem::path &cacheFile)
{
    const auto age = cachedCatalogAge(cacheFile);
    return age && *age <= kFreshSeconds;
}

GoogleFamilies readCachedCatalog(const std::filesystem::path &cacheFile)
{
    const auto list = readJsonFile(cacheFile);
    if (!list || !list->is_array())
        return {};
    GoogleFamilies families;
    for (const nlohmann::json &object : *list) {
        auto family = decodeGoogleFamily(object);
        if (!family)
            return {};
        families.push_back(*std::move(family));
    }
    return families;
}

} // namespace kerlune::GoogleFontsCatalog
