#include "Catalogs/GoogleFileList.h"

#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/HttpsClient.h"
#include "Platform/FontFileNames.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

using nlohmann::json;

constexpr std::size_t kMostFiles = 500;

std::string textAt(const json &object, const char *key)
{
    const auto found = object.is_object() ? object.find(key) : object.end();
    return object.is_object() && found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

const json *arrayAt(const json &object, const char *key)
{
    const auto found = object.find(key);
    return found != object.end() && found->is_array() ? &*found : nullptr;
}

bool isListed(const GoogleFileList &list, const QUrl &url)
{
    return std::any_of(list.fonts.begin(), list.fonts.end(), [&](const auto &font) { return font.url == url; });
}

bool isStatic(const GoogleFileList::Font &font)
{
    return font.name.starts_with("static/") || font.name.find("/static/") != std::string::npos;
}

} // namespace

std::optional<GoogleFileList> parseFileList(std::string_view bytes)
{
    const json answer = json::parse(GoogleFontsCatalog::stripXSSI(bytes), nullptr, false);
    if (!answer.is_object() || !answer.contains("manifest") || !answer["manifest"].is_object())
        return std::nullopt;
    const json &manifest = answer["manifest"];

    GoogleFileList list;
    if (const json *fonts = arrayAt(manifest, "fileRefs")) {
        for (const json &font : *fonts) {
            const std::string name = textAt(font, "filename");
            const QUrl url(QString::fromStdString(textAt(font, "url")), QUrl::StrictMode);
            if (hasFontName(name) && HttpsClient::mayFetch(url) && list.fonts.size() < kMostFiles &&
                !isListed(list, url))
                list.fonts.push_back({name, url});
        }
    }
    if (!std::all_of(list.fonts.begin(), list.fonts.end(), isStatic))
        std::erase_if(list.fonts, isStatic);
    if (const json *files = arrayAt(manifest, "files")) {
        for (const json &file : *files) {
            std::string name = textAt(file, "filename");
            if (name.ends_with(".txt") && list.texts.size() < kMostFiles)
                list.texts.push_back({std::move(name), textAt(file, "contents")});
        }
    }
    return list.fonts.empty() ? std::nullopt : std::optional(std::move(list));
}

} // namespace kerlune
