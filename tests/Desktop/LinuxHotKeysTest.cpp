#include "Platform/Linux/LinuxHotKeys.h"

#include "Events.h"
#include "MacKeyCodes.h"
#include "MessageBus.h"
#include "ShortcutsPortal.h"
#include "XClient.h"
#include "XServer.h"

#include <gmock/gmock.h>

namespace kerlune {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LinuxHotKeys, AreThoseOfTheSession)
{
    std::vector<std::uint32_t> pressed;
    std::vector<HotKeys::Failure> failures;
    const auto keys = [&] {
        auto made = std::make_unique<LinuxHotKeys>("description");
        made->registerKey(
            1, kMacV, kAltSuper, [&](std::uint32_t identifier) { pressed.push_back(identifier); },
            [&](HotKeys::Failure failure) { failures.push_back(failure); });
        return made;
    };
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");

    const auto none = keys();
    EXPECT_THAT(failures, IsEmpty());
    ASSERT_TRUE(waitUntil([&] { return !failures.empty(); }));
    EXPECT_THAT(std::exchange(failures, {}), ElementsAre(HotKeys::Failure::Unavailable));

    const MessageBus bus;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toLatin1());
    ShortcutsPortal portal(bus);
    portal.comeBack();
    {
        const auto ofPortal = keys();
        ASSERT_TRUE(waitUntil([&] { return portal.shortcuts().size() == 1; }));
        EXPECT_EQ(portal.shortcuts().front().description, "description");
        portal.activate(portal.shortcuts().front().session, portal.shortcuts().front().identifier);
        EXPECT_TRUE(waitUntil([&] { return !pressed.empty(); }));
        ofPortal->unregisterKey(1);
        EXPECT_TRUE(waitUntil([&] { return portal.closed().size() == 1; }));
    }

    const XServer server;
    const XClient user;
    const auto type = [&] { user.type({XClient::kAltLeft, XClient::kSuperLeft, XClient::kV}); };
    {
        pressed.clear();
        const auto ofServer = keys();
        type();
        EXPECT_TRUE(waitUntil([&] { return !pressed.empty(); }));
        EXPECT_EQ(portal.creations(), 1);
        ofServer->unregisterKey(1);
        EXPECT_TRUE(waitUntil([&] { return user.grab(user.keyCode(XClient::kV), 0x48); })); // Mod1 and Mod4
    }
    qputenv("WAYLAND_DISPLAY", "wayland-0");
    const auto ofWayland = keys();
    EXPECT_TRUE(waitUntil([&] { return portal.shortcuts().size() == 2; }));
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_THAT(failures, IsEmpty());
}

} // namespace
} // namespace kerlune
