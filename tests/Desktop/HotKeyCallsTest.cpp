#include "Platform/HotKeyCalls.h"

#include <QCoreApplication>
#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace kerlune {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
} // namespace kerlune
