#include "App/WindowProgram.h"

#include "Platform/Linux/InterfaceFonts.h"

#include <QIcon>

#include <clocale>

namespace kerlune {

namespace {

// Another core would have nothing to do while the window is being built.
bool readAhead(AppState &state)
{
    state.readAhead();
    return true;
}

bool apply(Theme &theme, QApplication &application)
{
    std::setlocale(LC_NUMERIC, "C"); // NOLINT(concurrency-mt-unsafe): the application object has set the user's
    theme.applyTo(application);
    return true;
}

// Fonts may lie in other places for the state than for its settings.
Directories withConfiguration(Directories directories, const Directories &settings)
{
    directories.configuration = settings.configuration;
    return directories;
}

} // namespace

WindowApplication::WindowApplication()
    : m_areFontsLimited(limitInterfaceFonts())
    , m_application(m_count, m_arguments.data())
{}

WindowProgram::WindowProgram(QApplication &application, const ProgramParts &parts, const FollowedParts &followed,
                             const Directories &settings)
    : m_application(application)
    , m_preferences(settings)
    , m_language(m_preferences)
    , m_theme(m_preferences.appearance.value())
    , m_isThemeApplied(apply(m_theme, m_application))
    , m_state({parts.catalog, parts.registry, followed.events, parts.scripts, followed.front,
               withConfiguration(parts.directories, settings)})
    , m_isReadAhead(readAhead(m_state))
    , m_workspace(m_state, m_preferences, m_theme, m_previews)
    , m_window(m_workspace)
{
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/application.svg")));
    QApplication::setDesktopFileName(QStringLiteral("kerlune"));
}

WindowProgram::~WindowProgram()
{
    m_window.hide();
}

} // namespace kerlune
