#include "App/CapturedWindow.h"

#include "App/WindowProgram.h"
#include "CLI/CaptureRequest.h"
#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/NamedThings.h"
#include "CLI/NoEvents.h"
#include "CLI/Output.h"
#include "Platform/Linux/NoFrontApplication.h"
#include "Support/Localization.h"
#include "UI/Window/SettingsWindow.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QMetaEnum>
#include <QSaveFile>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

namespace kerlune {

namespace {

constexpr int kLongestWait = 120'000; // milliseconds

// Qt's own remarks on a platform without a screen are none of the user's business.
void beSilent(QtMsgType, const QMessageLogContext &, const QString &) {}

void goOffScreen(double scale)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    for (const char *name : {"QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME", "QT_FONT_DPI", "QT_SCREEN_SCALE_FACTORS"})
        qunsetenv(name);
    qInstallMessageHandler(beSilent);
}

// Runs the event loop until the condition holds; says whether it did.
template <typename Condition>
bool waitFor(Condition &&condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.hasExpired(kLongestWait))
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    }
    return true;
}

void setUp(WindowProgram &program, const CaptureRequest &request, const std::vector<std::string> &families)
{
    AppState &state = program.state();
    if (request.text)
        state.previewText = *request.text;
    if (request.previewSize)
        state.previewSize = *request.previewSize;
    state.filters = Filters{.search = request.search};
    state.viewMode = request.view;
    if (!families.empty()) {
        program.workspace().select(families);
        if (request.view == ViewMode::compare)
            program.workspace().compare(families);
    }
    if (request.panel) {
        const auto panels = panelNames();
        const auto found = std::find(panels.begin(), panels.end(), *request.panel);
        program.window().showPanel(static_cast<Workspace::Panel>(found - panels.begin()));
    }
}

bool waitForFingerprints(AppState &state)
{
    FingerprintIndex &fingerprints = state.fingerprints();
    fingerprints.load();
    if (!waitFor([&] { return fingerprints.isLoaded(); }))
        return false;
    fingerprints.build(state.allRecords());
    return waitFor([&] { return !fingerprints.isBuilding(); });
}

int write(const QImage &image, const std::filesystem::path &output)
{
    QSaveFile file(QString::fromStdString(output.native()));
    if (file.open(QIODevice::WriteOnly) && image.save(&file, "PNG") && file.commit())
        return kDone;
    return reportFailure(localized("Écriture de « %1 » impossible : %2",
                                   {displayText(output.native()), displayText(file.errorString().toStdString())}));
}

} // namespace

std::vector<std::string> panelNames()
{
    const auto panels = QMetaEnum::fromType<Workspace::Panel>();
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(panels.keyCount()));
    for (int i = 0; i < panels.keyCount(); ++i)
        names.emplace_back(panels.key(i));
    return names;
}

int captureWindow(const ProgramParts &parts, const CaptureRequest &request)
{
    goOffScreen(request.scale);
    WindowApplication application;
    const QTemporaryDir settingsFolder;
    Directories settings = parts.directories;
    settings.configuration = settingsFolder.path().toStdString();
    {
        Preferences preferences(settings);
        preferences.language = request.language;
        preferences.appearance = request.theme;
    }
    NoEvents events; // nothing is followed: the picture is of one moment
    NoFrontApplication front;
    WindowProgram program(*application, parts, {events, front}, settings);
    AppState &state = program.state();
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    if (const auto &error = state.storeError())
        return reportFailure(displayText(error->description()));
    state.reloadUserData();
    state.folderLibrary().refreshManagedLibraryEntry();
    const auto selection = selectionNamed(state, request.selection);
    if (!selection)
        return report(selection.error());
    state.load();
    if (!waitFor([&] { return state.hasLoaded() && !state.isIndexing(); }))
        return reportFailure(localized("La bibliothèque n’a pas pu être lue à temps."));
    const auto families = indexedFamilies(state, request.families);
    if (!families)
        return report(families.error());
    state.sidebarSelection = *selection;

    if (request.panel == "similar" && !waitForFingerprints(state))
        return reportFailure(localized("La bibliothèque n’a pas pu être lue à temps."));

    MainWindow &window = program.window();
    window.resize(request.width, request.height);
    setUp(program, request, *families);
    window.show();
    QWidget *captured = &window;
    if (request.settings) {
        window.showSettings();
        captured = window.findChild<SettingsWindow *>();
    }
    QCoreApplication::processEvents();
    const auto isPainted = [&] {
        captured->grab(); // what is in sight is wanted from here on
        return window.isPainted() && program.previews().isIdle() && !state.isReadingGlyphs();
    };
    if (!waitFor(isPainted))
        return reportFailure(localized("La fenêtre n’a pas pu être dessinée à temps."));
    state.dismissNotice();
    if (QWidget *focused = QApplication::focusWidget())
        focused->clearFocus(); // no caret
    QCoreApplication::processEvents();
    return write(captured->grab().toImage(), request.output);
}

} // namespace kerlune
