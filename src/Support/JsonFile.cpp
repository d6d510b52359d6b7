#include "Support/JsonFile.h"

#include "Support/AtomicFile.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMostBytes = 64U << 20;
constexpr int kMostCopies = 100;

std::optional<std::string> readBytes(const fs::path &file)
{
    std::error_code error; // a pipe would make the reader wait
    if (!fs::is_regular_file(file, error) || fs::file_size(file, error) > kMostBytes || error)
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    return stream.bad() ? std::nullopt : std::optional(std::move(bytes));
}

} // namespace

std::optional<nlohmann::json> readJsonFile(const fs::path &file)
{
    const auto bytes = readBytes(file);
    if (!bytes)
        return std::nullopt;
    nlohmann::json value = nlohmann::json::parse(*bytes, nullptr, false);
    return value.is_discarded() ? std::nullopt : std::optional(std::move(value));
}

tl::expected<void, std::string> writeJsonFile(const fs::path &file, const nlohmann::json &value)
{
    std::string bytes;
    try {
        bytes = value.dump(2) + '\n';
    } catch (const nlohmann::json::type_error &error) { // a text that is not UTF-8
        return tl::unexpected(std::string(error.what()));
    }
    if (readBytes(file) == bytes)
        return {};
    return writeFileAtomically(file, bytes);
}

tl::expected<void, std::string> keepUnreadableFile(const fs::path &file)
{
    std::error_code error;
    for (int i = 1; i < kMostCopies; ++i) {
        fs::path copy = file;
        copy += ".unreadable-" + std::to_string(i);
        error.clear();
        if (fs::copy_file(file, copy, error))
            return {};
        if (error == std::errc::file_exists)
            continue;
        std::error_code ignored;
        fs::remove(copy, ignored);
        break;
    }
    return tl::unexpected(error.message());
}

} // namespace kerlune
