#include "Platform/Linux/LinuxHotKeys.h"

#include "Platform/HotKeyCalls.h"
#include "Platform/Linux/PortalHotKeys.h"
#include "Platform/Linux/X11HotKeys.h"

#include <QDBusConnection>

#include <utility>

namespace kerlune {

namespace {

// For sessions that offer no such keys.
class NoHotKeys final : public HotKeys {
public:
    void registerKey(std::uint32_t identifier, std::uint32_t, std::uint32_t, Pressed pressed, Failed failed) override
    {
        m_calls.add(identifier, std::move(pressed), std::move(failed));
        m_calls.fail(identifier, Failure::Unavailable);
    }
    void unregisterKey(std::uint32_t identifier) override { m_calls.remove(identifier); }

private:
    HotKeyCalls m_calls;
};

std::unique_ptr<HotKeys> hotKeysOfSession(const std::string &description)
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        if (auto ofServer = X11HotKeys::create())
            return ofServer;
    }
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return std::make_unique<NoHotKeys>(); // a bus would be started, or waited for
    return std::make_unique<PortalHotKeys>(QDBusConnection::sessionBus(), description);
}

} // namespace

LinuxHotKeys::LinuxHotKeys(std::string description)
    : m_description(std::move(description))
{}

LinuxHotKeys::~LinuxHotKeys() = default;

void LinuxHotKeys::registerKey(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers,
                               Pressed pressed, Failed failed)
{
    if (!m_ofSession)
        m_ofSession = hotKeysOfSession(m_description);
    m_ofSession->registerKey(identifier, keyCode, modifiers, std::move(pressed), std::move(failed));
}

void LinuxHotKeys::unregisterKey(std::uint32_t identifier)
{
    if (m_ofSession)
        m_ofSession->unregisterKey(identifier);
}

} // namespace kerlune
