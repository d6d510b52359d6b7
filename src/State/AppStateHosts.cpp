// The commands of the state that use fonts in other programs.

#include "State/AppState.h"
#include "Support/Localization.h"
#include "Support/Text.h"

#include <QPointer>

#include <algorithm>
#include <filesystem>
#include <random>
#include <set>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kMostNamedFonts = 6; // in a notice

std::string listed(const std::vector<std::string> &names)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), kMostNamedFonts); ++i)
        text += (i == 0 ? "" : ", ") + names[i];
    if (names.size() <= kMostNamedFonts)
        return text;
    const auto others = static_cast<std::int64_t>(names.size() - kMostNamedFonts);
    return text + ' ' + localizedCount("et %1 autre", "et %1 autres", others);
}

std::string displayNameOf(const UsedFont &font)
{
    if (!font.family)
        return font.postScriptName;
    return font.style ? *font.family + ' ' + *font.style : *font.family;
}

bool isFileThere(const std::string &path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

// Whether a further font would end the same way.
bool isHostOutOfReach(const ApplyResult &result)
{
    return std::holds_alternative<ApplyOutcome::NotRunning>(result) ||
           std::holds_alternative<ApplyOutcome::NotAuthorized>(result);
}

} // namespace

// Applying.

// The file must be there, and be shown to every program, before a host can know the font.
QCoro::Task<std::optional<std::string>> AppState::preflight(FontRecordPointer face)
{
    const QPointer<AppState> self(this);
    if (!isFileThere(face->filePath)) {
        co_return localized("Le fichier de la police « %1 » est introuvable : %2",
                            {face->family + ' ' + face->style, face->filePath});
    }
    if (!m_folders.isInFolder(face->filePath) || m_activation.activePaths().contains(face->filePath))
        co_return std::nullopt;
    auto activating = m_activation.activate({face->filePath});
    const bool isActive = co_await activating;
    if (!self || isActive)
        co_return std::nullopt;
    co_return localized("Activation incomplète : ") + m_activation.lastError().value_or(std::string());
}

QCoro::Task<ApplyResult> AppState::apply(FontRecordPointer face, HostApp target)
{
    const QPointer<AppState> self(this);
    const std::optional<std::string> obstacle = co_await preflight(face);
    if (!self || obstacle)
        co_return ApplyOutcome::Failed{obstacle.value_or(std::string()), target};
    ApplyResult result = co_await m_bridge.apply(face, target);
    if (self && !shuffleActive() && std::holds_alternative<ApplyOutcome::Applied>(result))
        noteUsed(face->family);
    co_return result;
}

QCoro::Task<> AppState::applyWanted(WantedFont wanted)
{
    m_wantedFont = std::move(wanted);
    if (isApplying())
        co_return; // what runs takes this up when it has ended
    const QPointer<AppState> self(this);
    isApplying.set(true);
    while (m_wantedFont) {
        const WantedFont next = *std::exchange(m_wantedFont, std::nullopt);
        const bool wasShown =
            !m_folders.isInFolder(next.face->filePath) || m_activation.activePaths().contains(next.face->filePath);
        ApplyResult result = co_await apply(next.face, next.target);
        if (!self)
            co_return;
        if (next.isTried && !wasShown)
            m_triedFiles.insert(next.face->filePath);
        if (next.isTried && std::holds_alternative<ApplyOutcome::Applied>(result))
            m_lastTried = next.face;
        if (isHostOutOfReach(result))
            stopShuffle();
        setApplyFeedback(std::move(result));
    }
    isApplying.set(false);
    if (!shuffleActive())
        endTrial();
}

QCoro::Task<> AppState::applyCurrent(HostApp target)
{
    const FontRecordPointer face = activeRecord();
    if (face == nullptr)
        co_return;
    WantedFont wanted{face, target, false};
    co_await applyWanted(std::move(wanted));
}

QCoro::Task<> AppState::applyCurrentToFrontmost()
{
    if (activeRecord() == nullptr)
        co_return;
    if (const auto target = m_bridge.frontmost())
        co_await applyCurrent(*target);
    else
        setApplyFeedback(HostBridge::noHostRuns());
}

// Shuffle.

bool AppState::startShuffle(std::optional<HostApp> target)
{
    if (!target)
        target = m_bridge.frontmost();
    if (!target) {
        setApplyFeedback(HostBridge::noHostRuns());
        return false;
    }
    shuffleTarget.set(target);
    shuffleActive.set(true);
    m_shuffleApplying.trigger();
    return true;
}

void AppState::stopShuffle()
{
    m_shuffleApplying.cancel();
    if (m_wantedFont && m_wantedFont->isTried)
        m_wantedFont.reset();
    shuffleActive.set(false);
    shuffleTarget.set(std::nullopt);
    if (!isApplying())
        endTrial();
}

// Fonts that were only tried are not left shown to every program.
void AppState::endTrial()
{
    if (m_lastTried != nullptr) {
        m_triedFiles.erase(m_lastTried->filePath);
        noteUsed(m_lastTried->family);
    }
    m_lastTried.reset();
    const std::set<std::string> files = std::exchange(m_triedFiles, {});
    setFilesActive({files.begin(), files.end()}, false);
}

void AppState::applyShuffled()
{
    const FontRecordPointer face = activeRecord();
    if (shuffleActive() && shuffleTarget() && face != nullptr)
        applyWanted({face, *shuffleTarget(), true});
}

void AppState::selectForShuffle(std::size_t position)
{
    const std::string name = visibleFamilies()[position]->name;
    selectedFace = std::nullopt;
    selectedFamily = name;
    scrollTarget = std::nullopt; // so that it changes even where it is the same
    scrollTarget = name;
}

void AppState::stepShuffle(int step)
{
    const Families &families = visibleFamilies();
    if (families.empty())
        return;
    const auto count = static_cast<std::int64_t>(families.size());
    const auto current = std::find_if(families.begin(), families.end(), [&](const FontFamilyPointer &each) {
        return selectedFamily.value() && each->name == *selectedFamily.value();
    });
    const std::int64_t start = current == families.end() ? (step > 0 ? -1 : count) : current - families.begin();
    selectForShuffle(static_cast<std::size_t>(((start + step) % count + count) % count));
}

void AppState::stepShuffleAtRandom()
{
    static std::mt19937 random{std::random_device()()};
    const Families &families = visibleFamilies();
    if (families.empty())
        return;
    std::uniform_int_distribution<std::size_t> positions(0, families.size() - 1);
    std::size_t position = positions(random);
    if (families.size() > 1 && selectedFamily.value() && families[position]->name == *selectedFamily.value())
        position = (position + 1) % families.size(); // another one in any case
    selectForShuffle(position);
}

// Fonts that documents miss.

std::vector<FontRecordPointer> AppState::facesFor(const UsedFont &font) const
{
    std::vector<FontRecordPointer> faces;
    if (const FontRecordPointer named = record(font.postScriptName)) {
        const FontFamilyPointer holder = family(named->family);
        for (const FontRecordPointer &face : holder->faces) {
            if (face->postScriptName == font.postScriptName)
                faces.push_back(face);
        }
        return faces;
    }
    if (!font.family)
        return faces;
    const std::string wantedFamily = folded(*font.family);
    const std::string wantedStyle = folded(font.style.value_or(std::string()));
    for (const FontFamilyPointer &each : families()) {
        if (folded(each->name) != wantedFamily)
            continue;
        if (!font.style)
            faces.push_back(each->representative());
        for (const FontRecordPointer &face : each->faces) {
            if (font.style && folded(face->style) == wantedStyle)
                faces.push_back(face);
        }
    }
    return faces;
}

QCoro::Task<> AppState::activateMissingFonts(std::vector<UsedFont> fonts, std::vector<std::string> documents,
                                             HostApp host)
{
    const QPointer<AppState> self(this);
    std::set<std::string> files;
    std::vector<std::string> activated;
    std::vector<std::string> missing;
    bool hasFailed = false;
    const auto isShown = [this](const FontRecordPointer &face) {
        return !m_folders.isInFolder(face->filePath) || m_activation.activePaths().contains(face->filePath);
    };
    for (const UsedFont &font : fonts) {
        const std::vector<FontRecordPointer> faces = facesFor(font);
        if (faces.empty())
            missing.push_back(displayNameOf(font));
        else if (std::none_of(faces.begin(), faces.end(), isShown) && files.insert(faces.front()->filePath).second)
            activated.push_back(displayNameOf(font));
    }
    std::string text;
    if (!files.empty()) {
        auto activating = m_activation.activate({files.begin(), files.end()});
        const bool isDone = co_await activating;
        if (!self)
            co_return;
        text = isDone ? localized("Polices activées pour %1 : %2.", {displayName(host), listed(activated)})
                      : localized("Activation incomplète : ") + m_activation.lastError().value_or(std::string());
        hasFailed = !isDone;
    }
    if (!missing.empty()) {
        text += (text.empty() ? "" : "\n") + localized("« %1 » utilise des polices introuvables sur ce Mac : %2",
                                                       {listed(documents), listed(missing)});
    }
    if (!text.empty())
        setNotice({text, hasFailed || !missing.empty()});
}

} // namespace kerlune
