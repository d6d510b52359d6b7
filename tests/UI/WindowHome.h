#pragma once

#include "LibraryHome.h"
#include "MadeFrontApplication.h"
#include "MadeScriptEngine.h"
#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/InotifyEventStream.h"
#include "UI/Workspace.h"

#include <QApplication>
#include <QTest>

namespace kerlune {

// Runs the event loop until the condition holds, for as long as the slowest machine may need.
template <typename Condition>
bool waitFor(Condition &&condition)
{
    constexpr int kLongest = 60'000; // milliseconds
    return QTest::qWaitFor(std::forward<Condition>(condition), kLongest);
}

// A home of its own and a program with a window in it, off screen.
class WindowHome : public LibraryHomeOf<QApplication> {
protected:
    static constexpr AppState::Delays kQuick{.registryRefresh = std::chrono::milliseconds(20),
                                             .folderRescan = std::chrono::milliseconds(20),
                                             .notice = std::chrono::hours(1),
                                             .errorNotice = std::chrono::hours(1),
                                             .applied = std::chrono::hours(1),
                                             .notApplied = std::chrono::hours(1),
                                             .foreignChanges = std::chrono::hours(1)};

    struct Program {
        explicit Program(const WindowHome &test)
            : processFonts(std::make_shared<ProcessFonts>())
            , catalog(processFonts, test.m_directories.caches / "descriptors")
            , registry(processFonts, activationLinksFolder(test.m_directories))
            , state({catalog, registry, events, scripts, front, test.m_directories}, kQuick)
            , preferences(test.m_directories)
        {}
        ~Program() { finishBackgroundWork(); }

        void load() { QCoro::waitFor(state.load()); }

        std::shared_ptr<ProcessFonts> processFonts;
        FontconfigCatalog catalog;
        LinuxFontRegistry registry;
        InotifyEventStream events{
            {.latency = std::chrono::milliseconds(5), .rootCheck = std::chrono::milliseconds(20)}};
        MadeScriptEngine scripts{[](const std::string &) { return ScriptEngine::Descriptor{"OK|2"}; }};
        MadeFrontApplication front;
        AppState state;
        Preferences preferences;
        Theme theme{Appearance::light};
        PreviewQueue previews;
        Workspace workspace{state, preferences, theme, previews};
    };

    // With the fonts that were put until now.
    std::unique_ptr<Program> openLoaded() const
    {
        auto program = std::make_unique<Program>(*this);
        program->load();
        return program;
    }
};

} // namespace kerlune
