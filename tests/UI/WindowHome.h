#pragma once

#include "LibraryProgram.h"
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
    struct Program : LibraryProgram {
        explicit Program(const WindowHome &test)
            : LibraryProgram(test.m_directories)
            , preferences(directories)
        {}
        ~Program() { finishBackgroundWork(); }

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
    // The same, and the home's "Polices" is watched.
    std::unique_ptr<Program> openWatching() const
    {
        auto program = std::make_unique<Program>(*this);
        program->workspace.commands().addFolders({QString::fromStdString(m_home / "Polices")});
        EXPECT_TRUE(waitFor([&] { return program->workspace.commands().work.value().isEmpty(); }));
        program->load();
        return program;
    }

    AppState &state() const { return m_program->state; }
    Workspace &workspace() const { return m_program->workspace; }
    LibraryCommands &commands() const { return workspace().commands(); }

    // What has that name below the parent; a test ends where there is none.
    template <typename Child>
    static Child &child(const QObject &parent, const char *name)
    {
        auto *const found = parent.findChild<Child *>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no ") + name);
        return *found;
    }
    static void click(QWidget &widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    static void click(const QWidget &parent, const char *name) { click(child<QWidget>(parent, name)); }

    std::unique_ptr<Program> m_program; // outlives what a test shows of it
};

} // namespace kerlune
