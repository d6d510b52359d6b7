// The scripts that list the fonts of documents, each run in a model of its host.

#include "HostModel.h"
#include "Testing.h"

namespace kerlune {
namespace {

TEST(HostFonts, PhotoshopTellsThoseOfEachStretchOfText)
{
    ModelledHost photoshop(HostApp::photoshop, "photoshop");
    photoshop.eval(R"(
        openNamed(1, "other.psd", [textLayer(1, "a")]);
        openNamed(2, "a \"b\".psd", [pixelLayer(1, "p"), group(2, "g", [
            withStretches(textLayer(3, "t"), [
                {textStyle: {fontPostScriptName: "Inter-Bold", fontName: "Inter", fontStyleName: "Bold"}},
                {textStyle: {baseParentStyle: {fontPostScriptName: "Lost", fontName: "Lost\tSans"}}},
                {textStyle: {fontPostScriptName: "Inter-Bold", fontName: "Inter", fontStyleName: "Bold"}}])]),
            textLayer(4, "u")]);
    )");
    EXPECT_THAT(photoshop.fontsOf({"a \"b\".psd"}),
                ElementsAre(UsedFont{"Inter-Bold", "Inter", "Bold"}, UsedFont{"Lost", "Lost Sans"}, UsedFont{"Old"}));
    EXPECT_THAT(photoshop.fontsOf({"closed.psd"}), IsEmpty());
}

TEST(HostFonts, IllustratorTellsThoseItListsAndThoseOfItsText)
{
    ModelledHost illustrator(HostApp::illustrator, "illustrator");
    illustrator.eval(R"(
        var packet = '<xmp><xmpTPg:Fonts>\n<rdf:Bag>' +
            '<rdf:li rdf:parseType="Resource"><stFnt:fontName>Lost-Bold</stFnt:fontName>' +
            '<stFnt:fontFamily>Lost &amp; Found &#xE9;</stFnt:fontFamily><stFnt:fontFace>Bold</stFnt:fontFace></rdf:li>' +
            '<rdf:li stFnt:fontName="Gone" stFnt:fontFamily="Gone"/></rdf:Bag></xmpTPg:Fonts>' +
            '<stFnt:fontName>Elsewhere</stFnt:fontName></xmp>';
        openNamed("a.ai", packet, [[word("Inter-Bold", "Inter", "Bold"), word(null), word("Inter-Bold", "Inter", "Bold")]]);
        openNamed("b.ai", "", []);
    )");
    EXPECT_THAT(illustrator.fontsOf({"a.ai", "b.ai"}),
                ElementsAre(UsedFont{"Lost-Bold", "Lost & Found é", "Bold"}, UsedFont{"Gone", "Gone"},
                            UsedFont{"Inter-Bold", "Inter", "Bold"}));
    EXPECT_THAT(illustrator.fontsOf({"b.ai"}), IsEmpty());
}

TEST(HostFonts, InDesignTellsThoseOfTheDocument)
{
    ModelledHost indesign(HostApp::indesign, "indesign");
    indesign.eval(R"(
        app.documents.push({name: "a.indd", fonts: [
            {postscriptName: "Inter-Bold", fontFamily: "Inter", fontStyleName: "Bold"},
            defineProperty({fontFamily: "Lost", fontStyleName: "Regular"}, "postscriptName",
                {get: function () { throw new Error("Invalid object for this request."); }})]});
        app.documents.push({name: "b.indd", fonts: [{postscriptName: "B"}]});
    )");
    EXPECT_THAT(indesign.fontsOf({"a.indd"}),
                ElementsAre(UsedFont{"Inter-Bold", "Inter", "Bold"}, UsedFont{"", "Lost", "Regular"}));
    EXPECT_THAT(indesign.fontsOf({"a.indd", "b.indd"}), SizeIs(3));
}

TEST(HostFonts, AfterEffectsTellsThoseOfTheProjectInEveryVersion)
{
    const std::string project = R"(
        var text = function (name, keys) {
            var style = function (key) { return {font: name + key, fontFamily: name, fontStyle: "Bold"}; };
            var source = {value: style(""), numKeys: keys, keyValue: style};
            return {property: function () { return {property: function () { return source; }}; }};
        };
        var layers = [text("Inter", 2), solidLayer()];
        app.project = {file: {displayName: "a b.aep"}, numItems: 2, item: function (i) {
            return [{name: "folder"}, {layers: layers, numLayers: 2, layer: function (j) { return layers[j - 1]; }}][i - 1];
        }};
    )";
    ModelledHost old(HostApp::afterEffects, "afterEffects");
    old.eval(project);
    EXPECT_THAT(old.fontsOf({"a b.aep"}),
                UnorderedElementsAre(UsedFont{"Inter", "Inter", "Bold"}, UsedFont{"Inter1", "Inter", "Bold"},
                                     UsedFont{"Inter2", "Inter", "Bold"}));
    EXPECT_THAT(old.fontsOf({"b.aep"}), IsEmpty());
    ModelledHost recent(HostApp::afterEffects, "afterEffects");
    recent.eval(project + R"(
        app.project.usedFonts = [{font: {postScriptName: "New", familyName: "New", styleName: "Thin"}, usedAt: []}];
    )");
    EXPECT_THAT(recent.fontsOf({"a b.aep"}), ElementsAre(UsedFont{"New", "New", "Thin"}));
}

} // namespace
} // namespace kerlune
