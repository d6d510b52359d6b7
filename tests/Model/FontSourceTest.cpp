#include "Model/FontSource.h"

#include "FixedCatalog.h"
#include "Platform/Font.h"
#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

FontRecord recordNamed(const std::string &postScriptName)
{
    FontRecord record;
    record.postScriptName = postScriptName;
    return record;
}

TEST(FontSource, OpensTheFaceThatCarriesItsRecordsName)
{
    const FixedCatalog catalog({testFont("italic.ttf"), testFont("plain.ttf")});
    const FontSource source("1", "F", "S", recordNamed("essaiPLAIN-regular"), std::nullopt);
    EXPECT_TRUE(source.isInstalled());
    const auto font = source.font(12, catalog);
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->face().postScriptName(), "EssaiPlain-Regular");
    EXPECT_EQ(font->size(), 12);
    EXPECT_EQ(source.previewFont(catalog)->size(), 25);
    EXPECT_EQ(source.previewFont(FixedCatalog()), nullptr); // not on offer: nothing stands in for it
}

TEST(FontSource, PrefersItsDescriptor)
{
    const FixedCatalog catalog({testFont("plain.ttf")});
    const FontDescriptor elsewhere{testFont("italic.ttf"), 0, 0, "Any"};
    const FontSource source("1", "F", "S", recordNamed("EssaiPlain-Regular"), elsewhere);
    EXPECT_EQ(source.font(12, catalog)->face().postScriptName(), "EssaiItalic-Regular");

    const FontSource gone("2", "F", "S", std::nullopt, FontDescriptor{"/nowhere.ttf", 0, 0, "Any"});
    EXPECT_FALSE(gone.isInstalled());
    EXPECT_EQ(gone.font(12, catalog), nullptr);
    EXPECT_EQ(FontSource("3", "F", "S", std::nullopt, std::nullopt).font(12, catalog), nullptr);
}

} // namespace
} // namespace kerlune
