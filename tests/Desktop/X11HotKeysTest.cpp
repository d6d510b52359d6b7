#include "Platform/Linux/X11HotKeys.h"

#include "Events.h"
#include "MacKeyCodes.h"
#include "Testing.h"
#include "XClient.h"
#include "XServer.h"

#include <csignal>

namespace kerlune {
namespace {

using namespace std::string_view_literals;
using enum XClient::Key;
using Failure = HotKeys::Failure;
using Chord = std::vector<std::uint32_t>;

// The modifiers of the X server's own keyboard
constexpr std::uint16_t kLockMask = 2;
constexpr std::uint16_t kAltMask = 8;
constexpr std::uint16_t kNumMask = 16;
constexpr std::uint16_t kSuperMask = 64;
constexpr int kMod1 = 3;
constexpr int kMod3 = 5;
constexpr int kMod5 = 7;

class X11HotKeysTest : public testing::Test {
protected:
    X11HotKeysTest() { add(kLast, kMacF5, HotKeys::kControl); }

    void add(std::uint32_t identifier, std::uint32_t keyCode, std::uint32_t modifiers)
    {
        m_keys->registerKey(
            identifier, keyCode, modifiers, [this](std::uint32_t pressed) { m_pressed.push_back(pressed); },
            [this](Failure failure) { m_failures.push_back(failure); });
    }
    // What was pressed since the last time. The server keeps the order: whatever came before this one has arrived.
    std::vector<std::uint32_t> pressed()
    {
        m_user.type({kControlLeft, kF5});
        EXPECT_TRUE(waitUntil([this] { return !m_pressed.empty() && m_pressed.back() == kLast; }));
        auto all = std::exchange(m_pressed, {});
        if (!all.empty())
            all.pop_back();
        return all;
    }
    std::vector<std::uint32_t> pressedBy(const Chord &chord)
    {
        m_user.type(chord);
        return pressed();
    }
    std::vector<Failure> failures(std::size_t count)
    {
        EXPECT_TRUE(waitUntil([&] { return m_failures.size() >= count; }));
        QCoreApplication::processEvents();
        return std::exchange(m_failures, {});
    }
    bool isTaken(std::uint8_t keyCode, std::uint16_t modifiers) const
    {
        if (!m_user.grab(keyCode, modifiers))
            return true;
        m_user.ungrab(keyCode, modifiers);
        return false;
    }

    // What is released is free when the server has come to it.
    bool becomesFree(std::uint8_t keyCode, int modifiers) const
    {
        return waitUntil([&] { return !isTaken(keyCode, static_cast<std::uint16_t>(modifiers)); });
    }

    static constexpr std::uint32_t kLast = 99;
    XServer m_server;
    XClient m_user;
    const std::uint8_t m_codeOfV = m_user.keyCode(kV);
    std::unique_ptr<X11HotKeys> m_keys = X11HotKeys::create();
    std::vector<std::uint32_t> m_pressed;
    std::vector<Failure> m_failures;
};

TEST_F(X11HotKeysTest, ComesToTheProgramWhateverHasTheFocusAndWhateverLocksAreOn)
{
    add(1, kMacV, kAltSuper);
    add(2, kMacM, HotKeys::kControl | HotKeys::kShift);
    add(3, kMacB, 0);
    m_user.setModifierKeys(kMod3, {kScrollLock});
    ASSERT_TRUE(waitUntil([this] { return isTaken(m_codeOfV, kAltMask | kSuperMask | (1 << kMod3)); }));
    const std::uint32_t other = m_user.window("other\0Other\0"sv);
    m_user.focus(other);
    const std::vector<Chord> locks{{}, {kCapsLock}, {kNumLock}, {kScrollLock}, {kCapsLock}};
    for (const Chord &lock : locks) {
        m_user.type(lock); // on top of the former ones; the last goes out
        EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));
        EXPECT_THAT(pressedBy({kSuperLeft, kAltLeft, kV}), ElementsAre(1));
        EXPECT_THAT(pressedBy({kShiftLeft, kControlLeft, kM}), ElementsAre(2));
        EXPECT_THAT(pressedBy({kB}), ElementsAre(3));
        for (const Chord &none :
             {Chord{kV}, Chord{kAltLeft, kV}, Chord{kSuperLeft, kV}, Chord{kAltLeft, kSuperLeft, kX},
              Chord{kControlLeft, kAltLeft, kSuperLeft, kV}, Chord{kControlLeft, kM}, Chord{kShiftLeft, kB}})
            EXPECT_THAT(pressedBy(none), IsEmpty());
        EXPECT_EQ(m_user.focused(), other);
    }
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(X11HotKeysTest, AKeyThatIsHeldIsPressedOnce)
{
    add(1, kMacV, kAltSuper);
    KeyPressCount delivered;
    for (int round = 1; round <= 2; ++round) {
        m_user.press(kAltLeft);
        m_user.press(kSuperLeft);
        m_user.press(kV);
        const int before = delivered.read();
        ASSERT_TRUE(waitUntil([&] { return delivered.read() >= before + 4; })); // the server repeats it
        m_user.release(kSuperLeft);
        m_user.release(kAltLeft);
        m_user.release(kV);
        EXPECT_THAT(pressed(), ElementsAre(1)) << round;
    }
}

TEST_F(X11HotKeysTest, AnotherProgramsKeyIsTakenAndNothingOfItIsGrabbed)
{
    constexpr std::uint16_t both = kAltMask | kSuperMask;
    ASSERT_TRUE(m_user.grab(m_codeOfV, both | kNumMask)); // one of those that are needed
    add(1, kMacV, kAltSuper);
    EXPECT_THAT(m_failures, IsEmpty()); // it is told from the event loop
    EXPECT_THAT(failures(1), ElementsAre(Failure::Taken));
    for (const int locks : {0, +kLockMask, kLockMask | kNumMask})
        EXPECT_TRUE(becomesFree(m_codeOfV, both | locks)) << locks;
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), IsEmpty());

    m_user.ungrab(m_codeOfV, both | kNumMask);
    add(1, kMacV, kAltSuper);
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));
    m_keys->unregisterKey(1);
    for (const int locks : {0, +kLockMask, +kNumMask, kLockMask | kNumMask})
        EXPECT_TRUE(becomesFree(m_codeOfV, both | locks)) << locks;
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(X11HotKeysTest, AnIdentifierHasOneKeyAndTwoMayShareOne)
{
    add(1, kMacV, kAltSuper);
    add(1, kMacB, kAltSuper);
    EXPECT_TRUE(becomesFree(m_codeOfV, kAltMask | kSuperMask));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), ElementsAre(1));
    add(2, kMacB, kAltSuper);
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), ElementsAre(1, 2));
    m_keys->unregisterKey(1);
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), ElementsAre(2));
    int others = 0;
    m_keys->registerKey(
        2, kMacB, kAltSuper, [&](std::uint32_t) { ++others; }, [](Failure) { FAIL(); });
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), IsEmpty());
    EXPECT_EQ(others, 1);
}

TEST_F(X11HotKeysTest, WhatTheKeyboardDoesNotHaveIsUnavailable)
{
    m_user.setSymbols(m_codeOfV, {kX});
    add(1, kMacV, kAltSuper);
    add(2, kMacReturn, kAltSuper);
    add(3, kMacB, 0x4000);
    add(4, kMacB, kAltSuper);
    EXPECT_THAT(failures(3), ElementsAre(Failure::Unavailable, Failure::Unavailable, Failure::Unavailable));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), ElementsAre(4));
    m_user.setModifierKeys(kMod1, {});
    add(4, kMacB, kAltSuper);
    EXPECT_THAT(failures(1), ElementsAre(Failure::Unavailable));
    add(2, kMacReturn, kAltSuper);
    m_keys->unregisterKey(2); // before it is told
    EXPECT_THAT(pressed(), IsEmpty());
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(X11HotKeysTest, FollowsTheKeyboard)
{
    constexpr std::uint16_t both = kAltMask | kSuperMask;
    const std::uint8_t codeOfB = m_user.keyCode(kB);
    const std::uint8_t codeOfX = m_user.keyCode(kX);
    add(1, kMacV, kAltSuper);
    add(2, kMacB, kAltSuper);

    m_user.setSymbols(m_codeOfV, {kB, 'B'}); // the two exchange their places
    m_user.setSymbols(codeOfB, {kV, 'V'});
    m_user.setSymbols(codeOfX, {kX, 'X', kV, 'V'}); // group 2
    ASSERT_TRUE(waitUntil([&] { return isTaken(codeOfX, both); }));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kB}), ElementsAre(2));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kX}), ElementsAre(1)); // the same key
    m_user.setSymbols(codeOfX, {kX, 'X'});
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));
    ASSERT_TRUE(becomesFree(codeOfX, both));

    m_user.setSymbols(codeOfB, {kM}); // there is no V for a while
    ASSERT_TRUE(becomesFree(codeOfB, both));
    m_user.setSymbols(codeOfB, {kM, kV}); // only with Shift
    ASSERT_TRUE(waitUntil([&] { return isTaken(codeOfB, both); }));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));

    m_user.setModifierKeys(kMod1, {}); // other modifiers
    m_user.setModifierKeys(kMod3, {kAltLeft});
    m_user.setModifierKeys(kMod5, {kScrollLock});
    ASSERT_TRUE(waitUntil([&] { return isTaken(codeOfB, (1 << kMod3) | kSuperMask | (1 << kMod5)); }));
    EXPECT_TRUE(becomesFree(codeOfB, both));
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));
    m_user.type({kScrollLock});
    EXPECT_THAT(pressedBy({kAltLeft, kSuperLeft, kV}), ElementsAre(1));
    EXPECT_THAT(m_failures, IsEmpty());
}

TEST_F(X11HotKeysTest, AKeyThatAnotherKeyboardPutsOnAnotherProgramsIsTaken)
{
    add(1, kMacV, kAltSuper);
    const std::uint8_t codeOfX = m_user.keyCode(kX);
    ASSERT_TRUE(m_user.grab(codeOfX, kAltMask | kSuperMask));
    m_user.setSymbols(m_codeOfV, {kX});
    m_user.setSymbols(codeOfX, {kV});
    EXPECT_THAT(failures(1), ElementsAre(Failure::Taken));
}

TEST_F(X11HotKeysTest, WhatIsCalledMayEndIt)
{
    bool isPressed = false;
    m_keys->registerKey(
        1, kMacV, kAltSuper,
        [&](std::uint32_t) {
            m_keys.reset();
            isPressed = true;
        },
        [](Failure) { FAIL(); });
    add(2, kMacV, kAltSuper); // is told of the same press, but later
    m_user.type({kAltLeft, kSuperLeft, kV});
    EXPECT_TRUE(waitUntil([&] { return isPressed; }));
    QCoreApplication::processEvents();
    EXPECT_THAT(m_pressed, IsEmpty());
    EXPECT_TRUE(becomesFree(m_codeOfV, kAltMask | kSuperMask));
}

TEST_F(X11HotKeysTest, WithoutItsServerEveryKeyIsUnavailableOnce)
{
    std::signal(SIGPIPE, SIG_DFL);
    auto atOnce = X11HotKeys::create();
    int told = 0;
    add(1, kMacV, kAltSuper);
    m_server.end();
    atOnce->registerKey( // the event loop has not heard of it yet
        1, kMacV, kAltSuper, {}, [&](Failure failure) { told += failure == Failure::Unavailable ? 1 : 100; });
    EXPECT_THAT(failures(2), ElementsAre(Failure::Unavailable, Failure::Unavailable));
    EXPECT_TRUE(waitUntil([&] { return told == 1; }));
    add(2, kMacB, kAltSuper);
    EXPECT_THAT(failures(1), ElementsAre(Failure::Unavailable));
    m_keys->unregisterKey(2);
    EXPECT_TRUE(comesToRest());
    EXPECT_EQ(X11HotKeys::create(), nullptr);
}

} // namespace
} // namespace kerlune
