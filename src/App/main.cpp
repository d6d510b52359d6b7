#include "App/CapturedWindow.h"
#include "App/OpenWindow.h"
#include "App/ProgramParts.h"
#include "CLI/CaptureRequest.h"
#include "CLI/CommandLine.h"
#include "Platform/Directories.h"
#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/LinuxFontRegistry.h"
#include "Platform/Linux/NoScriptEngine.h"
#include "Platform/Linux/ProcessFonts.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <clocale>
#include <memory>
#include <string_view>

namespace {

// The window makes an application object of another kind than the other commands, which need no display.
bool opensWindow(int argc, const char *const *argv)
{
    constexpr std::array<std::string_view, 2> kCommands{"open", "capture"};
    return argc < 2 || std::find(kCommands.begin(), kCommands.end(), argv[1]) != kCommands.end();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Kerlune"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KERLUNE_VERSION));
    std::unique_ptr<QCoreApplication> application;
    if (!opensWindow(argc, argv))
        application = std::make_unique<QCoreApplication>(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // NOLINT(concurrency-mt-unsafe): no other thread runs yet

    const auto directories = kerlune::Directories::fromEnvironment();
    const auto processFonts = std::make_shared<kerlune::ProcessFonts>();
    const kerlune::FontconfigCatalog catalog(processFonts, directories.caches / "descriptors");
    kerlune::LinuxFontRegistry registry(processFonts, kerlune::activationLinksFolder(directories));
    kerlune::NoScriptEngine scripts;
    const kerlune::ProgramParts parts{
        .catalog = catalog, .registry = registry, .scripts = scripts, .directories = directories};
    const kerlune::WindowCommands window{
        .open = [&parts](const std::vector<std::string> &paths) { return kerlune::openWindow(parts, paths); },
        .capture = [&parts](const kerlune::CaptureRequest &request) { return kerlune::captureWindow(parts, request); },
        .panels = kerlune::panelNames()};
    return kerlune::runCommandLine(
        argc, argv,
        {.catalog = catalog, .registry = registry, .directories = directories, .window = window, .scripts = scripts});
}
