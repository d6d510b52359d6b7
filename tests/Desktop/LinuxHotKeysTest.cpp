#include "Platform/Linux/LinuxHotKeys.h"

#include "Events.h"
#include "MacKeyCodes.h"
#include "MessageBus.h"
#include "Platform/HotKeyCalls.h"
#include "ShortcutsPortal.h"
#include "Testing.h"
#include "XClient.h"
#include "XServer.h"

namespace kerlune {
namespace {

TEST(HotKeyCalls, ComeFromTheEventLoopAndForTheKeyThatTheyWereMadeFor)
{
    std::vector<std::string> told;
    std::optional<HotKeyCalls> calls(std::in_place);
    const auto add = [&](const std::string &name) {
        calls->add(
            1, [&told, name](std::uint32_t) { told.push_back(name); },
            [&told, name](HotKeys::Failure) { told.push_back("no " + name); });
    };
    const auto toldNow = [&] {
        QCoreApplication::processEvents();
        return std::exchange(told, {});
    };
    add("first");
    calls->press(1);
    calls->fail(1, HotKeys::Failure::Taken);
    add("second"); // what the first was to hear is nothing to it
    EXPECT_THAT(toldNow(), IsEmpty());
    calls->press(1);
    calls->press(2);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(toldNow(), ElementsAre("second"));
    calls->fail(1, HotKeys::Failure::Taken);
    calls->press(1);
    calls->fail(1, HotKeys::Failure::Taken);
    EXPECT_THAT(toldNow(), ElementsAre("no second"));
    add("third");
    calls->press(1);
    calls->remove(1);
    EXPECT_THAT(toldNow(), IsEmpty());
    add("fourth");
    calls->press(1);
    calls.reset();
    EXPECT_THAT(toldNow(), IsEmpty());
}

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
