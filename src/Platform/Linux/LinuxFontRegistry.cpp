#include "Platform/Linux/LinuxFontRegistry.h"

#include "Platform/Linux/FontLinks.h"
#include "Platform/Linux/ProcessFonts.h"
#include "Platform/Linux/SystemFontFiles.h"

#include <QFutureWatcher>
#include <QtConcurrentRun>

#include <algorithm>
#include <system_error>
#include <utility>

namespace kerlune {

LinuxFontRegistry::LinuxFontRegistry(std::shared_ptr<ProcessFonts> processFonts,
                                     const std::filesystem::path &linkFolder, QObject *parent)
    : FontRegistry(parent)
    , m_processFonts(std::move(processFonts))
    , m_linkFolder(linkFolder)
    , m_links(std::make_shared<FontLinks>(linkFolder))
    , m_stream({.links = InotifyTree::Links::Follow}) // as fontconfig does
{
    connect(&m_stream, &FileEventStream::changed, this, &FontRegistry::registeredFontsChanged);
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

QFuture<FontRegistry::Errors> LinuxFontRegistry::registerPersistently(std::vector<std::string> paths)
{
    return announced(QtConcurrent::run([links = m_links, paths = std::move(paths)] { return links->add(paths); }));
}

QFuture<FontRegistry::Errors> LinuxFontRegistry::unregisterPersistently(std::vector<std::string> paths)
{
    return announced(QtConcurrent::run([links = m_links, paths = std::move(paths)] { return links->remove(paths); }));
}

// Not with QFuture::then(), which asks on the other thread whether this object still lives.
QFuture<FontRegistry::Errors> LinuxFontRegistry::announced(QFuture<Errors> change)
{
    auto *watcher = new QFutureWatcher<Errors>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        watcher->deleteLater();
        Q_EMIT registeredFontsChanged();
    });
    watcher->setFuture(change);
    return change;
}

QFuture<std::vector<std::string>> LinuxFontRegistry::persistentlyRegistered() const
{
    return QtConcurrent::run([links = m_links] { return links->paths(); });
}

bool LinuxFontRegistry::showsPersistentFonts() const
{
    std::error_code error;
    const std::string links = std::filesystem::weakly_canonical(m_linkFolder, error).string() + '/';
    const std::vector<std::string> folders = systemFontFolders();
    return std::any_of(folders.begin(), folders.end(), [&](const std::string &folder) {
        return links.starts_with(std::filesystem::weakly_canonical(folder, error).string() + '/');
    });
}

void LinuxFontRegistry::watchSystemFolders()
{
    std::vector<FileEventStream::Tree> trees;
    for (std::string &folder : systemFontFolders())
        trees.push_back({std::move(folder), std::chrono::system_clock::now()});
    m_stream.start(std::move(trees));
}

} // namespace kerlune
