#include "Platform/LineDrawing.h"

#include "TestFonts.h"
#include "Testing.h"

#include <cmath>
#include <numeric>

namespace kerlune {
namespace {

using Outcome = LineDrawing::Outcome;
using testing::Each;
using testing::Eq;

constexpr Color kBlack{};

ColorImage emptyImage(std::uint32_t width = 100, std::uint32_t height = 100)
{
    return *ColorImage::create(width, height);
}

// A face with its drawing; lines have an em of 100 points.
struct Drawn {
    explicit Drawn(const std::string &path)
        : face(openFace(path))
        , drawing(std::move(*LineDrawing::create(face)))
    {}

    ShapedLine shaped(std::string_view text, std::vector<AxisValue> coordinates = {}) const
    {
        return shape(face, text, {.size = 100, .coordinates = std::move(coordinates)});
    }

    Outcome draw(std::string_view text, ColorImage &image, LinePlacement placement = {.x = 0, .y = 100},
                 const Color &color = kBlack)
    {
        return drawing->draw(shaped(text), placement, color, image);
    }

    std::shared_ptr<const FontFace> face;
    std::unique_ptr<LineDrawing> drawing;
};

double coverage(const ColorImage &image)
{
    return std::accumulate(image.pixels().begin(), image.pixels().end(), 0.0,
                           [](double sum, Pixel pixel) { return sum + (pixel >> 24) / 255.0; });
}

// The box of all pixels that are not transparent.
PixelArea inkedArea(const ColorImage &image)
{
    PixelArea area;
    for (int y = 0; y < static_cast<int>(image.height()); ++y) {
        for (int x = 0; x < static_cast<int>(image.width()); ++x) {
            if (image.row(static_cast<std::uint32_t>(y))[static_cast<std::size_t>(x)] != 0)
                area = area.united({x, y, x + 1, y + 1});
        }
    }
    return area;
}

TEST(LineDrawing, CoversWhatTheOutlineCovers)
{
    // The I of this font is a bar of 100 × 700 units at its origin.
    Drawn font(testFont("i-sans.ttf"));
    for (const double x : {20.0, 20.25, 20.5}) {
        auto image = emptyImage();
        ASSERT_EQ(font.draw("I", image, {.x = x, .y = 90}, {.red = 255}), Outcome::Inked);
        EXPECT_NEAR(coverage(image), 700, 3) << x;
        EXPECT_EQ(image.row(20)[25], 0xFFFF0000);
        EXPECT_EQ(image.row(89)[25], 0xFFFF0000);
        EXPECT_EQ(image.row(19)[25], 0U);
        EXPECT_EQ(image.row(90)[25], 0U);
        EXPECT_NEAR(image.row(50)[20] >> 24, 255 * (21 - x), 1) << x;
        EXPECT_NEAR(image.row(50)[30] >> 24, 255 * (x - 20), 1) << x;
    }
    auto half = emptyImage();
    font.draw("I", half, {.x = 10, .y = 50.5, .scale = 0.5});
    EXPECT_NEAR(coverage(half), 175, 1);
    EXPECT_EQ(inkedArea(half), (PixelArea{10, 15, 15, 51}));
}

TEST(LineDrawing, BlendsOverWhatIsThere)
{
    Drawn font(testFont("i-sans.ttf"));
    auto image = emptyImage();
    for (std::uint32_t y = 0; y < 100; ++y)
        std::fill(image.row(y).begin(), image.row(y).end(), 0xFFFFFFFF);
    font.draw("I", image, {.x = 0.5, .y = 100}, {.red = 255, .alpha = 128});
    EXPECT_EQ(image.row(50)[5], 0xFFFF7F7F);
    EXPECT_EQ(image.row(50)[0], 0xFFFFBFBF);
    EXPECT_EQ(image.row(50)[11], 0xFFFFFFFF);
    // Where two glyphs meet, neither wipes out the other.
    auto meeting = emptyImage();
    ShapedLine line = font.shaped("II");
    line.glyphs[0].x = 0;
    line.glyphs[1].x = 9.5;
    font.drawing->draw(line, {.x = 0, .y = 100}, kBlack, meeting);
    EXPECT_EQ(meeting.row(50)[9], 0xFF000000);
}

TEST(LineDrawing, MeasuresTheInk)
{
    const LinePlacement placement{.x = 20.3, .y = 60.6, .scale = 0.4};
    for (const char *path : {"truetype/dejavu/DejaVuSerif-BoldItalic.ttf", "opentype/cantarell/Cantarell-Bold.otf",
                             "truetype/noto/NotoColorEmoji.ttf"}) {
        Drawn font(systemFont(path));
        const ShapedLine line = font.shaped(std::string_view(path).ends_with("Emoji.ttf") ? "😀🇫🇷" : "fÇj");
        const auto box = font.drawing->inkBox(line, placement);
        ASSERT_TRUE(box) << path;
        auto image = emptyImage(200);
        ASSERT_EQ(font.drawing->draw(line, placement, kBlack, image), Outcome::Inked);
        const PixelArea inked = inkedArea(image);
        EXPECT_NEAR(box->left, inked.left, 1) << path;
        EXPECT_NEAR(box->right, inked.right, 1) << path;
        EXPECT_NEAR(box->top, inked.top, 1) << path;
        EXPECT_NEAR(box->bottom, inked.bottom, 1) << path;
        EXPECT_LE(std::floor(box->left), inked.left) << path;
        EXPECT_LE(std::floor(box->top), inked.top) << path;
        EXPECT_GE(std::ceil(box->right), inked.right) << path;
        EXPECT_GE(std::ceil(box->bottom), inked.bottom) << path;
    }
}

TEST(LineDrawing, SaysWhenThereIsNoInk)
{
    Drawn plain(testFont("plain.ttf"));
    auto image = emptyImage();
    EXPECT_EQ(plain.draw("   ", image), Outcome::NoInk);
    EXPECT_FALSE(plain.drawing->inkBox(plain.shaped("   "), {}));
    EXPECT_EQ(plain.draw("", image), Outcome::NoInk);
    for (const double far : {-500.0, 500.0, 1e12, -1e300}) {
        EXPECT_EQ(plain.draw("I", image, {.x = far, .y = 100}), Outcome::NoInk) << far;
        EXPECT_EQ(plain.draw("I", image, {.x = 0, .y = far, .scale = 1}), Outcome::NoInk) << far;
    }
    EXPECT_EQ(plain.draw("I", image, {.x = 0, .y = 100, .scale = std::nan("")}), Outcome::NoInk);
    for (const char *name : {"composite-bomb.ttf", "composite-deep.ttf", "composite-loop.ttf"})
        EXPECT_EQ(Drawn(testFont(name)).draw("IHx", image), Outcome::NoInk) << name;
    EXPECT_THAT(image.pixels(), Each(Eq(0U)));
    EXPECT_EQ(LineDrawing::create(openFace(testFont("upem-0.ttf"))).error(), FontError::NoUnitsPerEm);
}

TEST(LineDrawing, LeavesNoHolesWhereContoursOverlap)
{
    Drawn font(testFont("overlap.ttf")); // boxes from 100 to 480 and from 300 to 500 units
    auto image = emptyImage();
    font.draw("I", image);
    for (std::size_t x = 10; x < 50; ++x)
        EXPECT_EQ(image.row(70)[x], 0xFF000000) << x;
    EXPECT_EQ(image.row(70)[9], 0U);
    EXPECT_EQ(image.row(70)[50], 0U);
}

TEST(LineDrawing, FollowsTheDesignSpace)
{
    Drawn font(testFont("variable.ttf")); // the I: 50 to 150 units, to 250 at wght 900
    const auto width = [&](std::vector<AxisValue> coordinates) {
        const auto box = font.drawing->inkBox(font.shaped("I", std::move(coordinates)), {});
        return box->right - box->left;
    };
    EXPECT_DOUBLE_EQ(width({}), 10);
    EXPECT_DOUBLE_EQ(width({{tag("wght"), 900}}), 20);
    EXPECT_DOUBLE_EQ(width({}), 10);
}

TEST(LineDrawing, PutsLayersInThePalettesColours)
{
    // A: a red box, a half transparent blue one over it, one in the text's colour, and one that no palette entry is
    // for.
    Drawn font(testFont("colr-layers.ttf"));
    auto image = emptyImage();
    ASSERT_EQ(font.draw("A", image, {.x = 0, .y = 100}, {.green = 255}), Outcome::Inked);
    EXPECT_EQ(image.row(90)[10], 0xFFFF0000); // red alone
    EXPECT_EQ(image.row(75)[25], 0xFF7F0080); // blue over red
    EXPECT_EQ(image.row(55)[45], 0x80000080); // blue alone
    EXPECT_EQ(image.row(90)[65], 0xFF00FF00); // the text's colour
    EXPECT_EQ(image.row(35)[85], 0U);
    const auto box = font.drawing->inkBox(font.shaped("A"), {});
    ASSERT_TRUE(box);
    EXPECT_DOUBLE_EQ(box->left, 0);
    // A glyph without layers has the text's colour.
    auto plain = emptyImage();
    font.draw("E", plain, {.x = 0, .y = 100}, {.green = 255});
    EXPECT_EQ(plain.row(90)[65], 0U);
    EXPECT_EQ(plain.row(35)[85], 0xFF00FF00);
}

TEST(LineDrawing, DrawsPicturesInTheirColours)
{
    Drawn emoji(systemFont("truetype/noto/NotoColorEmoji.ttf"));
    for (const double scale : {0.25, 0.5, 2.0}) { // smaller and larger than the strike
        auto image = emptyImage(300, 300);
        ASSERT_EQ(emoji.draw("😀", image, {.x = 0.5, .y = 250, .scale = scale}), Outcome::Inked);
        const auto box = emoji.drawing->inkBox(emoji.shaped("😀"), {.x = 0.5, .y = 250, .scale = scale});
        ASSERT_TRUE(box);
        const auto at = [&](double across, double down) {
            const double x = box->left + across * (box->right - box->left);
            const double y = box->top + down * (box->bottom - box->top);
            return image.row(static_cast<std::uint32_t>(y))[static_cast<std::size_t>(x)];
        };
        const Pixel cheek = at(0.2, 0.5);
        EXPECT_EQ(cheek >> 24, 255U) << scale;
        EXPECT_GT((cheek >> 16) & 0xFF, 200U) << scale; // yellow
        EXPECT_GT((cheek >> 8) & 0xFF, 140U) << scale;
        EXPECT_LT(cheek & 0xFF, 120U) << scale;
        EXPECT_LT(at(0, 0) >> 24, 128U) << scale;
    }
}

TEST(LineDrawing, FallsBackToTheOutline)
{
    for (const char *name : {"color-svg.ttf", "color-sbix.ttf"}) {
        Drawn font(testFont(name));
        auto image = emptyImage();
        ASSERT_EQ(font.draw("A", image, {.x = 0, .y = 100}, {.green = 255}), Outcome::Inked) << name;
        EXPECT_EQ(image.row(80)[20], 0xFF00FF00) << name;
    }
}

TEST(LineDrawing, CentresTheXHeight)
{
    EXPECT_DOUBLE_EQ(baselineForCentredXHeight({.xHeight = 0.5, .capHeight = 0.7}, 40, 60), 40);
    EXPECT_DOUBLE_EQ(baselineForCentredXHeight({.capHeight = 0.7}, 40, 60), 44);
}

TEST(ColorImage, RefusesSizesThatWouldTakeTheMemory)
{
    EXPECT_TRUE(ColorImage::create(4000, 4000));
    EXPECT_FALSE(ColorImage::create(4000, 4001));
    EXPECT_FALSE(ColorImage::create(40'000, 1));
    EXPECT_FALSE(ColorImage::create(1, 0));
}

} // namespace
} // namespace kerlune
