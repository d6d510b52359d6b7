#include "Identify/Fingerprint.h"

#include "FixedCatalog.h"
#include "Platform/Font.h"
#include "Platform/FontCatalog.h"
#include "TestFonts.h"
#include "Testing.h"

#include <cmath>
#include <numeric>

namespace kerlune {
namespace {

using Fingerprint::Vector;
using testing::Each;
using testing::FloatNear;

std::unique_ptr<Font> fontOf(const std::string &name)
{
    auto font = Font::create(openFace(testFont(name)), Fingerprint::kFontSize);
    if (!font)
        throw std::runtime_error(name + ": " + describe(font.error()));
    return *std::move(font);
}

// As the vector was before it took unit length: the roundness of a filled box is known.
std::vector<double> metricsOf(const Vector &vector, double roundness)
{
    const std::size_t first = Fingerprint::kGlyphs * Fingerprint::kGridCells;
    const double norm = roundness * 2.5 / vector.at(first + 7);
    std::vector<double> metrics;
    for (std::size_t i = first; i < vector.size(); ++i)
        metrics.push_back(vector[i] * norm / 2.5);
    return metrics;
}

// In fingerprint.ttf: "a" is a block 400 × 400, "n" two stems of 100 with 200 between them under a bar, "o" a block
// 400 × 400, "g" twice as high as wide, "e" and "R" are missing.
TEST(FingerprintGeometry, FillsTheCellsOfACentredBox)
{
    const auto font = fontOf("fingerprint-four.ttf");
    const auto grid = Fingerprint::renderNormalized(*font, "a"); // 102.4 pixels of ink from 12.8 on
    ASSERT_TRUE(grid);
    for (std::size_t row = 0; row < Fingerprint::kGridSide; ++row) {
        for (std::size_t column = 0; column < Fingerprint::kGridSide; ++column) {
            const auto share = [](std::size_t cell) { // of ten pixels from cell × 10 on, inside 12.8 to 115.2
                return std::max(0.0, std::min(cell * 10.0 + 10, 115.2) - std::max(cell * 10.0, 12.8)) / 10;
            };
            EXPECT_NEAR(grid->at(row * Fingerprint::kGridSide + column), share(row) * share(column), 0.004)
                << row << ' ' << column;
        }
    }
    const auto high = Fingerprint::renderNormalized(*font, "g");
    ASSERT_TRUE(high);
    EXPECT_FLOAT_EQ(high->at(5 * 12 + 0), 0); // 51.2 wide, in the middle
    EXPECT_FLOAT_EQ(high->at(5 * 12 + 5), 1);
    EXPECT_NEAR(high->at(1 * 12 + 5), 0.72, 0.004); // it begins at 12.8
}

TEST(FingerprintGeometry, CountsInkFromTheTopAndFromTheLeft)
{
    const auto font = fontOf("fingerprint-four.ttf");
    EXPECT_EQ(Fingerprint::horizontalInkRuns(*font, "n", 0.5), std::vector<int>({27, 27})); // 100 of 400, in 108.8
    EXPECT_EQ(Fingerprint::horizontalInkRuns(*font, "n", 0.1), std::vector<int>({108}));    // the bar is on top
    EXPECT_EQ(Fingerprint::horizontalInkRuns(*font, "n", 0.05), std::nullopt);              // above the drawing
    EXPECT_EQ(Fingerprint::horizontalInkRuns(*font, "n", -1), std::nullopt);
    EXPECT_EQ(Fingerprint::horizontalInkRuns(*font, "n", 5), std::nullopt); // the last row
    const auto stems = Fingerprint::stemExtremes(*font, "n", 70);
    EXPECT_DOUBLE_EQ(stems.thin, 27.0 / 70);
    EXPECT_DOUBLE_EQ(stems.thick, 108.0 / 70) << "a quarter down lies the bar";
}

TEST(FingerprintGeometry, HasNothingToSayOfCharactersThatTheFontDoesNotDraw)
{
    const auto font = fontOf("fingerprint-four.ttf");
    for (const std::string_view character : {"", " ", "e", "\U0001F600", "\xFF"}) {
        EXPECT_FALSE(Fingerprint::renderNormalized(*font, character)) << character;
        EXPECT_FALSE(Fingerprint::horizontalInkRuns(*font, character, 0.5)) << character;
        EXPECT_EQ(Fingerprint::roundness(*font, character), 0);
        EXPECT_EQ(Fingerprint::stemExtremes(*font, character, 70).thick, 0);
    }
    EXPECT_EQ(Fingerprint::advance(*font, "\U0001F600"), 0);
    EXPECT_NEAR(Fingerprint::advance(*font, "n"), 96 * 0.5, 1e-9);
    EXPECT_EQ(Fingerprint::advance(*font, "nothing"), Fingerprint::advance(*font, "n")); // the first character counts
}

TEST(FingerprintVector, NeedsFourLettersAndLeavesZerosForTheOthers)
{
    const auto vector = Fingerprint::compute(openFace(testFont("fingerprint-four.ttf")));
    ASSERT_TRUE(vector);
    ASSERT_THAT(*vector, SizeIs(872));
    EXPECT_THAT(std::vector<float>(vector->begin() + 144, vector->begin() + 288), Each(0)); // "e"
    EXPECT_THAT(std::vector<float>(vector->begin() + 720, vector->begin() + 864), Each(0)); // "R"
    EXPECT_NEAR(std::inner_product(vector->begin(), vector->end(), vector->begin(), 0.0), 1, 1e-5);
    EXPECT_FALSE(Fingerprint::compute(openFace(testFont("fingerprint-three.ttf"))));
    EXPECT_FALSE(Fingerprint::compute(openFace(testFont("fingerprint-flat.ttf")))); // capitals of less than a point
}

TEST(FingerprintVector, MeasuresTheProportions)
{
    const auto face = openFace(testFont("fingerprint-four.ttf"));
    const auto vector = Fingerprint::compute(face);
    ASSERT_TRUE(vector);
    const double cap = 0.7 * 96;
    const double filled = 102.4 * 102.4 / (120 * 120);
    const auto metrics = metricsOf(*vector, filled);
    EXPECT_NEAR(metrics[0], 5.0 / 7, 1e-3);
    EXPECT_NEAR(metrics[1], 8.0 / 7, 1e-3);
    EXPECT_NEAR(metrics[2], 2.0 / 7, 1e-3);
    EXPECT_NEAR(metrics[3], 27 / cap * 4, 2e-3);
    EXPECT_NEAR(metrics[4], 1.0 / 6, 1e-3); // a block: thick and thin are the same
    EXPECT_NEAR(metrics[5], -9.0 / 30, 1e-3) << "it leans left";
    EXPECT_NEAR(metrics[6], 0.5 * 5 / 7, 1e-3);

    const auto wide = Fingerprint::compute(openFace(testFont("fingerprint-wide.ttf")));
    ASSERT_TRUE(wide);
    const auto capped = metricsOf(*wide, Fingerprint::roundness(*fontOf("fingerprint-wide.ttf"), "o"));
    EXPECT_NEAR(capped[4], 1, 1e-3) << "the contrast, at most 6 to 1";
    EXPECT_NEAR(capped[6], 1, 1e-3) << "the width of n, at most twice the cap height";
}

TEST(FingerprintVector, OpensTheFontThatHasTheName)
{
    const FixedCatalog catalog({testFont("fingerprint-four.ttf")});
    EXPECT_EQ(Fingerprint::compute(catalog, "EssaiEmpreinte-Regular"),
              Fingerprint::compute(openFace(testFont("fingerprint-four.ttf"))));
    EXPECT_FALSE(Fingerprint::compute(catalog, "EssaiAbsent"));
}

TEST(FingerprintVector, IsDecodedAndScaled)
{
    const std::vector<std::uint8_t> bytes{0, 0, 128, 63, 0, 0, 0, 64, 7};
    EXPECT_THAT(Fingerprint::decode(bytes), ElementsAre(1.0F, 2.0F));
    EXPECT_THAT(Fingerprint::decode(std::span(bytes).first(3)), SizeIs(0));
    EXPECT_THAT(Fingerprint::l2Normalized({3, 4}), ElementsAre(FloatNear(0.6F, 1e-6F), FloatNear(0.8F, 1e-6F)));
    EXPECT_THAT(Fingerprint::l2Normalized({0.0001F, 0}), ElementsAre(0.0001F, 0));
    EXPECT_THAT(Fingerprint::l2Normalized({}), SizeIs(0));
}

} // namespace
} // namespace kerlune
