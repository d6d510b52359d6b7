#pragma once

#include "LibraryHome.h"
#include "MadeFrontApplication.h"
#include "MadeScriptEngine.h"
#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/InotifyEventStream.h"
#include "State/AppState.h"

#include <utility>

namespace kerlune {

// Changes are taken up at once, and what is told stays until a test has looked.
inline constexpr AppState::Delays kQuick{.registryRefresh = 20ms,
                                         .folderRescan = 20ms,
                                         .notice = 1h,
                                         .errorNotice = 1h,
                                         .applied = 1h,
                                         .notApplied = 1h,
                                         .foreignChanges = 1h};

// A library as a program has it open; several may be at a time.
struct LibraryProgram {
    explicit LibraryProgram(Directories itsDirectories, const AppState::Delays &delays = kQuick)
        : directories(std::move(itsDirectories))
        , state({catalog, registry, events, scripts, front, directories}, delays)
    {}
    ~LibraryProgram() { finishBackgroundWork(); }

    void load() { QCoro::waitFor(state.load()); }

    Directories directories;
    std::shared_ptr<ProcessFonts> processFonts = std::make_shared<ProcessFonts>();
    FontconfigCatalog catalog{processFonts, directories.caches / "descriptors"};
    LinuxFontRegistry registry{processFonts, activationLinksFolder(directories)};
    InotifyEventStream events{{.latency = 5ms, .rootCheck = 20ms}};
    MadeScriptEngine scripts{[](const std::string &) { return ScriptEngine::Descriptor{"OK|2"}; }};
    MadeFrontApplication front;
    AppState state;
};

} // namespace kerlune
