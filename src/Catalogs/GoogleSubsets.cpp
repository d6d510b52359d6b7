#include "Catalogs/GoogleSubsets.h"

#include "Catalogs/ByteView.h"
#include "Catalogs/CheckedFont.h"
#include "Catalogs/HttpsClient.h"
#include "Catalogs/SafeFileName.h"
#include "Catalogs/StyleSheet.h"
#include "Support/AtomicFile.h"
#include "Support/Text.h"

#include <QCoroFuture>
#include <QPointer>
#include <QPromise>
#include <QtConcurrentRun>

#include <system_error>
#include <utility>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t kMostStyleSheetBytes = 1 << 20;
constexpr std::int64_t kMostSubsetBytes = 8 << 20; // some 40 KB is usual
constexpr int kOk = 200;
constexpr int kMostDownloads = 6;

struct CachedSubset {
    bool isThere = false; // and not empty
    FontRecordPointer font = nullptr;
};

CachedSubset readCachedSubset(const fs::path &file)
{
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    const auto status = FontFile::status(file);
    if (!status || status->size == 0)
        return {};
    const auto opened = FontFile::open(file);
    const bool isReadable =
        opened || (opened.error() != FontError::PermissionDenied && opened.error() != FontError::Unreadable);
    return {isReadable, opened ? checkedFont(file) : nullptr};
}

struct KeptSubset {
    bool isWritten = false;
    FontRecordPointer font = nullptr;
};

KeptSubset writeSubset(const fs::path &file, const QByteArray &bytes)
{
    if (!writeFileAtomically(file, viewOf(bytes)))
        return {};
    return {true, checkedFont(file)};
}

} // namespace

const std::string &GoogleSubsets::alphabet()
{
    static const std::string characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                          "abcdefghijklmnopqrstuvwxyz"
                                          "0123456789"
                                          "àâçéèêëîïôùûü"
                                          "ÀÂÇÉÈÊËÎÏÔÙÛÜ"
                                          " "
                                          ".,'-!?&@#%()[]{}:;"
                                          "\""
                                          "+=/*_|<>^~°€$£«»…’–—";
    return characters;
}

fs::path GoogleSubsets::cacheDirectory(const Directories &directories)
{
    return directories.caches / "GoogleSubsets";
}

fs::path GoogleSubsets::cacheFile(const fs::path &folder, const std::string &family)
{
    return folder / fileNameFor(family, ".ttf");
}

GoogleSubsets::GoogleSubsets(HttpsClient &client, GoogleAddresses addresses, fs::path folder,
                             std::chrono::milliseconds silence)
    : m_client(client)
    , m_addresses(std::move(addresses))
    , m_folder(std::move(folder))
    , m_silence(silence)
{
    m_roundEnd.setSingleShot(true);
    m_roundEnd.callOnTimeout(this, [this] { ++m_round; });
}

QFuture<GoogleSubsets::Font> GoogleSubsets::fetch(const std::string &family, const std::string &text,
                                                  const std::optional<std::string> &spec)
{
    const std::string name = fileNameFor(family, ".ttf");
    if (const auto running = m_running.find(name); running != m_running.end())
        return running->second.future;
    const auto promise = std::make_shared<QPromise<Font>>();
    promise->start();
    QFuture<Font> future = promise->future();
    m_running.emplace(name, Running{future, newTurn()});
    run(name, m_addresses.styleSheet(family, spec, text), promise);
    return future;
}

void GoogleSubsets::hurry(const std::string &family)
{
    const auto running = m_running.find(fileNameFor(family, ".ttf"));
    if (running != m_running.end())
        running->second.turn = newTurn();
}

GoogleSubsets::Turn GoogleSubsets::newTurn()
{
    if (!m_roundEnd.isActive())
        m_roundEnd.start(0);
    return {m_round, --m_turns};
}

QCoro::Task<> GoogleSubsets::run(std::string name, QUrl styleSheet, Promise promise)
{
    const QPointer<GoogleSubsets> self(this);
    const Font font = co_await find(name, std::move(styleSheet));
    if (self)
        m_running.erase(name);
    promise->addResult(font);
    promise->finish();
}

QCoro::Task<GoogleSubsets::Font> GoogleSubsets::find(std::string name, QUrl styleSheet)
{
    const QPointer<GoogleSubsets> self(this);
    const auto reading = QtConcurrent::run(readCachedSubset, fileNamed(name));
    const CachedSubset cached = co_await reading;
    if (!self || cached.isThere)
        co_return cached.font;
    const QByteArray bytes = co_await download(name, std::move(styleSheet));
    if (!self || bytes.isEmpty())
        co_return Font();
    co_return co_await keep(std::move(name), bytes);
}

// A download has both its requests in one turn: what was begun is ended before another one begins.
QCoro::Task<QByteArray> GoogleSubsets::download(std::string name, QUrl styleSheet)
{
    const QPointer<GoogleSubsets> self(this);
    const QFuture<void> turn = turnOf(name);
    co_await turn;
    if (!self)
        co_return QByteArray();
    QByteArray bytes = co_await downloadNow(std::move(styleSheet));
    if (self) {
        --m_downloads;
        startDownloads();
    }
    co_return bytes;
}

QFuture<void> GoogleSubsets::turnOf(const std::string &name)
{
    const auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    m_running.at(name).waiting = promise;
    startDownloads();
    return promise->future();
}

void GoogleSubsets::startDownloads()
{
    while (m_downloads < kMostDownloads) {
        Running *next = nullptr;
        for (auto &[name, running] : m_running) {
            if (running.waiting != nullptr && (next == nullptr || running.turn > next->turn))
                next = &running;
        }
        if (next == nullptr)
            return;
        ++m_downloads;
        std::exchange(next->waiting, nullptr)->finish();
    }
}

QCoro::Task<QByteArray> GoogleSubsets::downloadNow(QUrl styleSheet)
{
    const QPointer<GoogleSubsets> self(this);
    const auto asking = m_client.get(styleSheet, {.mostBytes = kMostStyleSheetBytes, .silence = m_silence});
    const HttpsClient::Result answer = co_await asking;
    if (!self || !answer || !isValidUtf8(viewOf(answer->body)))
        co_return QByteArray();
    const auto address = firstFontAddress(viewOf(answer->body)); // whatever the status says
    if (!address)
        co_return QByteArray();
    const auto fetching = m_client.get(*address, {.mostBytes = kMostSubsetBytes, .silence = m_silence});
    const HttpsClient::Result font = co_await fetching;
    co_return font && font->status == kOk ? font->body : QByteArray();
}

QCoro::Task<GoogleSubsets::Font> GoogleSubsets::keep(std::string name, QByteArray bytes)
{
    const QPointer<GoogleSubsets> self(this);
    const auto writing = QtConcurrent::run(writeSubset, m_folder / name, bytes);
    const KeptSubset kept = co_await writing;
    if (!self || kept.isWritten)
        co_return kept.font;
    if (m_private == nullptr)
        m_private = std::make_unique<QTemporaryDir>();
    const fs::path file = fs::path(m_private->path().toStdString()) / (std::to_string(m_unkept.size()) + ".ttf");
    m_unkept.insert_or_assign(name, file);
    const auto writingElsewhere = QtConcurrent::run(writeSubset, file, bytes);
    const KeptSubset elsewhere = co_await writingElsewhere;
    co_return elsewhere.font;
}

fs::path GoogleSubsets::fileNamed(const std::string &name) const
{
    const auto elsewhere = m_unkept.find(name);
    return elsewhere == m_unkept.end() ? m_folder / name : elsewhere->second;
}

} // namespace kerlune
