#include "UI/Window/ApplyHotKey.h"

#include "Bridge/HotKeyCenter.h"
#include "Support/Localization.h"

#include <utility>

namespace kerlune {

namespace {

constexpr const char *kShownKey = "Super + Alt + V";

std::string textOf(HotKeys::Failure failure)
{
    switch (failure) {
    case HotKeys::Failure::Taken:
        return localized("Le raccourci %1 est déjà pris par un autre logiciel.", {kShownKey});
    case HotKeys::Failure::Refused:
        return localized("Le raccourci %1 n’a pas été autorisé.", {kShownKey});
    case HotKeys::Failure::Unavailable:
        break;
    }
    return localized("Cette session n’offre pas de raccourci global : %1 ne peut pas appliquer la police choisie.",
                     {kShownKey});
}

} // namespace

ApplyHotKey::ApplyHotKey(HotKeys &keys, AppState &state, Preferences &preferences)
    : m_state(state)
    , m_preferences(preferences)
    , m_observer(preferences.applyHotKeyEnabled.addNotifier([this] { follow(); }))
{
    HotKeyCenter::shared().use(&keys);
    follow();
}

ApplyHotKey::~ApplyHotKey()
{
    HotKeyCenter::shared().use(nullptr);
}

void ApplyHotKey::follow()
{
    HotKeyCenter &center = HotKeyCenter::shared();
    if (!m_preferences.applyHotKeyEnabled.value()) {
        center.unregister();
        return;
    }
    const auto apply = [&state = m_state] {
        if (state.activeRecord() != nullptr)
            state.applyCurrentToFrontmost();
    };
    center.registerKey(HotKeyCenter::kKeyCode, HotKeyCenter::kModifiers, apply,
                       [this](HotKeys::Failure failure) { tell(failure); });
}

void ApplyHotKey::tell(HotKeys::Failure failure)
{
    if (!std::exchange(m_hasTold, true))
        m_state.setNotice({textOf(failure), true});
}

} // namespace kerlune
