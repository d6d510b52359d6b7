#include "Bridge/HostApp.h"

#include "Bridge/ScriptText.h"
#include "Support/Localization.h"

#include <algorithm>

namespace kerlune {

namespace {

struct HostNames {
    const char *displayName;
    std::vector<std::string> bundleIdentifiers;
    const char *scriptName;
    const char *commandWord;
    const char *windowName; // WM_CLASS, in lower case
    const char *selection;
};

const HostNames &namesOf(HostApp host)
{
    static const std::array<HostNames, kHostApps.size()> names{{
        {"Photoshop",
         {"com.adobe.Photoshop"},
         "photoshop",
         "photoshop",
         "photoshop.exe",
         marked("calques de texte sélectionnés")},
        {"Illustrator",
         {"com.adobe.illustrator"},
         "illustrator",
         "illustrator",
         "illustrator.exe",
         marked("objets texte ou caractères sélectionnés")},
        {"InDesign",
         {"com.adobe.InDesign"},
         "indesign",
         "indesign",
         "indesign.exe",
         marked("blocs de texte, texte ou caractères sélectionnés")},
        {"After Effects",
         {"com.adobe.AfterEffects.application"},
         "afterEffects",
         "after-effects",
         "afterfx.exe",
         marked("calques de texte sélectionnés")},
        {"DaVinci Resolve",
         {"com.blackmagic-design.DaVinciResolve", "com.blackmagic-design.DaVinciResolveStudio"},
         "resolve",
         "resolve",
         "resolve",
         marked("titres Text+ sélectionnés, ou celui sous la tête de lecture")},
    }};
    return names.at(static_cast<std::size_t>(host));
}

std::string lowerCase(std::string_view name)
{
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

// In lower case, and without what parts words.
std::string letters(std::string_view name)
{
    std::string letters = lowerCase(name);
    std::erase_if(letters, [](char c) { return c == ' ' || c == '-'; });
    return letters;
}

template <typename Matches>
std::optional<HostApp> firstHost(Matches &&matches)
{
    const auto host = std::find_if(kHostApps.begin(), kHostApps.end(), matches);
    return host == kHostApps.end() ? std::nullopt : std::optional(*host);
}

} // namespace

std::string displayName(HostApp host)
{
    return namesOf(host).displayName;
}

std::vector<std::string> bundleIdentifiers(HostApp host)
{
    return namesOf(host).bundleIdentifiers;
}

std::string scriptName(HostApp host)
{
    return namesOf(host).scriptName;
}

std::string selectionDescription(HostApp host)
{
    return localized(namesOf(host).selection);
}

std::string commandWord(HostApp host)
{
    return namesOf(host).commandWord;
}

std::optional<HostApp> hostNamed(std::string_view name)
{
    const std::string wanted = letters(name);
    return firstHost([&](HostApp candidate) {
        return wanted == letters(commandWord(candidate)) || wanted == letters(displayName(candidate));
    });
}

std::optional<HostApp> hostOf(const FrontApplication::Program &program)
{
    return firstHost([&](HostApp candidate) {
        const std::string name = namesOf(candidate).windowName;
        return lowerCase(program.instance) == name || lowerCase(program.windowClass) == name;
    });
}

std::vector<HostApp> runningHosts(const FrontApplication &front)
{
    std::vector<HostApp> hosts;
    std::vector<FrontApplication::Program> programs = front.programs();
    programs.insert(programs.begin(), front.current());
    for (const FrontApplication::Program &program : programs) {
        const auto host = hostOf(program);
        if (host && std::find(hosts.begin(), hosts.end(), *host) == hosts.end())
            hosts.push_back(*host);
    }
    return hosts;
}

std::string appleScriptCommand(HostApp host, std::string_view javaScript, std::string_view undoName)
{
    const std::string text = quotedForAppleScript(javaScript);
    if (host == HostApp::indesign) {
        return "do script " + text + " language javascript undo mode entire script undo name " +
               quotedForAppleScript(undoName);
    }
    return (host == HostApp::afterEffects ? "DoScript " : "do javascript ") + text;
}

std::string tellTo(HostApp host)
{
    return "tell application id \"" + bundleIdentifiers(host).front() + '"';
}

std::string appleScriptFor(HostApp host, std::string_view command)
{
    return tellTo(host) + "\n    " + std::string(command) + "\nend tell";
}

} // namespace kerlune
