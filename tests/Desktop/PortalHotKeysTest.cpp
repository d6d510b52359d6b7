#include "Platform/Linux/PortalHotKeys.h"

#include "Events.h"
#include "MacKeyCodes.h"
#include "MessageBus.h"
#include "ShortcutsPortal.h"
#include "Testing.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>

namespace kerlune {
namespace {

using Answers = ShortcutsPortal::Answers;
using Agreement = ShortcutsPortal::Agreement;
using Failure = HotKeys::Failure;

class PortalHotKeysTest : public testing::Test {
protected:
    PortalHotKeysTest() { m_portal.comeBack(); }

    void add(std::uint32_t identifier, std::uint32_t keyCode = kMacV, std::uint32_t modifiers = kAltSuper)
    {
        m_keys->registerKey(
            identifier, keyCode, modifiers, [this](std::uint32_t pressed) { m_pressed.push_back(pressed); },
            [this](Failure failure) { m_failures.push_back(failure); });
    }
    // The one that was asked for last, of so many.
    ShortcutsPortal::Shortcut shortcut(std::size_t count)
    {
        EXPECT_TRUE(waitUntil([&] { return m_portal.shortcuts().size() >= count; }));
        EXPECT_EQ(m_portal.shortcuts().size(), count);
        return m_portal.shortcuts().empty() ? ShortcutsPortal::Shortcut{} : m_portal.shortcuts().back();
    }
    std::vector<Failure> failures()
    {
        EXPECT_TRUE(waitUntil([this] { return !m_failures.empty(); }));
        settle();
        return std::exchange(m_failures, {});
    }
    std::vector<std::uint32_t> pressedBy(const std::string &session, const std::string &identifier)
    {
        m_portal.activate(session, identifier);
        settle();
        return std::exchange(m_pressed, {});
    }
    // Messages keep their order: the answer to this comes after all that either has sent before.
    void settle() { settle(m_client->connection()); }
    static void settle(QDBusConnection &program)
    {
        bool isAnswered = false;
        const QDBusPendingCallWatcher watcher(program.asyncCall(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Ask"))));
        QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &watcher, [&] { isAnswered = true; });
        EXPECT_TRUE(waitUntil([&] { return isAnswered; }));
        QCoreApplication::processEvents();
    }

    MessageBus m_bus;
    ShortcutsPortal m_portal{m_bus};
    std::unique_ptr<BusClient> m_client = std::make_unique<BusClient>(m_bus);
    std::unique_ptr<PortalHotKeys> m_keys =
        std::make_unique<PortalHotKeys>(m_client->connection(), "Appliquer la police sélectionnée");
    std::vector<std::uint32_t> m_pressed;
    std::vector<Failure> m_failures;
};

TEST_F(PortalHotKeysTest, BindsTheKeyAndHearsOfItHoweverThePortalAnswers)
{
    std::size_t count = 0;
    for (const auto answers :
         {Answers::AtOnce, Answers::BeforeReplying, Answers::UnderAnotherPath, Answers::WhenTheUserDecides}) {
        for (const auto agreement : {Agreement::ToWhatWasAsked, Agreement::WithoutSayingToWhat}) {
            m_portal.answers = answers;
            m_portal.agreement = agreement;
            add(7);
            if (answers == Answers::WhenTheUserDecides) {
                ASSERT_TRUE(waitUntil([&] { return m_portal.creations() == static_cast<int>(count) + 1; }));
                m_portal.answer();
            }
            const auto [session, identifier, description, trigger] = shortcut(++count);
            if (answers == Answers::WhenTheUserDecides)
                m_portal.answer();
            EXPECT_EQ(description, "Appliquer la police sélectionnée");
            EXPECT_EQ(trigger, "LOGO+ALT+v");
            EXPECT_THAT(pressedBy(session, identifier), ElementsAre(7));
            EXPECT_THAT(pressedBy(session, identifier + "0"), IsEmpty());
            EXPECT_THAT(pressedBy(session + "0", identifier), IsEmpty());
        }
    }
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(PortalHotKeysTest, WritesTriggersAsThePortalReadsThem)
{
    struct Case {
        std::uint32_t keyCode;
        std::uint32_t modifiers;
        const char *trigger;
    };
    std::size_t count = 0;
    for (const auto &[keyCode, modifiers, trigger] :
         {Case{kMacF5, HotKeys::kControl | HotKeys::kShift, "CTRL+SHIFT+F5"},
          Case{kMacOne, kAltSuper | HotKeys::kControl | HotKeys::kShift, "LOGO+CTRL+ALT+SHIFT+1"},
          Case{kMacSpace, 0, "space"}}) {
        add(1, keyCode, modifiers);
        EXPECT_EQ(shortcut(++count).trigger, trigger);
    }
    add(2, kMacReturn);
    EXPECT_THAT(m_failures, IsEmpty()); // it is told from the event loop
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    add(3, kMacV, 0x4000);
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    EXPECT_EQ(m_portal.creations(), static_cast<int>(count));
}

TEST_F(PortalHotKeysTest, TellsWhyThereIsNoKeyAndLeavesNoSession)
{
    std::size_t bound = 0;
    for (const unsigned code : {1U, 2U}) {
        m_portal.toCreating = code;
        add(1);
        EXPECT_THAT(failures(), ElementsAre(Failure::Refused));
        m_portal.toCreating = 0;
        m_portal.toBinding = code;
        add(1);
        EXPECT_THAT(failures(), ElementsAre(Failure::Refused));
        EXPECT_EQ(m_portal.closed().back(), shortcut(++bound).session);
        m_portal.toBinding = 0;
    }
    m_portal.agreement = Agreement::ToAnotherShortcut;
    add(1);
    EXPECT_THAT(failures(), ElementsAre(Failure::Refused));
    EXPECT_EQ(m_portal.closed().back(), shortcut(++bound).session);
    m_portal.agreement = Agreement::ToWhatWasAsked;

    for (const char *const handle : {"", "no path", "/org/freedesktop/portal/desktop/no path"}) {
        m_portal.sessionHandle = QString::fromLatin1(handle);
        add(1);
        EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable)) << handle;
    }
    m_portal.sessionHandle.reset();
    add(1);
    const auto last = shortcut(++bound);
    const auto closed = m_portal.closed();
    m_portal.closeSession(last.session);
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    EXPECT_EQ(m_portal.closed(), closed); // it is closed
    EXPECT_THAT(pressedBy(last.session, last.identifier), IsEmpty());

    m_portal.answers = Answers::WithAnError;
    add(1);
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    m_portal.leave();
    settle();
    add(1);
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    EXPECT_EQ(m_portal.shortcuts().size(), bound);
}

TEST_F(PortalHotKeysTest, UnregisteringClosesTheSession)
{
    add(1);
    const auto first = shortcut(1);
    add(1); // in its place
    const auto second = shortcut(2);
    EXPECT_NE(first.session, second.session);
    EXPECT_THAT(m_portal.closed(), Contains(first.session));
    EXPECT_THAT(pressedBy(first.session, first.identifier), IsEmpty());
    EXPECT_THAT(pressedBy(second.session, second.identifier), ElementsAre(1));
    add(2);
    const auto third = shortcut(3);
    m_portal.activate(second.session, second.identifier);
    m_keys->unregisterKey(1);
    EXPECT_THAT(pressedBy(second.session, second.identifier), IsEmpty());
    EXPECT_EQ(m_portal.closed().back(), second.session);
    EXPECT_THAT(pressedBy(third.session, third.identifier), ElementsAre(2));
    m_keys.reset();
    EXPECT_TRUE(waitUntil([&] { return m_portal.closed().back() == third.session; }));
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(PortalHotKeysTest, UnregisteringTakesTheQuestionBack)
{
    m_portal.answers = Answers::WhenTheUserDecides;
    add(1);
    ASSERT_TRUE(waitUntil([this] { return m_portal.creations() == 1; }));
    m_keys->unregisterKey(1);
    m_portal.answer(); // the session is there all the same
    ASSERT_TRUE(waitUntil([this] { return m_portal.closed().size() == 1; }));
    EXPECT_THAT(m_portal.closed().back(), HasSubstr("/session/"));
    EXPECT_THAT(m_portal.shortcuts(), IsEmpty());

    add(1);
    ASSERT_TRUE(waitUntil([this] { return m_portal.creations() == 2; }));
    m_portal.answer();
    const auto [session, identifier, description, trigger] = shortcut(1);
    m_keys->unregisterKey(1);
    ASSERT_TRUE(waitUntil([this] { return m_portal.closed().size() == 3; }));
    EXPECT_THAT(m_portal.closed()[1], HasSubstr("/request/"));
    EXPECT_EQ(m_portal.closed()[2], session);
    m_portal.answer();
    EXPECT_THAT(pressedBy(session, identifier), IsEmpty());
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(PortalHotKeysTest, APortalThatStartsAnewIsAskedAgain)
{
    add(1);
    const auto first = shortcut(1);
    m_portal.leave();
    m_portal.comeBack();
    const auto second = shortcut(2);
    EXPECT_NE(second.session, first.session);
    EXPECT_EQ(second.trigger, first.trigger);
    EXPECT_THAT(pressedBy(first.session, first.identifier), IsEmpty());
    EXPECT_THAT(pressedBy(second.session, second.identifier), ElementsAre(1));

    m_portal.leave();
    settle();
    add(2); // there is none now
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
    m_keys->unregisterKey(1);
    m_portal.comeBack();
    add(3);
    EXPECT_EQ(shortcut(3).identifier, "3"); // and no other

    ShortcutsPortal newer(m_bus);
    newer.replaceOther();
    ASSERT_TRUE(waitUntil([&] { return newer.shortcuts().size() == 1; }));
    EXPECT_EQ(newer.shortcuts().front().identifier, "3");
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(PortalHotKeysTest, APortalThatDiesWhileItIsAskedIsAskedAgain)
{
    m_portal.leave();
    auto dying = std::make_unique<ShortcutsPortal>(m_bus);
    dying->comeBack();
    dying->answers = Answers::Never;
    settle();
    add(1);
    ASSERT_TRUE(waitUntil([&] { return dying->creations() == 1; }));
    dying.reset();
    m_portal.comeBack();
    const auto [session, identifier, description, trigger] = shortcut(1);
    EXPECT_THAT(pressedBy(session, identifier), ElementsAre(1));
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(PortalHotKeysTest, OnlyAQuestionStartsAPortalAndThatIsAskedOnce)
{
    const MessageBus bus("org.freedesktop.portal.Desktop");
    BusClient client(bus);
    PortalHotKeys keys(client.connection(), "description");
    keys.registerKey(1, kMacV, kAltSuper, {}, [](Failure) { FAIL(); });
    const QDBusReply<QStringList> names = client.connection().interface()->activatableServiceNames();
    ASSERT_THAT(names.value(), Contains(QStringLiteral("org.freedesktop.portal.Desktop")));
    ShortcutsPortal portal(bus);
    portal.comeBack();
    ASSERT_TRUE(waitUntil([&] { return !portal.shortcuts().empty(); }));
    EXPECT_EQ(portal.creations(), 1);
    EXPECT_EQ(portal.shortcuts().size(), 1U);
    portal.leave();
    keys.unregisterKey(1); // before it hears of that
    EXPECT_TRUE(client.connection().interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus")));
    portal.comeBack();
    settle(client.connection());
    EXPECT_THAT(portal.closed(), IsEmpty()); // nor was one started to be told
}

TEST_F(PortalHotKeysTest, WithoutItsBusEveryKeyIsUnavailableOnce)
{
    add(1);
    add(2);
    shortcut(2);
    m_bus.end();
    EXPECT_TRUE(waitUntil([this] { return m_failures.size() == 2; }));
    EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable, Failure::Unavailable));
    for (int round = 0; round < 2; ++round) {
        add(1);
        EXPECT_THAT(failures(), ElementsAre(Failure::Unavailable));
        m_keys = std::make_unique<PortalHotKeys>(m_client->connection(), "too late");
    }
}

TEST_F(PortalHotKeysTest, WhatIsCalledMayEndIt)
{
    bool isPressed = false;
    m_keys->registerKey(
        1, kMacV, kAltSuper,
        [&](std::uint32_t) {
            m_keys.reset();
            isPressed = true;
        },
        [](Failure) { FAIL(); });
    const auto [session, identifier, description, trigger] = shortcut(1);
    m_portal.activate(session, identifier);
    m_portal.activate(session, identifier);
    EXPECT_TRUE(waitUntil([&] { return isPressed; }));
    EXPECT_TRUE(waitUntil([&] { return m_portal.closed().size() == 1; }));
}

} // namespace
} // namespace kerlune
