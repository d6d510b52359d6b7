#pragma once

#include "Platform/FontRegistry.h"

#include <QFileSystemWatcher>

#include <memory>

namespace kerlune {

class ProcessFonts;

// Registers files in the list that the catalogue reads, and follows fontconfig's font folders.
//
// Thread: main.
class LinuxFontRegistry final : public FontRegistry {
    Q_OBJECT

public:
    explicit LinuxFontRegistry(std::shared_ptr<ProcessFonts> processFonts, QObject *parent = nullptr);

    void registerForProcess(std::span<const std::string> paths) override;
    void unregisterForProcess(std::span<const std::string> paths) override;

    // Starts to follow the folders that fontconfig reads, with their subfolders as they are or come to be.
    void watchSystemFolders();

private:
    std::shared_ptr<ProcessFonts> m_processFonts;
    QFileSystemWatcher m_watcher;
};

} // namespace kerlune
