#include "Catalogs/StyleSheet.h"

#include "Catalogs/HttpsClient.h"

#include <algorithm>

namespace kerlune {

namespace {

constexpr std::string_view kBegin = "url(https://";
constexpr std::size_t kSchemeAt = 4; // in kBegin
constexpr std::size_t kMostAddresses = 500;

// Takes the next address off the style sheet; absent when there is none.
std::optional<QUrl> takeAddress(std::string_view &styleSheet)
{
    for (std::size_t at = styleSheet.find(kBegin); at != std::string_view::npos; at = styleSheet.find(kBegin)) {
        const std::size_t end = styleSheet.find(')', at);
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view address = styleSheet.substr(at + kSchemeAt, end - at - kSchemeAt);
        styleSheet.remove_prefix(end);
        if (address.size() + kSchemeAt > kBegin.size())
            return QUrl(QString::fromUtf8(address.data(), static_cast<qsizetype>(address.size())), QUrl::StrictMode);
    }
    return std::nullopt;
}

} // namespace

std::optional<QUrl> firstFontAddress(std::string_view styleSheet)
{
    const auto address = takeAddress(styleSheet);
    return address && HttpsClient::mayFetch(*address) ? address : std::nullopt;
}

std::vector<QUrl> allFontAddresses(std::string_view styleSheet)
{
    std::vector<QUrl> addresses;
    while (addresses.size() < kMostAddresses) {
        const auto address = takeAddress(styleSheet);
        if (!address)
            break;
        if (HttpsClient::mayFetch(*address) &&
            std::find(addresses.begin(), addresses.end(), *address) == addresses.end())
            addresses.push_back(*address);
    }
    return addresses;
}

} // namespace kerlune
