#pragma once

#include "Catalogs/GoogleAddresses.h"
#include "Catalogs/GoogleFileList.h"
#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/HttpsClient.h"

#include <QCoroTask>
#include <QObject>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// Downloads all fonts of a family, with its licence, into a folder of its own in the install root. The folder appears
// as a whole, once every file has been checked as a font; what came before an error is kept aside, hidden, and not
// fetched again the next time.
//
// The files are those that the catalogue's server lists; where it lists none, those of the style sheet of all styles.
//
// Thread: main; files are read and written on others.
class GoogleFamilyFiles final : public QObject {
    Q_OBJECT

public:
    using CatalogError = GoogleFontsCatalog::CatalogError;
    using Progress = std::function<void(double share)>; // 0…1

    struct Family {
        std::filesystem::path folder;
        std::vector<std::string> fonts; // their paths, sorted
        bool wasThere = false;          // nothing was downloaded
    };
    using Outcome = GoogleFontsCatalog::Outcome<Family>;

    // The client must outlive this.
    GoogleFamilyFiles(HttpsClient &client, GoogleAddresses addresses, std::filesystem::path installRoot,
                      std::chrono::milliseconds silence = std::chrono::seconds(30));

    // What is given as `onProgress` must live until the end.
    QCoro::Task<Outcome> download(GoogleFontFamily family, Progress onProgress);

private:
    template <typename Value>
    using Expected = GoogleFontsCatalog::Outcome<Value>;

    QCoro::Task<Expected<GoogleFileList>> list(GoogleFontFamily family);
    QCoro::Task<Expected<GoogleFileList>> listOfStyleSheet(GoogleFontFamily family);
    QCoro::Task<std::optional<CatalogError>> fetchFonts(GoogleFileList files, std::filesystem::path staging,
                                                        Progress onProgress);
    QCoro::Task<std::optional<CatalogError>> fetchFont(GoogleFileList::Font font, std::filesystem::path file,
                                                       Progress onProgress);

    HttpsClient &m_client;
    GoogleAddresses m_addresses;
    std::filesystem::path m_root;
    std::chrono::milliseconds m_silence;
};

// For the user: nothing at all came.
std::string nothingDownloadedMessage();

} // namespace kerlune
