#pragma once

#include "FontconfigFile.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <nlohmann/json.hpp>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace kerlune {

using nlohmann::json;

struct Result {
    int status;
    std::string output;
    std::string messages;
};

// The program in a home of its own, with the fonts that a test puts there.
class CommandLineTest : public testing::Test {
protected:
    CommandLineTest()
    {
        fs::create_directories(fonts());
        setenv("XDG_DATA_HOME", (m_home / "data").c_str(), 1);
        setenv("XDG_CACHE_HOME", (m_home / "cache").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (m_home / "config").c_str(), 1);
        setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {fonts()}).c_str(), 1);
        for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            unsetenv(variable); // a command that is missing would open the window
    }

    fs::path fonts() const { return m_home / "fonts"; }
    fs::path database() const { return m_home / "data/Kerlune/index.sqlite"; }
    void offer(const std::string &name) const { fs::copy_file(testFont(name), fonts() / name); }
    void offerAll(std::initializer_list<const char *> names) const // and has them indexed
    {
        for (const char *name : names)
            offer(name);
        EXPECT_EQ(run("index").status, 0);
    }
    // A copy of a test font below the home; gives its path.
    std::string put(const std::string &name, const std::string &font = "plain.ttf") const
    {
        writeFile(m_home / name, readFile(testFont(font)));
        return m_home / name;
    }

    Result run(const std::string &arguments, const std::string &outputTo = {},
               const std::string &inputFrom = "/dev/null") const
    {
        const std::string output = outputTo.empty() ? (m_home / "output").string() : outputTo;
        const std::string command = std::string(KERLUNE_PROGRAM) + " " + arguments + " >" + output + " 2>" +
                                    (m_home / "messages").string() + " <" + inputFrom;
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, outputTo.empty() ? readFile(output) : "",
                readFile(m_home / "messages")};
    }

    json runJson(const std::string &arguments) const
    {
        const Result result = run(arguments + " --json");
        EXPECT_EQ(result.status, 0) << arguments << ": " << result.messages;
        return json::parse(result.output);
    }
    struct Case {
        std::string arguments;
        int status;
        std::string message;
    };
    // What fails prints nothing, and says why.
    void expect(const std::vector<Case> &cases) const
    {
        for (const auto &[arguments, status, message] : cases) {
            const Result result = run(arguments);
            EXPECT_EQ(result.status, status) << arguments;
            EXPECT_THAT(result.messages, HasSubstr(message)) << arguments;
            EXPECT_TRUE(status == 0 || result.output.empty()) << arguments;
        }
    }
    json faces() const { return runJson("faces"); }
    std::string inHome(const std::string &name) const { return "'" + (m_home / name).string() + "'"; }

    // The program in a process of its own, not waited for.
    static pid_t start(std::vector<std::string> arguments)
    {
        const pid_t child = fork();
        if (child != 0)
            return child;
        std::vector<char *> argv;
        arguments.insert(arguments.begin(), "kerlune");
        for (std::string &argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        freopen("/dev/null", "w", stdout);
        freopen("/dev/null", "w", stderr);
        execv(KERLUNE_PROGRAM, argv.data());
        _exit(127);
    }

    static void expectDone(const std::vector<pid_t> &children)
    {
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        }
    }

    TempFolder m_home;
};

} // namespace kerlune
