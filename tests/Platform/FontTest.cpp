#include "Platform/Font.h"

#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

std::unique_ptr<Font> openFont(const std::string &path, double size, std::uint32_t instanceIndex = 0)
{
    auto font = Font::create(openFace(path, 0, instanceIndex), size);
    if (!font)
        throw std::runtime_error(describe(font.error()));
    return *std::move(font);
}

TEST(Font, DrawsWithTheOriginAtTheBottomLeft)
{
    // The I of this font is a bar of 100 × 700 units.
    const auto font = openFont(testFont("i-sans.ttf"), 100);
    const auto box = font->boundingBox(font->glyph(U'I'));
    ASSERT_TRUE(box);
    EXPECT_DOUBLE_EQ(box->width, 10);
    EXPECT_DOUBLE_EQ(box->height, 70);
    EXPECT_DOUBLE_EQ(box->y, 0);

    auto image = CoverageImage::create(40, 100);
    ASSERT_TRUE(font->draw(font->glyph(U'I'), {.scale = 1, .x = 20 - box->x, .y = 10}, *image));
    const auto inked = [&](std::uint32_t row) {
        const auto pixels = image->row(row);
        return std::count(pixels.begin(), pixels.end(), 255);
    };
    EXPECT_EQ(inked(19), 0); // rows from the top: 100 − 10 − 70 = 20 empty ones
    EXPECT_EQ(inked(20), 10);
    EXPECT_EQ(inked(89), 10);
    EXPECT_EQ(inked(90), 0);
    EXPECT_EQ(image->row(50)[19], 0);
    EXPECT_EQ(image->row(50)[20], 255);
    EXPECT_EQ(image->row(50)[29], 255);
    EXPECT_EQ(image->row(50)[30], 0);
}

TEST(Font, CoversHalfOfAPixelByHalf)
{
    const auto font = openFont(testFont("i-sans.ttf"), 100);
    const auto box = font->boundingBox(font->glyph(U'I'));
    auto image = CoverageImage::create(40, 100);
    ASSERT_TRUE(font->draw(font->glyph(U'I'), {.scale = 1, .x = 20.5 - box->x, .y = 10.25}, *image));
    EXPECT_NEAR(image->row(50)[20], 128, 1);
    EXPECT_NEAR(image->row(50)[30], 128, 1);
    EXPECT_NEAR(image->row(19)[25], 64, 1);
}

TEST(Font, ClipsWhatLeavesTheImage)
{
    const auto font = openFont(testFont("i-tall.ttf"), 100'000);
    auto image = CoverageImage::create(16, 16);
    font->draw(font->glyph(U'I'), {.scale = 1000, .x = -1e9, .y = 1e9}, *image);
    font->draw(font->glyph(U'I'), {.scale = 1000, .x = -5e7, .y = -5e7}, *image);
}

// Trees of components that would never end, or take years.
TEST(Font, RefusesGlyphsThatCannotBeComposed)
{
    for (const char *name : {"composite-bomb.ttf", "composite-deep.ttf", "composite-loop.ttf"}) {
        const auto font = openFont(testFont(name), 96);
        const std::uint32_t glyph = font->glyph(U'I');
        ASSERT_NE(glyph, 0U) << name;
        auto image = CoverageImage::create(96, 128);
        EXPECT_FALSE(font->boundingBox(glyph)) << name;
        EXPECT_FALSE(font->draw(glyph, {}, *image)) << name;
    }
    const auto real = openFont(systemFont("truetype/dejavu/DejaVuSans.ttf"), 96);
    EXPECT_TRUE(real->boundingBox(real->glyph(U'Ế'))); // a composite of composites
}

TEST(Font, DrawsTheOutlinesBehindPictures)
{
    const auto font = openFont(testFont("color-sbix.ttf"), 100);
    const auto box = font->boundingBox(font->glyph(U'I'));
    ASSERT_TRUE(box);
    auto image = CoverageImage::create(100, 100);
    EXPECT_TRUE(font->draw(font->glyph(U'I'), {}, *image));
    EXPECT_EQ(image->row(60)[7], 255); // a bar from 5 to 15
}

TEST(Font, HasNoOutlineWhereThereIsNone)
{
    const auto font = openFont(testFont("plain.ttf"), 96);
    EXPECT_FALSE(font->boundingBox(font->glyph(U' ')));
    EXPECT_FALSE(font->boundingBox(60'000));
    const auto emoji = openFont(systemFont("truetype/noto/NotoColorEmoji.ttf"), 96); // bitmaps only
    EXPECT_FALSE(emoji->boundingBox(emoji->glyph(U'\U0001F600')));
    EXPECT_FALSE(Font::create(openFace(testFont("upem-0.ttf")), 96));
}

TEST(CoverageImage, RefusesSizesThatWouldTakeTheMemory)
{
    EXPECT_TRUE(CoverageImage::create(4000, 4000));
    EXPECT_FALSE(CoverageImage::create(4000, 4001));
    EXPECT_FALSE(CoverageImage::create(0xFFFFFFFF, 0xFFFFFFFF));
    EXPECT_FALSE(CoverageImage::create(0, 10));
}

} // namespace
} // namespace kerlune
