// Scrolling the grid of a large library: how long frames take, what the main thread spends on them, and the memory
// after it, beside frames that only paint again what is there.
//   build/release/bench/ScrollSpeed FOLDER
// of fonts, such as bench/make_library.py makes.

#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/InotifyEventStream.h"
#include "Platform/Linux/LinuxFontRegistry.h"
#include "Platform/Linux/NoFrontApplication.h"
#include "Platform/Linux/NoScriptEngine.h"
#include "Platform/Linux/ProcessFonts.h"
#include "Support/CpuStopwatch.h"
#include "UI/Browser/BrowserPane.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWheelEvent>
#include <qcorotask.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace kerlune;

// In milliseconds.
struct Frame {
    double wall;
    double processor; // of the main thread
};

// "VmRSS" or "VmHWM" of this process, in MB (proc_pid_status(5)).
double statusMegabytes(const std::string &field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field + ":"))
            return std::stod(line.substr(field.size() + 1)) * 1024 / 1e6;
    }
    return 0;
}

// The frame that shows what `change` does, with all that is waiting in the event loop.
Frame frame(QAbstractScrollArea &area, const std::function<void()> &change)
{
    QElapsedTimer wall;
    wall.start();
    const CpuStopwatch processor;
    change();
    area.viewport()->repaint();
    QCoreApplication::processEvents();
    return {static_cast<double>(wall.nsecsElapsed()) / 1e6, static_cast<double>(processor.elapsed().count()) / 1e6};
}

double quantile(std::vector<double> values, double part)
{
    const auto at = values.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), at, values.end());
    return *at;
}

double print(const char *name, const std::vector<Frame> &frames, double bare)
{
    std::vector<double> wall;
    std::vector<double> processor;
    for (const Frame &one : frames) {
        wall.push_back(one.wall);
        processor.push_back(one.processor);
    }
    std::printf("%-32s %4zu frames: median %6.2f ms, 99 of 100 %6.2f ms, worst %6.2f ms; main thread %6.2f ms, "
                "worst %6.2f ms",
                name, frames.size(), quantile(wall, 0.5), quantile(wall, 0.99), quantile(wall, 1),
                quantile(processor, 0.5), quantile(processor, 1));
    if (bare > 0)
        std::printf(" = %.2f times the bare frame's", quantile(processor, 0.5) / bare);
    std::printf("\n");
    return quantile(processor, 0.5);
}

void waitUntilPainted(const BrowserPane &pane, const PreviewQueue &previews)
{
    while (!pane.isPainted() || !previews.isIdle())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
}

void turnWheel(QAbstractScrollArea &area)
{
    const QPointF middle = QRectF(area.viewport()->rect()).center();
    QWheelEvent event(middle, area.viewport()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(area.viewport(), &event);
}

int measure(Workspace &workspace, PreviewQueue &previews)
{
    constexpr std::size_t kFrames = 600;
    BrowserPane pane(workspace);
    pane.resize(1'280, 800);
    pane.show();
    auto *area = pane.findChild<QAbstractScrollArea *>();
    if (area == nullptr)
        return 1;
    waitUntilPainted(pane, previews);
    std::printf("%zu families: %.0f MB before scrolling\n", workspace.state().families().size(),
                statusMegabytes("VmRSS"));

    std::vector<Frame> still;
    for (std::size_t i = 0; i < kFrames / 4; ++i)
        still.push_back(frame(*area, [] {}));
    const double bare = print("painted again", still, 0);

    std::vector<Frame> fromTopToBottom;
    QScrollBar &bar = *area->verticalScrollBar();
    for (std::size_t i = 1; i <= kFrames; ++i) {
        const int value = static_cast<int>(static_cast<std::size_t>(bar.maximum()) * i / kFrames);
        fromTopToBottom.push_back(frame(*area, [&] { bar.setValue(value); }));
    }
    print("from top to bottom", fromTopToBottom, bare);
    waitUntilPainted(pane, previews);

    bar.setValue(0);
    waitUntilPainted(pane, previews);
    std::vector<Frame> wheel;
    for (std::size_t i = 0; i < kFrames; ++i)
        wheel.push_back(frame(*area, [&] { turnWheel(*area); }));
    print("by the wheel, as fast as it can", wheel, bare);
    waitUntilPainted(pane, previews);
    std::printf("%.0f MB after scrolling, %.0f MB at most; %.0f MB of previews\n", statusMegabytes("VmRSS"),
                statusMegabytes("VmHWM"), static_cast<double>(previews.byteCount()) / 1e6);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: ScrollSpeed FOLDER\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir temporary;
    const std::filesystem::path home = temporary.path().toStdString();
    std::ofstream(home / "fonts.conf")
        << R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "urn:fontconfig:fonts.dtd">)"
        << "<fontconfig><dir>" << std::filesystem::absolute(argv[1]).string() << "</dir><cachedir>"
        << (home / "fontconfig").string() << "</cachedir></fontconfig>";
    qputenv("FONTCONFIG_FILE", QByteArray::fromStdString(home / "fonts.conf"));

    const QApplication application(argc, argv);
    const Directories directories{home, home / "data", home / "data/Kerlune", home / "cache", home / "config"};
    const auto processFonts = std::make_shared<ProcessFonts>();
    const FontconfigCatalog catalog(processFonts, directories.caches / "descriptors");
    LinuxFontRegistry registry(processFonts, activationLinksFolder(directories));
    InotifyEventStream events({});
    NoScriptEngine scripts;
    NoFrontApplication front;
    AppState state({catalog, registry, events, scripts, front, directories});
    QCoro::waitFor(state.load());
    Preferences preferences(directories);
    Theme theme(Appearance::light);
    PreviewQueue previews;
    Workspace workspace(state, preferences, theme, previews);
    return measure(workspace, previews);
}
