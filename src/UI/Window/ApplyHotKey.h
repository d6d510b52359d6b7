#pragma once

#include "Platform/HotKeys.h"
#include "State/AppState.h"
#include "State/Preferences.h"

#include <QProperty>

namespace kerlune {

// The keyboard shortcut that applies the selected font while another program is in front, as long as the settings want
// it. Where there can be none, one notice says why.
//
// Thread: main.
class ApplyHotKey final {
public:
    // These must outlive it.
    ApplyHotKey(HotKeys &keys, AppState &state, Preferences &preferences);
    ~ApplyHotKey();
    ApplyHotKey(const ApplyHotKey &) = delete;
    ApplyHotKey &operator=(const ApplyHotKey &) = delete;

private:
    void follow();
    void tell(HotKeys::Failure failure);

    AppState &m_state;
    Preferences &m_preferences;
    bool m_hasTold = false;
    QPropertyNotifier m_observer;
};

} // namespace kerlune
