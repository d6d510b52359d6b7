#pragma once

#include "Catalogs/GoogleAddresses.h"
#include "Model/FontRecord.h"
#include "Platform/Directories.h"

#include <QCoroTask>
#include <QFuture>
#include <QObject>
#include <QTemporaryDir>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

template <typename T>
class QPromise;

namespace kerlune {

class HttpsClient;

// Small fonts of Google families that hold just the characters of a sample, kept in a folder of the caches: one file
// for each family, whoever fetched it. A family whose file is there is not fetched, and one that is being fetched is
// not fetched a second time.
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

private:
    using Promise = std::shared_ptr<QPromise<Font>>;

    QCoro::Task<> run(std::string name, QUrl styleSheet, Promise promise);
    QCoro::Task<Font> find(std::string name, QUrl styleSheet);
    QCoro::Task<QByteArray> download(QUrl styleSheet); // empty when there is nothing to be had
    QCoro::Task<Font> keep(std::string name, QByteArray bytes);
    std::filesystem::path fileNamed(const std::string &name) const;

    HttpsClient &m_client;
    GoogleAddresses m_addresses;
    std::filesystem::path m_folder;
    std::chrono::milliseconds m_silence;
    std::map<std::string, QFuture<Font>> m_running;        // by the name of the file
    std::map<std::string, std::filesystem::path> m_unkept; // likewise: what could not be written to the folder
    std::unique_ptr<QTemporaryDir> m_private;              // where that is instead, until the program ends
};

} // namespace kerlune
