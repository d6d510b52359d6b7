#include "App/OpenWindow.h"

#include "App/WindowProgram.h"
#include "CLI/Commands.h"
#include "CLI/Output.h"
#include "Platform/Linux/DesktopAppearance.h"
#include "Platform/Linux/InotifyEventStream.h"
#include "Platform/Linux/LinuxFrontApplication.h"
#include "Platform/Linux/LinuxHotKeys.h"
#include "Support/Debounce.h"
#include "Support/Localization.h"
#include "UI/Window/ApplyHotKey.h"
#include "UI/Window/ApplyNotice.h"
#include "UI/Window/SingleInstance.h"
#include "UI/Window/TrayPicker.h"

#include <QFileInfo>

#include <chrono>
#include <iostream>
#include <optional>

namespace kerlune {

namespace {

using Clock = std::chrono::steady_clock;

const Clock::time_point g_start = Clock::now(); // before main()

// Fingerprints are computed when the library is there and has not changed for a while.
constexpr std::chrono::seconds kQuietBeforeAnalysis{4};
// Of a library of this size, records, fingerprints and window stay below 250 MB together. A larger one has its
// fingerprints read when somebody first asks for look-alikes.
constexpr std::size_t kMostFacesReadAhead = 32'768;

void analyse(const AppState &state)
{
    if (state.allRecords().size() <= kMostFacesReadAhead)
        state.fingerprints().load();
    state.fingerprints().build(state.allRecords());
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

// Absolute: another process may take them, whose folder is another one.
QStringList absolutePaths(const std::vector<std::string> &paths)
{
    QStringList files;
    for (const std::string &path : paths)
        files.push_back(QFileInfo(QFile::decodeName(path.c_str())).absoluteFilePath());
    return files;
}

void reportFirstPaint()
{
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - g_start);
    std::cerr << "first paint " << passed.count() << " ms" << std::endl;
}

void connectTray(TrayPicker &tray, WindowProgram &program)
{
    MainWindow &window = program.window();
    QObject::connect(&tray, &TrayPicker::familyChosen, &window,
                     [&window](const QString &family) { window.presentFamily(family.toStdString()); });
    QObject::connect(&tray, &TrayPicker::windowWanted, &window, &MainWindow::present);
    QObject::connect(&tray, &TrayPicker::quitWanted, &window, &MainWindow::quitWanted);
}

// Closing the window ends the program, but for one that stays in the notification area.
void connectQuitting(WindowProgram &program, const TrayPicker &tray)
{
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication &application = program.application();
    QObject::connect(&program.window(), &MainWindow::quitWanted, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    QObject::connect(&application, &QApplication::lastWindowClosed, &application, [&tray] {
        if (!tray.isTrayShown())
            QApplication::quit();
    });
}

} // namespace

int openWindow(const ProgramParts &parts, const std::vector<std::string> &paths)
{
    if (!hasDisplay())
        return reportWrongUsage(localized("Il manque une commande, ou un écran pour ouvrir la fenêtre."),
                                localized("« kerlune --help » donne les commandes."));
    const QStringList files = absolutePaths(paths);
    WindowApplication application;
    SingleInstance instance(parts.directories);
    if (instance.begin(files) == SingleInstance::Role::Second)
        return kDone;

    InotifyEventStream events({});
    const auto front = linuxFrontApplication();
    WindowProgram program(*application, parts, {events, *front}, parts.directories);
    MainWindow &window = program.window();
    TrayPicker tray(program.workspace());
    connectTray(tray, program);
    connectQuitting(program, tray);
    QObject::connect(&instance, &SingleInstance::asked, &window, [&window](const QStringList &asked) {
        window.present();
        window.open(asked);
    });
    Preferences &preferences = program.preferences();
    const auto appearance =
        preferences.appearance.addNotifier([&] { program.theme().setAppearance(preferences.appearance.value()); });
    const DesktopAppearance desktop;
    QObject::connect(&desktop, &DesktopAppearance::changed, &program.theme(), &Theme::setDesktopIsDark);
    if (qEnvironmentVariable("KERLUNE_START_REPORT") == QStringLiteral("1"))
        QObject::connect(&window, &MainWindow::painted, &window, reportFirstPaint);
    AppState &state = program.state();
    Debounce analysis(kQuietBeforeAnalysis, [&state] { analyse(state); });
    const auto libraryObserver = state.library.observe([&analysis] { analysis.trigger(); });
    const auto tellOutside = [&tray](const Notice &notice) {
        if (QApplication::activeWindow() == nullptr)
            tray.tell(notice);
    };
    const auto feedbackObserver = state.applyFeedback.observe([&state, tellOutside] {
        if (const auto &feedback = state.applyFeedback())
            tellOutside(noticeOf(*feedback));
    });
    const auto noticeObserver = state.notice.observe([&state, tellOutside] {
        if (const auto &notice = state.notice())
            tellOutside(*notice);
    });
    LinuxHotKeys keys(localized("Appliquer la police sélectionnée"));
    std::optional<ApplyHotKey> hotKey;
    window.show();
    hotKey.emplace(keys, state, preferences);
    state.load();
    if (!files.isEmpty())
        window.open(files);
    const int status = QApplication::exec();
    window.close(); // keeps how it was left
    return status;
}

} // namespace kerlune
