#include "UI/Preview/PreviewRenderer.h"

#include "Model/ScriptCoverage.h"
#include "Platform/FontCatalog.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"
#include "UI/Preview/PreviewSample.h"

namespace kerlune {
namespace {

using Failure = Preview::Failure;
using Lines = PreviewRequest::Lines;

const std::string kDejaVu = systemFont("truetype/dejavu/DejaVuSans.ttf");
const std::string kDevanagari = systemFont("truetype/lohit-devanagari/Lohit-Devanagari.ttf");
const std::string kChinese = systemFont("truetype/wqy/wqy-zenhei.ttc");
const std::string kEmoji = systemFont("truetype/noto/NotoColorEmoji.ttf");

// The first face of a file, or the one of that name.
FontRecordPointer recordOf(const std::string &path, std::string postScriptName = {})
{
    auto record = std::make_shared<FontRecord>();
    record->filePath = path;
    if (postScriptName.empty()) {
        const auto fonts = fontsOfFile(path).fonts;
        postScriptName = fonts.empty() ? std::string() : fonts.front().postScriptName;
        record->scriptMask = ScriptCoverage::mask(*openFace(path));
    }
    record->postScriptName = std::move(postScriptName);
    return record;
}

PreviewRequest requestFor(FontRecordPointer face, const std::string &text)
{
    return {.face = std::move(face), .text = text, .emPixels = 32, .size = {240, 80}, .color = QColor(Qt::black)};
}

Preview draw(const PreviewRequest &request)
{
    return PreviewRenderer().draw(request);
}

QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

bool hasColors(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) != qGreen(pixel) || qRed(pixel) != qBlue(pixel))
                return true;
        }
    }
    return false;
}

TEST(PreviewRenderer, ReducesWhatDoesNotFitAndCutsNothingOff)
{
    PreviewRenderer renderer;
    const auto face = recordOf(kDejaVu);
    PreviewRequest request = requestFor(face, "fÅgj");
    EXPECT_FALSE(renderer.draw(request).isReduced(request));
    EXPECT_EQ(renderer.draw(request).emPixels, 32);
    request.text = "Une ligne qui ne tient pas du tout dans cette largeur ÂÇ";
    for (const auto lines : {Lines::One, Lines::Many}) {
        for (const double em : {40.0, 300.0, 20'000.0}) {
            request.lines = lines;
            request.emPixels = em;
            const Preview preview = renderer.draw(request);
            ASSERT_EQ(preview.failure, Failure::None);
            EXPECT_TRUE(preview.isReduced(request));
            EXPECT_TRUE(QRect(1, 1, 238, 78).contains(inkOf(preview.image))) << em;
        }
    }
    request.emPixels = 14;
    EXPECT_FALSE(renderer.draw(request).isReduced(request)); // there is room for several lines
}

TEST(PreviewRenderer, CentresTheXHeight)
{
    for (const std::string &path : {kDejaVu, systemFont("truetype/dejavu/DejaVuSerif.ttf")}) {
        for (const auto lines : {Lines::One, Lines::Many}) {
            PreviewRequest request = requestFor(recordOf(path), "xxx");
            request.lines = lines;
            const QRect ink = inkOf(draw(request).image);
            EXPECT_NEAR((ink.top() + ink.bottom() + 1) / 2.0, 40, 1);
            request.text = "xÅxg";
            EXPECT_EQ(draw(request).baseline, ink.bottom() + 1); // what stands above and below does not move it
        }
    }
    const QRect picture = inkOf(draw(requestFor(recordOf(kEmoji), "😀")).image); // it has no x-height
    EXPECT_NEAR((picture.top() + picture.bottom() + 1) / 2.0, 40, 1);
}

TEST(PreviewRenderer, DrawsEveryScriptByItsRules)
{
    const struct {
        const std::string &font;
        const char *text;
        const char *apart; // the same characters kept from joining
    } cases[] = {
        {kDejaVu, "سلام", "س\u200Cل\u200Cا\u200Cم"},
        {kDevanagari, "क्षत्रि", "क्\u200Cषत्\u200Cरि"},
    };
    for (const auto &[font, text, apart] : cases) {
        const auto face = recordOf(font);
        const Preview joined = draw(requestFor(face, text));
        ASSERT_EQ(joined.failure, Failure::None) << text;
        EXPECT_EQ(joined.missingCharacters, 0) << text;
        EXPECT_FALSE(joined.isSubstitute) << text;
        EXPECT_LT(inkOf(joined.image).width(), inkOf(draw(requestFor(face, apart)).image).width()) << text;
    }
    const Preview chinese = draw(requestFor(recordOf(kChinese), "中文"));
    EXPECT_NEAR(inkOf(chinese.image).width(), 62, 4); // two em squares
    const Preview emoji = draw(requestFor(recordOf(kEmoji), "😀🎨"));
    EXPECT_EQ(emoji.failure, Failure::None);
    EXPECT_TRUE(hasColors(emoji.image));
    EXPECT_FALSE(hasColors(chinese.image));
}

TEST(PreviewRenderer, BreaksLinesBetweenWordsAndSetsRightToLeftTextAtTheRight)
{
    PreviewRequest request = requestFor(recordOf(kDejaVu), "Deux\nlignes");
    request.lines = Lines::Many;
    request.emPixels = 16;
    const QRect left = inkOf(draw(request).image);
    EXPECT_LT(left.left(), 4);
    EXPECT_GT(left.height(), 24);
    request.text = "كل الناس\nأحرار";
    const QRect right = inkOf(draw(request).image);
    EXPECT_GT(right.right(), 235);
    EXPECT_GT(right.left(), 120);
}

TEST(PreviewRenderer, DrawsTheFaceThatIsNamedAtTheCoordinatesAskedFor)
{
    const auto widthOf = [](const PreviewRequest &request) { return inkOf(draw(request).image).width(); };
    const std::string variable = testFont("variable.ttf");
    PreviewRequest request = requestFor(recordOf(variable), "IIII");
    const int plain = widthOf(request);
    request.coordinates = {{tag("wght"), 900}};
    EXPECT_GT(widthOf(request), plain);
    std::vector<int> widths;
    for (const FontDescriptor &font : fontsOfFile(variable).fonts)
        widths.push_back(widthOf(requestFor(recordOf(variable, font.postScriptName), "IIII")));
    EXPECT_THAT(widths, Contains(testing::Gt(plain)));

    const auto collection = fontsOfFile(kChinese).fonts;
    ASSERT_GE(collection.size(), 2U);
    const auto drawn = [&](const FontDescriptor &font) {
        return draw(requestFor(recordOf(kChinese, font.postScriptName), "iiiMM")).image;
    };
    EXPECT_NE(drawn(collection[0]), drawn(collection[1])); // the second one has a single advance
}

TEST(PreviewRenderer, AppliesFeatures)
{
    PreviewRequest request = requestFor(recordOf(kDejaVu), "ffi fl");
    const QImage withLigatures = draw(request).image;
    request.features = {{tag("liga"), 0}};
    EXPECT_NE(draw(request).image, withLigatures);
}

TEST(PreviewRenderer, ShowsAnotherTextWhereTheFaceLacksMostOfIt)
{
    PreviewRequest request = requestFor(recordOf(kDejaVu), "人人生而自由");
    Preview preview = draw(request);
    EXPECT_TRUE(preview.isSubstitute);
    EXPECT_EQ(preview.text, QStringLiteral("Kerlune"));
    EXPECT_EQ(preview.missingCharacters, 6);
    request.sample = PreviewRequest::Sample::AsGiven;
    preview = draw(request);
    EXPECT_FALSE(preview.isSubstitute);
    EXPECT_EQ(preview.failure, Failure::None); // boxes
    request.sample = PreviewRequest::Sample::OfCoveredScript;
    request.text = "Kerlune 人"; // most of it is there
    EXPECT_FALSE(draw(request).isSubstitute);

    // Without a script that is known, what the face has.
    preview = draw(requestFor(recordOf(testFont("pictograms.ttf")), "Kerlune"));
    EXPECT_TRUE(preview.isSubstitute);
    EXPECT_EQ(preview.text.at(0), QChar(0xE000));
    preview = draw(requestFor(recordOf(kEmoji), "Kerlune"));
    EXPECT_TRUE(preview.isSubstitute);
    EXPECT_TRUE(hasColors(preview.image));
}

TEST(PreviewRenderer, TellsWhatCannotBeDrawn)
{
    TempFolder folder;
    EXPECT_EQ(draw(requestFor(nullptr, "a")).failure, Failure::Unreadable);
    EXPECT_EQ(draw(requestFor(recordOf("/nowhere.ttf", "Nowhere"), "a")).failure, Failure::Unreadable);
    EXPECT_EQ(draw(requestFor(recordOf(kDejaVu, "NoSuchFace"), "a")).failure, Failure::Unreadable);
    EXPECT_EQ(draw(requestFor(recordOf(kDejaVu), " ")).failure, Failure::NoInk);
    PreviewRequest empty = requestFor(recordOf(kDejaVu), "a");
    empty.size = {};
    EXPECT_EQ(draw(empty).failure, Failure::NoInk);

    const std::string whole = readFile(kDejaVu);
    for (std::size_t part = 0; part < 8; ++part) {
        const std::string path = folder / ("cut" + std::to_string(part) + ".ttf");
        std::ofstream(path, std::ios::binary) << whole.substr(0, whole.size() * part / 8);
        const Preview cut = draw(requestFor(recordOf(path, "DejaVuSans"), "Kerlune"));
        EXPECT_EQ(cut.image.isNull(), cut.failure != Failure::None) << part;
    }
    EXPECT_NE(draw(requestFor(recordOf(folder / "cut0.ttf", "DejaVuSans"), "Kerlune")).failure, Failure::None);
    EXPECT_EQ(draw(requestFor(recordOf(testFont("gsub-bomb.ttf")), std::string(200, 'a'))).failure, Failure::TooCostly);
}

TEST(PreviewSample, BelongsToItsEntry)
{
    const auto &languages = ScriptCoverage::all();
    for (std::size_t i = 1; i < languages.size(); ++i) { // the first one is Kerlune's name
        const auto sample = QString::fromUtf8(PreviewSample::ofEntry(i)).toUcs4();
        EXPECT_TRUE(std::any_of(sample.begin(), sample.end(), [&](char32_t character) {
            return languages[i].required.find(character) != std::u32string_view::npos;
        })) << languages[i].id;
    }
    const auto cyrillic = ScriptCoverage::bit("cyrillic").value();
    const auto arrows = ScriptCoverage::bit("arrows").value();
    EXPECT_STREQ(PreviewSample::forFace(cyrillic | arrows, {}).c_str(), "Привет, мир");
    EXPECT_STREQ(PreviewSample::forFace(cyrillic | ScriptCoverage::bit("latin").value(), {}).c_str(), "Kerlune");
}

} // namespace
} // namespace kerlune
