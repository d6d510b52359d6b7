// Reads the fuzzer's bytes as everything that the services of Google Fonts may send, and makes file names of them.

#include "Catalogs/GoogleFileList.h"
#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/HttpsClient.h"
#include "Catalogs/SafeFileName.h"
#include "Catalogs/StyleSheet.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void readCatalog(std::string_view bytes)
{
    const auto families = kerlune::GoogleFontsCatalog::parseCatalog(bytes);
    if (!families)
        return;
    require(!families->empty());
    for (const kerlune::GoogleFontFamily &family : *families) {
        require(!family.family.empty());
        static_cast<void>(family.cssStyleSpec());
        static_cast<void>(family.cssAllStylesSpec());
        require(kerlune::decodeGoogleFamily(encodeGoogleFamily(family)) == family);
    }
}

void checkName(const std::string &name)
{
    require(!name.empty() && name.size() < 256 && name != "." && name != ".." &&
            name.find_first_of(std::string_view("/\0", 2)) == std::string::npos);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(bytes), size);
    readCatalog(text);
    if (const auto list = kerlune::parseFileList(text)) {
        for (const auto &font : list->fonts)
            require(kerlune::HttpsClient::mayFetch(font.url));
    }
    for (const QUrl &address : kerlune::allFontAddresses(text))
        require(kerlune::HttpsClient::mayFetch(address));
    checkName(kerlune::fileNameFor(text, ".ttf"));
    checkName(kerlune::visibleFileNameFor(text));
    return 0;
}
