#include "CLI/CommandLine.h"
#include "Platform/Directories.h"
#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/LinuxFontRegistry.h"
#include "Platform/Linux/ProcessFonts.h"

#include <QCoreApplication>

#include <clocale>
#include <memory>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Kerlune"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KERLUNE_VERSION));
    std::setlocale(LC_NUMERIC, "C"); // NOLINT(concurrency-mt-unsafe): no other thread runs yet

    const auto directories = kerlune::Directories::fromEnvironment();
    const auto processFonts = std::make_shared<kerlune::ProcessFonts>();
    const kerlune::FontconfigCatalog catalog(processFonts, directories.caches / "descriptors");
    kerlune::LinuxFontRegistry registry(processFonts, kerlune::activationLinksFolder(directories));
    return kerlune::runCommandLine(argc, argv, {.catalog = catalog, .registry = registry, .directories = directories});
}
