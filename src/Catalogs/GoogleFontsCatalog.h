#pragma once

#include "Catalogs/GoogleFontFamily.h"
#include "Platform/Directories.h"

#include <QCoroTask>
#include <QUrl>
#include <tl/expected.hpp>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

class QByteArray;

namespace kerlune {

class HttpsClient;

// The list of every family that Google Fonts offers, and its copy on disk, google-fonts-catalog.json. The copy's date
// is all that is known of its age.
namespace GoogleFontsCatalog {

inline constexpr std::int64_t kFreshSeconds = 604'800; // seven days

struct CatalogError {
    enum class Case {
        badResponse, // an HTTP status
        noFontFiles, // a family without any
        invalidFont, // a file that is none
        unreadable,  // an answer of another form
        other,       // what the network, the system or the JSON reader says
    };
    Case kind;
    int status = 0;        // badResponse
    std::string name = {}; // noFontFiles: of the family; invalidFont: of the file; other: the message itself

    std::string description() const; // for the user
};

template <typename Value>
using Outcome = tl::expected<Value, CatalogError>;

std::filesystem::path cacheFile(const Directories &directories);
std::filesystem::path installRoot(const Directories &directories); // each family in a folder of its own

// Thread: main.
// Asks the service for the list, and writes it to the cache file; whether that can be written does not matter.
QCoro::Task<Outcome<GoogleFamilies>> fetchCatalog(HttpsClient &client, QUrl metadataUrl,
                                                  std::filesystem::path cacheFile);
// One request; the body of an answer from 200 to 299.
QCoro::Task<Outcome<QByteArray>> get(HttpsClient &client, QUrl url);

// Thread: any, from here on; reading blocks.
Outcome<GoogleFamilies> parseCatalog(std::string_view bytes);
std::string_view stripXSSI(std::string_view bytes); // without the guard that keeps browsers from running the answer
std::int64_t weightOrder(std::string_view variant); // variants sort by it: 400, 400i, 700
std::optional<std::int64_t> cachedCatalogAge(const std::filesystem::path &cacheFile); // whole seconds
bool isFresh(const std::filesystem::path &cacheFile);
GoogleFamilies readCachedCatalog(const std::filesystem::path &cacheFile); // none when it is missing or unreadable

} // namespace GoogleFontsCatalog

} // namespace kerlune
