#pragma once

#include "App/ProgramParts.h"
#include "UI/Window/Language.h"
#include "UI/Window/MainWindow.h"
#include "UI/Workspace.h"

#include <QApplication>

#include <array>

namespace kerlune {

class FileEventStream;
class FrontApplication;

// The application object, with the few interface fonts, and none of the command line's arguments taken for Qt's.
class WindowApplication final {
public:
    WindowApplication();

    QApplication &operator*() { return m_application; }

private:
    std::array<char, 8> m_name{"kerlune"};
    int m_count = 1;
    std::array<char *, 2> m_arguments{m_name.data(), nullptr};
    bool m_areFontsLimited; // before Qt looks for any
    QApplication m_application;
};

// What the window follows: needs the application object, and must outlive the window.
struct FollowedParts {
    FileEventStream &events;
    FrontApplication &front;
};

// All objects of the window, each built once.
//
// Thread: main.
class WindowProgram final {
public:
    // The settings come from `settings`, all else from the directories of the parts.
    WindowProgram(QApplication &application, const ProgramParts &parts, const FollowedParts &followed,
                  const Directories &settings);
    ~WindowProgram();

    QApplication &application() { return m_application; }
    AppState &state() { return m_state; }
    Preferences &preferences() { return m_preferences; }
    Theme &theme() { return m_theme; }
    Workspace &workspace() { return m_workspace; }
    MainWindow &window() { return m_window; }
    PreviewQueue &previews() { return m_previews; }

private:
    QApplication &m_application;
    Preferences m_preferences;
    Language m_language;
    Theme m_theme;
    bool m_isThemeApplied; // before any widget is made
    PreviewQueue m_previews;
    AppState m_state;
    bool m_isReadAhead; // while the window is being built
    Workspace m_workspace;
    MainWindow m_window;
};

} // namespace kerlune
