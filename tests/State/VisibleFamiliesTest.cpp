#include "State/VisibleFamilies.h"

#include "MadeLibrary.h"
#include "Model/FontIndexer.h"
#include "Model/ScriptCoverage.h"
#include "Support/Text.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

namespace kerlune {
namespace {

using Kind = SidebarSelection::Kind;

constexpr double kLight = -0.4; // CSS 300
constexpr double kBlack = 1;    // CSS 900

// Named so that the library order is A, B, C, D.
std::vector<FontRecordPointer> records()
{
    return {madeFace("Bodoni", "Regular",
                     [](FontRecord &face) {
                         face.classification = FontClass::serif;
                         face.designer = "Chloé Öz";
                         face.scriptMask = 0b011;
                         face.fsType = 0x0002;
                     }),
            madeFace("Bodoni", "Italic",
                     [](FontRecord &face) {
                         face.isItalic = true;
                         face.classification = FontClass::script;
                         face.scriptMask = 0b100;
                         face.isColor = true;
                     }),
            madeFace("Arial", "Light",
                     [](FontRecord &face) {
                         face.weight = kLight;
                         face.isMonospace = true;
                         face.foundry = "Fonderie Olive";
                     }),
            madeFace("Arial", "Regular", [](FontRecord &face) { face.filePath = "/ailleurs/Arial.ttf"; }),
            madeFace("Arial", "Black",
                     [](FontRecord &face) {
                         face.weight = kBlack;
                         face.isVariable = true;
                     }),
            madeFace("Cour", "Mono",
                     [](FontRecord &face) {
                         face.isMonospace = true;
                         face.classification = FontClass::mono;
                         face.scriptMask = 0b101;
                         face.filePath = "/polices2/c.ttf";
                     }),
            madeFace("Didot", "Italic", [](FontRecord &face) { face.isItalic = true; })};
}

TEST(FilterPipeline, DecidesByTheFaceThatEachCriterionNames)
{
    MadeLibrary made(records());
    made.tags = {{"Arial", {"web", "titre"}}, {"Cour", {"web"}}};
    const std::string arial = "Arial: Light Regular Black";
    const std::string bodoni = "Bodoni: Regular Italic";
    const struct {
        Filters filters;
        std::vector<std::string> expected;
    } cases[] = {
        {{.classes = {FontClass::serif, FontClass::mono}}, {bodoni, "Cour: Mono"}},
        {{.classes = {FontClass::script}}, {}}, // another face than the representative one
        {{.onlyVariable = true}, {arial}},
        {{.onlyMonospace = true}, {"Cour: Mono"}}, // Arial has another representative face
        {{.onlyColor = true}, {bodoni}},
        {{.onlyItalic = true}, {"Bodoni: Italic", "Didot: Italic"}},
        {{.hideItalic = true}, {arial, "Bodoni: Regular", "Cour: Mono"}},
        {{.onlyItalic = true, .hideItalic = true}, {}},
        {{.languageBits = 0b101}, {bodoni, "Cour: Mono"}}, // no face of Bodoni covers both
        {{.languageBits = 0b1000}, {}},
        {{.weightRange = {100, 800}}, {"Arial: Light Regular", bodoni, "Cour: Mono", "Didot: Italic"}},
        {{.weightRange = {300, 300}}, {"Arial: Light"}},
        {{.riskyLicenseOnly = true}, {bodoni}},
        {{.tags = {"web"}}, {arial, "Cour: Mono"}},
        {{.tags = {"web", "titre"}}, {arial}},
        {{.search = "BODONI"}, {bodoni}},
        {{.search = "chloe oz"}, {bodoni}},
        {{.search = "olïve arial-regular"}, {arial}}, // across two faces: one space parts them
        {{.search = "arial  arial"}, {}},
        {{.search = "polices"}, {}},
        // A narrowed family is judged by the faces that it had before, except for its characters.
        {{.classes = {FontClass::serif}, .onlyItalic = true}, {"Bodoni: Italic"}},
        {{.onlyVariable = true, .weightRange = {300, 400}}, {"Arial: Light Regular"}},
    };
    for (const auto &[filters, expected] : cases)
        EXPECT_EQ(made.visible(filters), expected) << summary(filters);
}

TEST(FilterPipeline, AsksTheFontsForRequiredGlyphs)
{
    const TempFolder folder;
    const auto fontFace = [&](const std::string &family, const std::string &font, bool isItalic) {
        fs::copy_file(testFont(font), folder / font, fs::copy_options::skip_existing);
        const auto fonts = fontsOfFile((folder / font).string()).fonts;
        FontRecord record = *FontIndexer::extract(fonts.back());
        record.family = family;
        record.style = isItalic ? "Italic" : "Regular";
        record.isItalic = isItalic;
        return std::make_shared<const FontRecord>(record);
    };
    const auto plain = fontFace("Un", "plain.ttf", false);
    MadeLibrary made({plain, fontFace("Un", "collection.ttc", true), madeFace("Perdu", "Regular")});
    EXPECT_THAT(made.visible({.requiredGlyphs = "H"}), ElementsAre("Un: Regular Italic"));
    EXPECT_THAT(made.visible({.requiredGlyphs = "HHxH"}), ElementsAre("Un: Regular Italic"));
    EXPECT_THAT(made.visible({.requiredGlyphs = "H\n"}), IsEmpty()); // as typed
    EXPECT_THAT(made.visible({.requiredGlyphs = "Hあ"}), IsEmpty());
    EXPECT_THAT(made.visible({.onlyItalic = true, .requiredGlyphs = "H"}), ElementsAre("Un: Italic"));
    fs::remove(folder / "plain.ttf"); // what was read is remembered
    EXPECT_THAT(made.visible({.requiredGlyphs = "Hx"}), ElementsAre("Un: Regular Italic"));
}

TEST(VisibleFamilies, FollowTheSidebar)
{
    MadeLibrary made(records());
    made.favorites = {"Cour", "Arial", "Partie"};
    made.recents = {"Didot", "Partie", "Arial"};
    made.collectionMembers = {{"c", {"Bodoni", "Partie"}}};
    made.tags = {{"Arial", {"web"}}};
    made.folders = {{"f", "/polices"}, {"g", "/polices2/"}};
    made.smartCollections = {{"s", "Titres", {.search = "aria", .hideItalic = true}}, {"t", "Rien", {.search = "zz"}}};
    const std::string arial = "Arial: Light Regular Black";
    const std::string bodoni = "Bodoni: Regular Italic";
    const std::vector<std::string> all{arial, bodoni, "Cour: Mono", "Didot: Italic"};
    const struct {
        SidebarSelection selection;
        std::vector<std::string> expected;
    } cases[] = {
        {{}, all},
        {{Kind::adobeFonts}, all},
        {{Kind::classification, FontClass::serif}, {bodoni}},
        {{.kind = Kind::collection, .key = "c"}, {bodoni}},
        {{.kind = Kind::collection, .key = "?"}, {}},
        {{.kind = Kind::folder, .key = "f"}, {"Arial: Light Black", bodoni, "Didot: Italic"}},
        {{.kind = Kind::folder, .key = "g"}, {"Cour: Mono"}},
        {{.kind = Kind::folder, .key = "?"}, {}},
        {{.kind = Kind::tag, .key = "web"}, {arial}},
        {{.kind = Kind::tag, .key = "Web"}, {}},
        {{.kind = Kind::smart, .key = "s"}, {arial}},
        {{.kind = Kind::smart, .key = "t"}, {}},
        {{.kind = Kind::smart, .key = "?"}, {}},
        {{Kind::favorites}, {arial, "Cour: Mono"}},
        {{Kind::recents}, {"Didot: Italic", arial}},
        {{Kind::variable}, {arial}},
        {{Kind::color}, {bodoni}},
        {{Kind::duplicates}, {}},
    };
    for (const auto &[selection, expected] : cases)
        EXPECT_EQ(made.visible({}, selection), expected) << selectionText(selection);

    // What is searched for is looked for in the whole library, then the sidebar narrows, then the other filters do.
    EXPECT_THAT(made.visible({.search = "di", .weightRange = {300, 400}}, {Kind::recents}),
                ElementsAre("Didot: Italic"));
    // The family is now judged by the faces in that folder: its regular one lies elsewhere.
    EXPECT_THAT(made.visible({.onlyMonospace = true}, {.kind = Kind::folder, .key = "f"}),
                ElementsAre("Arial: Light Black"));
}

TEST(VisibleFamilies, NarrowingSharesWhatItKeepsWhole)
{
    const MadeLibrary made(records());
    const auto kept = narrowedFaces(made.library.families, [](const FontRecord &face) { return !face.isItalic; });
    EXPECT_EQ(kept[0], made.library.families[0]);
    EXPECT_EQ(kept[1]->faces[0], made.library.families[1]->faces[0]);
    EXPECT_EQ(made.library.families[1]->faces.size(), 2U);
}

TEST(VisibleFamilies, DuplicatesShareAPostScriptName)
{
    auto twice = records();
    twice.push_back(madeFace("Arial", "Light", [](FontRecord &face) { face.filePath = "/copie.ttf"; }));
    twice.push_back(madeFace("Cour", "Mono", [](FontRecord &face) { face.family = "Autre"; }));
    MadeLibrary made(twice);
    std::vector<FontFamilyPointer> families;
    for (const FontFamily &family : made.library.duplicates)
        families.push_back(std::make_shared<const FontFamily>(family));
    EXPECT_THAT(described(families), ElementsAre("Arial: Light Light", "Autre: Mono", "Cour: Mono"));
    EXPECT_THAT(made.visible({}, {Kind::duplicates}),
                ElementsAre("Arial: Light Regular Black Light", "Autre: Mono", "Cour: Mono"));
}

TEST(LoadedLibrary, FindsFamiliesAndRecordsByName)
{
    auto made = makeLibrary({madeFace("Police 10", "A"), madeFace("Police 9", "B"), madeFace("Police 10", "C")});
    const LoadedLibrary library = std::move(made); // what the keys look at moves with it
    EXPECT_THAT(described(library.families), ElementsAre("Police 9: B", "Police 10: A C"));
    EXPECT_EQ(library.familyByName.at("Police 10"), library.families[1]);
    EXPECT_EQ(library.recordByPostScriptName.at("Police 9-B"), library.records[1]);
    EXPECT_THAT(library.searchIndex.positions(folded("POLICE 1")), ElementsAre(1U));
    EXPECT_TRUE(makeLibrary({}).searchIndex.positions("").empty());
}

TEST(VisibleFamilies, AreCountedOncePerFamily)
{
    const MadeLibrary made(records());
    const LibraryCounts counts = countFamilies(made.library.families);
    EXPECT_THAT(counts.byClass,
                UnorderedElementsAre(Pair(FontClass::serif, 1), Pair(FontClass::mono, 1), Pair(FontClass::unknown, 2)));
    EXPECT_EQ(counts.variable, 1);
    EXPECT_EQ(counts.color, 1);
    const auto &languages = ScriptCoverage::all();
    EXPECT_THAT(countLanguages(made.library.families),
                UnorderedElementsAre(Pair(languages[0].id, 2), Pair(languages[1].id, 1), Pair(languages[2].id, 2)));
    EXPECT_EQ(countInFolder(made.library.families, "/polices"), 3);
    EXPECT_EQ(countInFolder(made.library.families, "/police"), 0);
}

} // namespace
} // namespace kerlune
