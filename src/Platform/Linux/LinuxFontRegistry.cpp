#include "Platform/Linux/LinuxFontRegistry.h"

#include "Platform/Linux/ProcessFonts.h"
#include "Support/Handle.h"

#include <QDirIterator>
#include <fontconfig/fontconfig.h>

#include <utility>

namespace kerlune {

namespace {

// Every folder that fontconfig is told to read, subfolders included. Missing ones are left out.
QStringList systemFolders()
{
    QStringList folders;
    const Handle<FcConfig, FcConfigDestroy> config(FcInitLoadConfig());
    const Handle<FcStrList, FcStrListDone> roots(config == nullptr ? nullptr : FcConfigGetFontDirs(config.get()));
    for (const FcChar8 *root = nullptr; roots != nullptr && (root = FcStrListNext(roots.get())) != nullptr;) {
        const QString path = QFile::decodeName(reinterpret_cast<const char *>(root));
        if (!QFileInfo(path).isDir())
            continue;
        folders.append(path);
        QDirIterator subfolders(path, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (subfolders.hasNext())
            folders.append(subfolders.next());
    }
    return folders;
}

} // namespace

LinuxFontRegistry::LinuxFontRegistry(std::shared_ptr<ProcessFonts> processFonts, QObject *parent)
    : FontRegistry(parent)
    , m_processFonts(std::move(processFonts))
{
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        watchNewFolders();
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
    watchNewFolders();
}

void LinuxFontRegistry::watchNewFolders()
{
    QStringList folders = systemFolders();
    const QStringList known = m_watcher.directories();
    const QSet<QString> watched(known.begin(), known.end());
    folders.removeIf([&](const QString &folder) { return watched.contains(folder); });
    if (!folders.isEmpty())
        m_watcher.addPaths(folders);
}

} // namespace kerlune
