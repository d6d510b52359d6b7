#include "Platform/Linux/X11FrontApplication.h"

#include "Events.h"
#include "Platform/Linux/LinuxFrontApplication.h"
#include "Testing.h"
#include "XClient.h"
#include "XServer.h"

#include <ostream>

namespace kerlune {

void PrintTo(const FrontApplication::Program &program, std::ostream *out)
{
    *out << program.instance << "/" << program.windowClass;
}

namespace {

using namespace std::string_view_literals;
using Program = FrontApplication::Program;

constexpr auto kEditorNames = "photo editor\0PhotoEditor\0"sv;
constexpr auto kMailNames = "mail\0Mail\0"sv;
const Program kNone;
const Program kEditor{"photo editor", "PhotoEditor"};
const Program kMail{"mail", "Mail"};

class X11FrontApplicationTest : public testing::Test {
protected:
    void bringToFront(std::uint32_t window) { m_manager.setAtRoot("_NET_ACTIVE_WINDOW", {window}); }
    void observe()
    {
        m_front->observe([this](const Program &program) { m_told.push_back(program); });
    }
    // What the observer was told until this program came to the front.
    std::vector<Program> toldUntil(const Program &last)
    {
        EXPECT_TRUE(waitUntil([&] { return !m_told.empty() && m_told.back() == last; }));
        return std::exchange(m_told, {});
    }

    XServer m_server;
    XClient m_manager; // sets what a window manager sets
    std::unique_ptr<FrontApplication> m_front = X11FrontApplication::create();
    std::vector<Program> m_told;
};

TEST_F(X11FrontApplicationTest, ReadsTheNamesThatWindowsBear)
{
    const std::vector<std::pair<std::string_view, Program>> cases{
        {kEditorNames, kEditor},
        {"mail\0Mail"sv, kMail},
        {"alone"sv, {"alone", ""}},
        {"alone\0"sv, {"alone", ""}},
        {"\0Alone\0"sv, {"", "Alone"}},
        {"a\0B\0more\0"sv, {"a", "B"}},
        {"\xe9t\xe9\0\xc3\x89t\xc3\xa9\0"sv, {"été", "Été"}}, // Latin-1, UTF-8
        {"\0\0"sv, kNone},
    };
    for (const auto &[bytes, program] : cases) {
        bringToFront(m_manager.window(bytes));
        EXPECT_EQ(m_front->current(), program);
    }
    const std::uint32_t window = m_manager.window();
    bringToFront(window);
    m_manager.setText(window, "WM_CLASS", kMailNames, "UTF8_STRING");
    EXPECT_EQ(m_front->current(), kMail);
    m_manager.setText(window, "WM_CLASS", kMailNames, "ATOM");
    EXPECT_EQ(m_front->current(), kNone);
    m_manager.setWindows(window, "WM_CLASS", {window});
    EXPECT_EQ(m_front->current(), kNone);
    m_manager.setText(m_manager.root(), "_NET_ACTIVE_WINDOW", "bytes!!!");
    EXPECT_EQ(m_front->current(), kNone);
}

TEST_F(X11FrontApplicationTest, TellsWhenAnotherProgramComesToTheFront)
{
    const std::uint32_t editor = m_manager.window(kEditorNames);
    const std::uint32_t secondOfEditor = m_manager.window(kEditorNames);
    const std::uint32_t mail = m_manager.window(kMailNames);
    observe();
    bringToFront(editor);
    EXPECT_THAT(toldUntil(kEditor), ElementsAre(kEditor));
    bringToFront(secondOfEditor);
    QCoreApplication::processEvents();
    bringToFront(mail);
    EXPECT_THAT(toldUntil(kMail), ElementsAre(kMail));
    bringToFront(0);
    EXPECT_THAT(toldUntil(kNone), ElementsAre(kNone));
    bringToFront(mail);
    EXPECT_THAT(toldUntil(kMail), ElementsAre(kMail));
    m_manager.removeAtRoot("_NET_ACTIVE_WINDOW"); // the window manager ends
    EXPECT_THAT(toldUntil(kNone), ElementsAre(kNone));
    EXPECT_EQ(m_front->current(), kNone);

    std::vector<Program> second;
    m_front->observe([&](const Program &program) { second.push_back(program); });
    bringToFront(editor);
    EXPECT_TRUE(waitUntil([&] { return !second.empty(); }));
    EXPECT_THAT(second, ElementsAre(kEditor));
    EXPECT_THAT(m_told, IsEmpty());
}

TEST_F(X11FrontApplicationTest, AWindowWithoutNamesGoesByTheOneThatItBelongsTo)
{
    const std::uint32_t editor = m_manager.window(kEditorNames);
    const std::uint32_t dialog = m_manager.window();
    m_manager.setWindows(dialog, "WM_TRANSIENT_FOR", {editor});
    const std::uint32_t second = m_manager.window();
    m_manager.setWindows(second, "WM_TRANSIENT_FOR", {dialog});
    const std::uint32_t ofGroup = m_manager.window();
    m_manager.setWindows(ofGroup, "WM_TRANSIENT_FOR", {m_manager.root()});
    m_manager.setWindows(ofGroup, "WM_CLIENT_LEADER", {editor});
    const std::uint32_t frame = m_manager.window();
    m_manager.window(kMailNames, frame); // a button of the frame
    m_manager.setWindows(m_manager.window(kEditorNames, frame), "WM_STATE", {1, 0});
    for (const std::uint32_t window : {dialog, second, ofGroup, frame}) {
        bringToFront(window);
        EXPECT_EQ(m_front->current(), kEditor);
    }
    bringToFront(m_manager.root()); // which is no frame
    m_manager.setWindows(editor, "WM_STATE", {1, 0});
    EXPECT_EQ(m_front->current(), kNone);
    m_manager.setText(dialog, "WM_CLASS", kMailNames);
    bringToFront(dialog);
    EXPECT_EQ(m_front->current(), kMail); // its own come first

    const std::uint32_t one = m_manager.window();
    const std::uint32_t other = m_manager.window();
    for (const char *const property : {"WM_TRANSIENT_FOR", "WM_CLIENT_LEADER"}) {
        m_manager.setWindows(one, property, {other});
        m_manager.setWindows(other, property, {one});
    }
    bringToFront(one);
    EXPECT_EQ(m_front->current(), kNone);
}

TEST_F(X11FrontApplicationTest, AWindowThatHasGoneIsNobodys)
{
    const std::uint32_t editor = m_manager.window(kEditorNames);
    const std::uint32_t mail = m_manager.window(kMailNames);
    observe();
    bringToFront(editor);
    toldUntil(kEditor);
    bringToFront(mail);
    m_manager.destroy(mail); // between the notice and the look at it
    EXPECT_THAT(toldUntil(kNone), ElementsAre(kNone));
    bringToFront(editor);
    EXPECT_THAT(toldUntil(kEditor), ElementsAre(kEditor));
    m_manager.destroy(editor);
    EXPECT_EQ(m_front->current(), kNone);
    bringToFront(0x7fffffff); // never was one
    EXPECT_THAT(toldUntil(kNone), ElementsAre(kNone));
}

TEST_F(X11FrontApplicationTest, HearsOfNamesThatComeLate)
{
    const std::uint32_t window = m_manager.window();
    observe();
    bringToFront(window);
    EXPECT_EQ(m_front->current(), kNone);
    QCoreApplication::processEvents();
    m_manager.setText(window, "WM_CLASS", kMailNames);
    EXPECT_THAT(toldUntil(kMail), ElementsAre(kMail));
}

TEST_F(X11FrontApplicationTest, ListsEachProgramOnceTheTopmostFirst)
{
    EXPECT_THAT(m_front->programs(), IsEmpty());
    const std::uint32_t editor = m_manager.window(kEditorNames);
    const std::uint32_t mail = m_manager.window(kMailNames);
    const std::uint32_t gone = m_manager.window("gone\0Gone\0"sv);
    const std::uint32_t nameless = m_manager.window();
    const std::uint32_t dialog = m_manager.window();
    m_manager.setWindows(dialog, "WM_TRANSIENT_FOR", {editor});
    m_manager.destroy(gone);
    m_manager.setAtRoot("_NET_CLIENT_LIST", {mail, nameless, editor, dialog, gone});
    EXPECT_THAT(m_front->programs(), ElementsAre(kEditor, kMail));
    m_manager.setAtRoot("_NET_CLIENT_LIST_STACKING", {editor, mail, dialog, nameless, gone, mail});
    EXPECT_THAT(m_front->programs(), ElementsAre(kMail, kEditor));
    std::vector<std::uint32_t> many(20'000, editor);
    many.back() = mail;
    m_manager.setAtRoot("_NET_CLIENT_LIST_STACKING", many);
    EXPECT_THAT(m_front->programs(), ElementsAre(kMail, kEditor));
}

TEST_F(X11FrontApplicationTest, WithoutItsServerNoneIsInFrontAnyMore)
{
    bringToFront(m_manager.window(kEditorNames));
    observe();
    toldUntil(kEditor);
    m_server.end();
    EXPECT_THAT(toldUntil(kNone), ElementsAre(kNone));
    EXPECT_EQ(m_front->current(), kNone);
    EXPECT_THAT(m_front->programs(), IsEmpty());
    EXPECT_TRUE(comesToRest());
    EXPECT_THAT(m_told, IsEmpty());
    EXPECT_EQ(X11FrontApplication::create(), nullptr);
    EXPECT_EQ(linuxFrontApplication()->current(), kNone); // that of a session without such a server
}

TEST_F(X11FrontApplicationTest, WhatIsCalledMayEndIt)
{
    m_front = linuxFrontApplication();
    m_front->observe([this](const Program &program) {
        m_front.reset();
        m_told.push_back(program);
    });
    bringToFront(m_manager.window(kEditorNames));
    EXPECT_THAT(toldUntil(kEditor), ElementsAre(kEditor));
    bringToFront(m_manager.window(kMailNames));
    QCoreApplication::processEvents();
    EXPECT_THAT(m_told, IsEmpty());
}

} // namespace
} // namespace kerlune
