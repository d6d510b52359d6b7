#pragma once

#include "FontconfigFile.h"
#include "TempFolder.h"
#include "TestFonts.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace kerlune {

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
        std::filesystem::create_directories(fonts());
        setenv("XDG_DATA_HOME", (m_home / "data").c_str(), 1);
        setenv("XDG_CACHE_HOME", (m_home / "cache").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (m_home / "config").c_str(), 1);
        setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {fonts()}).c_str(), 1);
    }

    std::filesystem::path fonts() const { return m_home / "fonts"; }
    std::filesystem::path database() const { return m_home / "data/Kerlune/index.sqlite"; }
    void offer(const std::string &name) { std::filesystem::copy_file(testFont(name), fonts() / name); }

    Result run(const std::string &arguments, const std::string &outputTo = {}) const
    {
        const std::string output = outputTo.empty() ? (m_home / "output").string() : outputTo;
        const std::string command = std::string(KERLUNE_PROGRAM) + " " + arguments + " >" + output + " 2>" +
                                    (m_home / "messages").string() + " </dev/null";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, outputTo.empty() ? readFile(output) : "",
                readFile(m_home / "messages")};
    }

    nlohmann::json faces() const
    {
        const Result result = run("faces --json");
        EXPECT_EQ(result.status, 0) << result.messages;
        return nlohmann::json::parse(result.output);
    }

    TempFolder m_home;
};

} // namespace kerlune
