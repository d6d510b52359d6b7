#pragma once

#include "Catalogs/GoogleAddresses.h"
#include "Model/FontRecord.h"
#include "Platform/Directories.h"

#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

template <typename T>
class QPromise;

namespace kerlune {

class HttpsClient;

// Small fonts of Google families that hold just the characters of a sample, kept in a folder of the caches: one file
// for each family, whoever fetched it. A family whose file is there is not fetched, and one that is being fetched is
// not fetched a second time. Six are downloaded at a time: those that were asked for last come first, since they are
// what the user looks at; of those asked for together, the first.
//
// Thread: main; files are read and written on others.
// Errors: none. What cannot be had, or is no font, is null. A file in the folder that is no font stays.
class GoogleSubsets final : public QObject {
    Q_OBJECT

public:
    using Font = FontRecordPointer; // of the file in the folder; it can be drawn with as one of the library

    // Letters, digits, French accents and punctuation: 128 characters.
    static const std::string &alphabet();

    static std::filesystem::path cacheDirectory(const Directories &directories);
    static std::filesystem::path cacheFile(const std::filesystem::path &folder, const std::string &family);

    // `silence` is how long a server may say nothing. The client must outlive this.
    GoogleSubsets(HttpsClient &client, GoogleAddresses addresses, std::filesystem::path folder,
                  std::chrono::milliseconds silence = std::chrono::seconds(20));

    const std::filesystem::path &folder() const { return m_folder; }

    // The file of the family if it is there, else its regular style, or the one of `spec`, with these characters.
    QFuture<Font> fetch(const std::string &family, const std::string &text, const std::optional<std::string> &spec);
    // One that is on its way is asked for now, as if for the first time.
    void hurry(const std::string &family);

private:
    using Promise = std::shared_ptr<QPromise<Font>>;
    using Turn = std::pair<std::int64_t, std::int64_t>; // the greatest downloads first

    struct Running {
        QFuture<Font> future;
        Turn turn;
        std::shared_ptr<QPromise<void>> waiting = nullptr; // for its turn to download
    };

    Turn newTurn();
    QFuture<void> turnOf(const std::string &name);
    void startDownloads();
    QCoro::Task<> run(std::string name, QUrl styleSheet, Promise promise);
    QCoro::Task<Font> find(std::string name, QUrl styleSheet);
    QCoro::Task<QByteArray> download(std::string name, QUrl styleSheet); // empty when there is nothing to be had
    QCoro::Task<QByteArray> downloadNow(QUrl styleSheet);
    QCoro::Task<Font> keep(std::string name, QByteArray bytes);
    std::filesystem::path fileNamed(const std::string &name) const;

    HttpsClient &m_client;
    GoogleAddresses m_addresses;
    std::filesystem::path m_folder;
    std::chrono::milliseconds m_silence;
    std::map<std::string, Running> m_running; // by the name of the file
    int m_downloads = 0;                      // that have their turn
    std::int64_t m_round = 0;                 // of the event loop in which something was asked for
    std::int64_t m_turns = 0;
    QTimer m_roundEnd;
    std::map<std::string, std::filesystem::path> m_unkept; // likewise: what could not be written to the folder
    std::unique_ptr<QTemporaryDir> m_private;              // where that is instead, until the program ends
};

} // namespace kerlune
