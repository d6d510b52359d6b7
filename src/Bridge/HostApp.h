#pragma once

#include "Platform/FrontApplication.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// The programs whose selected text can be given a font.
enum class HostApp { photoshop, illustrator, indesign, afterEffects, davinciResolve };

inline constexpr std::array kHostApps{HostApp::photoshop, HostApp::illustrator, HostApp::indesign,
                                      HostApp::afterEffects, HostApp::davinciResolve};

std::string displayName(HostApp host);
std::vector<std::string> bundleIdentifiers(HostApp host); // one for each edition, the usual one first
std::string scriptName(HostApp host);                     // of its file, without the extension
std::string selectionDescription(HostApp host);           // what in it is given the font, for display

std::string commandWord(HostApp host); // as it is named on the command line
// By that word or any other name that stands here, however it is spelt: "after-effects".
std::optional<HostApp> hostNamed(std::string_view name);
// By the names of its windows, on this system or under Wine.
std::optional<HostApp> hostOf(const FrontApplication::Program &program);
std::vector<HostApp> runningHosts(const FrontApplication &front); // the one that was in front last comes first

// The AppleScript command that runs a JavaScript text in the host, and the script that sends it there.
std::string appleScriptCommand(HostApp host, std::string_view javaScript, std::string_view undoName);
std::string tellTo(HostApp host); // how a script begins that addresses it
std::string appleScriptFor(HostApp host, std::string_view command);

} // namespace kerlune
