#include "State/LoadedLibrary.h"

#include "Support/Text.h"

#include <gmock/gmock.h>

namespace kerlune {
namespace {

using testing::ElementsAre;

FontRecordPointer record(const std::string &postScriptName, const std::string &family)
{
    FontRecord record;
    record.postScriptName = postScriptName;
    record.family = family;
    return std::make_shared<const FontRecord>(record);
}

TEST(LoadedLibrary, FindsFamiliesAndRecordsByName)
{
    auto made = makeLibrary({record("B1", "Police 10"), record("A1", "Police 9"), record("B2", "Police 10")});
    const LoadedLibrary library = std::move(made); // what the keys look at moves with it
    ASSERT_EQ(library.families.size(), 2U);
    EXPECT_EQ(library.families[0]->name, "Police 9");
    EXPECT_EQ(library.familyByName.at("Police 10"), library.families[1]);
    EXPECT_THAT(library.families[1]->faces, ElementsAre(library.records[0], library.records[2]));
    EXPECT_EQ(library.recordByPostScriptName.at("A1"), library.records[1]);
    EXPECT_THAT(library.searchIndex.positions(folded("POLICE 1")), ElementsAre(1U));

    const LoadedLibrary none = makeLibrary({});
    EXPECT_TRUE(none.familyByName.empty());
    EXPECT_TRUE(none.searchIndex.positions("").empty());
}

} // namespace
} // namespace kerlune
