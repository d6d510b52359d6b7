#include "UI/Workspace.h"

#include "Support/Localization.h"

#include <algorithm>

namespace kerlune {

Workspace::Workspace(AppState &state, Preferences &preferences, Theme &theme, PreviewQueue &previews)
    : m_state(state)
    , m_preferences(preferences)
    , m_theme(theme)
    , m_previews(previews)
    , m_commands(state, m_undoStack)
{
    m_state.readGlyphsInBackground(); // a window never waits for them
    const auto noteActiveFace = [this] {
        const FontRecordPointer face = m_state.activeRecord();
        const std::string name = face == nullptr ? std::string() : face->postScriptName;
        if (name == m_activeFace)
            return;
        m_activeFace = name;
        features = std::vector<FeatureValue>();
        coordinates = std::vector<AxisValue>();
    };
    m_observers.push_back(m_state.selectedFamily.addNotifier(noteActiveFace));
    m_observers.push_back(m_state.selectedFace.addNotifier(noteActiveFace));
    m_observers.push_back(m_state.library.observe(noteActiveFace));
}

Workspace::~Workspace() = default;

void Workspace::select(const std::vector<std::string> &families)
{
    selectedFamilies = families;
    const bool isCurrentSelected =
        m_state.selectedFamily.value() &&
        std::find(families.begin(), families.end(), *m_state.selectedFamily.value()) != families.end();
    if (isCurrentSelected)
        return;
    m_state.selectedFace = std::nullopt;
    m_state.selectedFamily = families.empty() ? std::nullopt : std::optional(families.front());
}

AppState::Families Workspace::selection() const
{
    AppState::Families families;
    for (const std::string &name : selectedFamilies.value()) {
        if (FontFamilyPointer family = m_state.family(name))
            families.push_back(std::move(family));
    }
    return families;
}

void Workspace::compare(const std::vector<std::string> &families)
{
    m_state.comparisonSet = std::vector<std::string>();
    addToComparison(families);
    m_state.viewMode = ViewMode::compare;
}

void Workspace::addToComparison(const std::vector<std::string> &families)
{
    std::vector<std::string> compared = m_state.comparisonSet.value();
    for (const std::string &family : families) {
        if (std::find(compared.begin(), compared.end(), family) == compared.end())
            compared.push_back(family);
    }
    if (compared.size() > kMostCompared) {
        compared.resize(kMostCompared);
        m_state.setNotice({localized("La comparaison montre 12 familles au plus.")});
    }
    m_state.comparisonSet = std::move(compared);
}

void Workspace::removeFromComparison(const std::string &family)
{
    std::vector<std::string> compared = m_state.comparisonSet.value();
    std::erase(compared, family);
    m_state.comparisonSet = std::move(compared);
}

std::string Workspace::previewText() const
{
    const std::string &text = m_state.previewText.value();
    const bool isBlank = std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\t'; });
    return isBlank ? std::string(AppState::kDefaultPreviewText) : text;
}

FontRecordPointer Workspace::comparedFace(const std::string &family) const
{
    const FontFamilyPointer own = m_state.family(family);
    return own == nullptr ? m_state.googlePreviews().descriptor(family) : own->representative();
}

} // namespace kerlune
