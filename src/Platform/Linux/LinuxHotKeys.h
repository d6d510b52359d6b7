#pragma once

#include "Platform/HotKeys.h"

#include <memory>
#include <string>

namespace kerlune {

// The hot keys of the session that this program runs in: those of the portal under Wayland; elsewhere those of the X
// server, or of the portal where there is none. Without both every key is Unavailable. The session is asked when the
// first key is registered.
//
// Thread: main.
class LinuxHotKeys final : public HotKeys {
public:
    // The description says to the user what the keys are for, in the user's language; the portal shows it.
    explicit LinuxHotKeys(std::string description);
    ~LinuxHotKeys() override;

    void registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers, Pressed pressed,
                     Failed failed) override;
    void unregisterKey(std::uint32_t identifier) override;

private:
    std::string m_description;
    std::unique_ptr<HotKeys> m_ofSession;
};

} // namespace kerlune
