#include "Platform/Linux/LinuxFontRegistry.h"

#include "Platform/Linux/ProcessFonts.h"
#include "Platform/Linux/SystemFontFiles.h"

#include <QFile>
#include <QSet>

#include <utility>

namespace kerlune {

LinuxFontRegistry::LinuxFontRegistry(std::shared_ptr<ProcessFonts> processFonts, QObject *parent)
    : FontRegistry(parent)
    , m_processFonts(std::move(processFonts))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        watchSystemFolders(); // the change may have brought a folder
        Q_EMIT registeredFontsChanged();
    });
}

void LinuxFontRegistry::registerForProcess(std::span<const std::string> paths)
{
    if (m_processFonts->add(paths))
        Q_EMIT registeredFontsChanged();
}

void LinuxFontRegistry::unregisterForProcess(std::span<const std::string> paths)
{
    if (m_processFonts->remove(paths))
        Q_EMIT registeredFontsChanged();
}

void LinuxFontRegistry::watchSystemFolders()
{
    const QStringList known = m_watcher.directories();
    const QSet<QString> watched(known.begin(), known.end());
    for (const std::string &folder : systemFontFolders()) {
        if (const QString path = QFile::decodeName(folder.c_str()); !watched.contains(path))
            m_watcher.addPath(path);
    }
}

} // namespace kerlune
