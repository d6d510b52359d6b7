#include "Bridge/HotKeyCenter.h"

#include "MadeHotKeys.h"
#include "Testing.h"

#include <QCoreApplication>

#include <string>
#include <vector>

namespace kerlune {
namespace {

TEST(HotKeyCenter, HoldsOneKeyWithTheLastAction)
{
    MadeHotKeys keys;
    HotKeyCenter center;
    std::vector<std::string> runs;
    const auto run = [&runs](const char *name) { return [&runs, name] { runs.emplace_back(name); }; };
    center.registerKey(9, 0x900, run("too early"));
    center.use(&keys);
    center.registerKey(9, 0x900, run("first"));
    center.registerKey(HotKeyCenter::kKeyCode, HotKeyCenter::kModifiers, run("second"));
    ASSERT_THAT(keys.keys, SizeIs(1));
    const MadeHotKeys::Key key = keys.keys.at(1);
    EXPECT_EQ(key.keyCode, 9U);
    EXPECT_EQ(key.modifiers, 0x900U);

    key.pressed(2); // none of ours
    key.pressed(1);
    EXPECT_THAT(runs, IsEmpty()) << "never from within the key's own event";
    QCoreApplication::processEvents();
    EXPECT_THAT(runs, ElementsAre("second"));

    key.pressed(1);
    center.unregister();
    QCoreApplication::processEvents();
    EXPECT_THAT(runs, SizeIs(1)) << "what is registered no more is not run";
    EXPECT_THAT(keys.keys, IsEmpty());

    center.registerKey(9, 0x900, run("third"));
    center.use(nullptr);
    EXPECT_THAT(keys.keys, IsEmpty());
    EXPECT_EQ(keys.registrations, 3);
}

} // namespace
} // namespace kerlune
