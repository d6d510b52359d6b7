#include "Catalogs/GoogleFamilyFiles.h"

#include "Catalogs/ByteView.h"
#include "Catalogs/CheckedFont.h"
#include "Catalogs/InstalledFamilies.h"
#include "Catalogs/SafeFileName.h"
#include "Catalogs/StyleSheet.h"
#include "Platform/FontFace.h"
#include "Support/AtomicFile.h"
#include "Support/Localization.h"
#include "Support/Sha256.h"
#include "Support/Text.h"
#include "Support/Uuid.h"

#include <QCoroFuture>
#include <QPointer>
#include <QtConcurrentRun>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <numeric>
#include <set>
#include <system_error>
#include <utility>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

namespace fs = std::filesystem;
using CatalogError = GoogleFontsCatalog::CatalogError;

constexpr std::int64_t kMostListBytes = 4 << 20;
constexpr std::int64_t kMostFontBytes = 128 << 20; // a Chinese one has 20 MB
constexpr std::chrono::minutes kLongestFont{15};
constexpr std::size_t kBatch = 6;

CatalogError failure(std::string message)
{
    return {.kind = CatalogError::Case::other, .name = std::move(message)};
}

CatalogError writeFailure(const fs::path &file, const std::string &why)
{
    return failure(localized("Enregistrement de « %1 » impossible : %2", {file.native(), why}));
}

std::string stoppedMessage()
{
    return localized("Téléchargement interrompu.");
}

bool isOk(int status)
{
    return status >= 200 && status <= 299;
}

// The name of a font while its family is not whole: another address is another file.
fs::path stagedFile(const fs::path &staging, const GoogleFileList::Font &font)
{
    return staging / (sha256Hex(font.url.toEncoded().toStdString()) + ".font");
}

std::string shownName(const GoogleFileList::Font &font)
{
    const std::string name = font.name.empty() ? font.url.path().toStdString() : font.name;
    return name.substr(name.rfind('/') + 1);
}

// Keeps what came, unless it is no font.
std::optional<CatalogError> stage(const fs::path &file, const GoogleFileList::Font &font, const QByteArray &bytes)
{
    if (const auto written = writeFileAtomically(file, viewOf(bytes)); !written)
        return writeFailure(file, written.error());
    if (checkedFont(file) != nullptr)
        return std::nullopt;
    std::error_code ignored;
    fs::remove(file, ignored);
    return CatalogError{.kind = CatalogError::Case::invalidFont, .name = shownName(font)};
}

// A font without a name of its own gets its PostScript name, and what its first bytes say.
std::string extensionOf(const std::shared_ptr<const FontFile> &file)
{
    std::array<std::uint8_t, 4> magic{};
    file->read(0, magic);
    const std::string_view tag(reinterpret_cast<const char *>(magic.data()), magic.size());
    if (tag == "OTTO")
        return ".otf";
    if (tag == "ttcf")
        return ".ttc";
    if (tag == "wOFF")
        return ".woff";
    return tag == "wOF2" ? ".woff2" : ".ttf";
}

std::string finalName(const GoogleFileList::Font &font, const FontFace &face)
{
    const std::string name = shownName(font);
    if (font.name.empty())
        return visibleFileNameFor(face.postScriptName().value_or("Police"), extensionOf(face.file()));
    const auto dot = name.rfind('.');
    return visibleFileNameFor(name.substr(0, dot), name.substr(dot));
}

// What a font says about its licence, for families that come without a text.
std::string licenceTextOf(const FontFace &face)
{
    std::string text;
    for (const NameId id : {NameId::Copyright, NameId::Licence, NameId::LicenseUrl}) {
        if (const auto part = face.name(id))
            text += *part + '\n';
    }
    return text;
}

struct Place {
    fs::path folder;
    std::vector<std::string> fonts; // that are there
};

// Where the family is installed, else where it will be. Names that differ only in what no file may be called lead to
// different folders.
Place placeOf(const std::string &family, const fs::path &root)
{
    const auto installed = installedFamilies(root);
    if (const auto found = installed.find(family); found != installed.end())
        return {found->second, fontFilesIn(found->second)};
    const fs::path folder = root / visibleFileNameFor(family);
    return {fontFilesIn(folder).empty() ? folder : root / sha256Hex(family), {}};
}

// Puts a family together in a folder of its own, from fonts that are all there.
class Assembly final {
public:
    Assembly(const fs::path &root, fs::path staging)
        : m_staging(std::move(staging))
        , m_folder(root / (".new-" + newUuid()))
    {
        fs::create_directories(m_folder, m_error);
    }
    ~Assembly()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    Assembly(const Assembly &) = delete;
    Assembly &operator=(const Assembly &) = delete;

    void add(const GoogleFileList::Font &font)
    {
        const fs::path staged = stagedFile(m_staging, font);
        const auto face = FontFace::open({.path = staged, .postScriptName = {}});
        if (!face) {
            m_error = std::make_error_code(std::errc::no_such_file_or_directory);
            return;
        }
        if (m_licence.empty())
            m_licence = licenceTextOf(**face);
        if (!m_error)
            fs::rename(staged, m_folder / freeName(finalName(font, **face)), m_error);
    }

    void add(const GoogleFileList::Text &text)
    {
        const fs::path name = text.name;
        if (!m_error)
            write(freeName(visibleFileNameFor(name.stem().native(), ".txt")), text.contents);
        m_hasText = true;
    }

    std::optional<CatalogError> finish(const GoogleFontFamily &family, const fs::path &target)
    {
        if (!m_hasText && !m_licence.empty())
            write("LICENCE.txt", m_licence);
        write(std::string(kFamilyFile), nlohmann::json{{"family", family.family}}.dump(2) + '\n');
        if (!m_error)
            fs::rename(m_folder, target, m_error);
        if (m_error && fontFilesIn(target).empty()) // another process may have been faster
            return writeFailure(target, m_error.message());
        std::error_code ignored;
        fs::remove_all(m_staging, ignored);
        return std::nullopt;
    }

private:
    void write(const std::string &name, const std::string &text)
    {
        if (!writeFileAtomically(m_folder / name, text))
            m_error = std::make_error_code(std::errc::io_error);
    }

    std::string freeName(const std::string &wanted)
    {
        const fs::path path = wanted;
        std::string name = wanted;
        for (int i = 2; !m_names.insert(lowercased(name)).second; ++i)
            name = path.stem().native() + '-' + std::to_string(i) + path.extension().native();
        return name;
    }

    fs::path m_staging;
    fs::path m_folder;
    std::error_code m_error;
    std::set<std::string> m_names{std::string(kFamilyFile), "licence.txt"};
    std::string m_licence;
    bool m_hasText = false;
};

std::optional<CatalogError> assemble(const GoogleFontFamily &family, const GoogleFileList &files, const fs::path &root,
                                     const fs::path &staging, const fs::path &target)
{
    Assembly assembly(root, staging);
    for (const GoogleFileList::Font &font : files.fonts)
        assembly.add(font);
    for (const GoogleFileList::Text &text : files.texts)
        assembly.add(text);
    return assembly.finish(family, target);
}

std::set<std::size_t> alreadyStaged(const GoogleFileList &files, const fs::path &staging)
{
    std::set<std::size_t> found;
    for (std::size_t i = 0; i < files.fonts.size(); ++i) {
        if (checkedFont(stagedFile(staging, files.fonts[i])) != nullptr)
            found.insert(i);
    }
    return found;
}

// How much of a family has come.
class Shares final {
public:
    Shares(std::size_t count, GoogleFamilyFiles::Progress onProgress)
        : m_shares(count)
        , m_onProgress(std::move(onProgress))
    {}

    void set(std::size_t font, double share)
    {
        m_shares[font] = std::max(m_shares[font], share);
        if (m_onProgress) {
            const double sum = std::accumulate(m_shares.begin(), m_shares.end(), 0.0);
            m_onProgress(sum / static_cast<double>(m_shares.size()));
        }
    }

private:
    std::vector<double> m_shares;
    GoogleFamilyFiles::Progress m_onProgress;
};

} // namespace

std::string nothingDownloadedMessage()
{
    return localized("Aucune police n'a pu être téléchargée. Vérifiez votre connexion.");
}

GoogleFamilyFiles::GoogleFamilyFiles(HttpsClient &client, GoogleAddresses addresses, fs::path installRoot,
                                     std::chrono::milliseconds silence)
    : m_client(client)
    , m_addresses(std::move(addresses))
    , m_root(std::move(installRoot))
    , m_silence(silence)
{}

QCoro::Task<GoogleFamilyFiles::Outcome> GoogleFamilyFiles::download(GoogleFontFamily family, Progress onProgress)
{
    const QPointer<GoogleFamilyFiles> self(this);
    const fs::path root = m_root;
    const auto looking = QtConcurrent::run(placeOf, family.family, root);
    const Place place = co_await looking;
    const fs::path target = place.folder;
    const fs::path staging = root / ".partial" / target.filename();
    if (!place.fonts.empty())
        co_return Family{target, place.fonts, true};
    if (!self)
        co_return tl::unexpected(failure(stoppedMessage()));
    const auto files = co_await list(family);
    if (!files)
        co_return tl::unexpected(files.error());
    if (!self)
        co_return tl::unexpected(failure(stoppedMessage()));
    const auto error = co_await fetchFonts(*files, staging, std::move(onProgress));
    if (error)
        co_return tl::unexpected(*error);
    const auto assembling = QtConcurrent::run(assemble, family, *files, root, staging, target);
    const auto assemblyError = co_await assembling;
    if (assemblyError)
        co_return tl::unexpected(*assemblyError);
    const auto lookingAgain = QtConcurrent::run(fontFilesIn, target);
    const std::vector<std::string> fonts = co_await lookingAgain;
    co_return Family{target, fonts, false};
}

QCoro::Task<GoogleFamilyFiles::Expected<GoogleFileList>> GoogleFamilyFiles::list(GoogleFontFamily family)
{
    const QPointer<GoogleFamilyFiles> self(this);
    const auto asking =
        m_client.get(m_addresses.fileList(family.family), {.mostBytes = kMostListBytes, .silence = m_silence});
    const HttpsClient::Result answer = co_await asking;
    if (!self)
        co_return tl::unexpected(failure(stoppedMessage()));
    if (answer && isOk(answer->status)) {
        if (auto files = parseFileList(viewOf(answer->body)))
            co_return *std::move(files);
    }
    co_return co_await listOfStyleSheet(std::move(family));
}

QCoro::Task<GoogleFamilyFiles::Expected<GoogleFileList>> GoogleFamilyFiles::listOfStyleSheet(GoogleFontFamily family)
{
    const auto asking = m_client.get(m_addresses.styleSheet(family.family, family.cssAllStylesSpec()),
                                     {.mostBytes = kMostListBytes, .silence = m_silence});
    const HttpsClient::Result answer = co_await asking;
    if (!answer)
        co_return tl::unexpected(failure(nothingDownloadedMessage()));
    if (!isOk(answer->status))
        co_return tl::unexpected(CatalogError{.kind = CatalogError::Case::badResponse, .status = answer->status});
    GoogleFileList files;
    for (const QUrl &address : allFontAddresses(viewOf(answer->body)))
        files.fonts.push_back({{}, address});
    if (files.fonts.empty())
        co_return tl::unexpected(CatalogError{.kind = CatalogError::Case::noFontFiles, .name = family.shownName()});
    co_return files;
}

// A batch goes on to its end when one of its fonts fails: what has come need not come again.
QCoro::Task<std::optional<CatalogError>> GoogleFamilyFiles::fetchFonts(GoogleFileList files, fs::path staging,
                                                                       Progress onProgress)
{
    const QPointer<GoogleFamilyFiles> self(this);
    const auto shares = std::make_shared<Shares>(files.fonts.size(), std::move(onProgress));
    const auto looking = QtConcurrent::run(alreadyStaged, files, staging);
    const std::set<std::size_t> staged = co_await looking;
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < files.fonts.size(); ++i) {
        if (staged.contains(i))
            shares->set(i, 1);
        else
            missing.push_back(i);
    }
    std::optional<CatalogError> error;
    for (std::size_t begin = 0; begin < missing.size() && self && !error; begin += kBatch) {
        std::vector<QCoro::Task<std::optional<CatalogError>>> batch;
        for (std::size_t i = begin; i < std::min(begin + kBatch, missing.size()); ++i) {
            const GoogleFileList::Font &font = files.fonts[missing[i]];
            const auto report = [shares, place = missing[i]](double share) { shares->set(place, share); };
            batch.push_back(fetchFont(font, stagedFile(staging, font), report));
        }
        for (auto &font : batch) {
            auto problem = co_await font;
            if (problem && !error)
                error = std::move(problem);
        }
    }
    co_return self || error ? error : failure(stoppedMessage());
}

QCoro::Task<std::optional<CatalogError>> GoogleFamilyFiles::fetchFont(GoogleFileList::Font font, fs::path file,
                                                                      Progress onProgress)
{
    const HttpsClient::Limits limits{.mostBytes = kMostFontBytes, .silence = m_silence, .whole = kLongestFont};
    const auto fetching = m_client.get(font.url, limits, onProgress);
    const HttpsClient::Result answer = co_await fetching;
    if (!answer)
        co_return failure(nothingDownloadedMessage());
    if (!isOk(answer->status))
        co_return CatalogError{.kind = CatalogError::Case::badResponse, .status = answer->status};
    const auto staging = QtConcurrent::run(stage, file, font, answer->body);
    auto problem = co_await staging;
    if (!problem && onProgress)
        onProgress(1);
    co_return problem;
}

} // namespace kerlune
