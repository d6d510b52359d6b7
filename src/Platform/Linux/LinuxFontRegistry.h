#pragma once

#include "Platform/FontRegistry.h"
#include "Platform/Linux/InotifyEventStream.h"

#include <filesystem>
#include <memory>

namespace kerlune {

class FontLinks;
class ProcessFonts;

// Registers files for the process in the list that the catalogue reads, persistently by links in a folder that
// fontconfig reads, and follows fontconfig's font folders.
//
// Thread: main.
class LinuxFontRegistry final : public FontRegistry {
    Q_OBJECT

public:
    // `linkFolder` has to lie below one of fontconfig's folders; it is made when it is needed.
    LinuxFontRegistry(std::shared_ptr<ProcessFonts> processFonts, const std::filesystem::path &linkFolder,
                      QObject *parent = nullptr);

    void registerForProcess(std::span<const std::string> paths) override;
    void unregisterForProcess(std::span<const std::string> paths) override;
    QFuture<Errors> registerPersistently(std::vector<std::string> paths) override;
    QFuture<Errors> unregisterPersistently(std::vector<std::string> paths) override;
    QFuture<std::vector<std::string>> persistentlyRegistered() const override;
    bool showsPersistentFonts() const override; // asks fontconfig for its folders

    // Starts to follow the folders that fontconfig reads, with all below them, whether they exist yet or not.
    void watchSystemFolders();

private:
    QFuture<Errors> announced(QFuture<Errors> change);

    std::shared_ptr<ProcessFonts> m_processFonts;
    std::filesystem::path m_linkFolder;
    std::shared_ptr<const FontLinks> m_links;
    InotifyEventStream m_stream;
};

} // namespace kerlune
