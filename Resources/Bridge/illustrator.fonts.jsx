// Lists the fonts that documents of Illustrator use, those that are missing included: see fonts.jsxinc.
(function () {
    //@include "fonts.jsxinc"

    var wordsLeft = 5000; // looked at: a book must not keep the host busy

    function plain(xml) {
        return xml.replace(/&#x([0-9A-Fa-f]+);/g, function (all, digits) {
            return String.fromCharCode(parseInt(digits, 16));
        }).replace(/&lt;/g, "<").replace(/&gt;/g, ">").replace(/&quot;/g, "\"").replace(/&apos;/g, "'")
            .replace(/&amp;/g, "&");
    }

    // As an element or as an attribute, after XMP's part 1, 7.9.
    function property(item, name) {
        var found = new RegExp("<stFnt:" + name + ">([^<]*)<").exec(item) ||
            new RegExp("stFnt:" + name + "=\"([^\"]*)\"").exec(item);
        return found ? plain(found[1]) : "";
    }

    // The document's own list, as it was last saved, holds fonts that are missing (XMP's part 2, xmpTPg:Fonts).
    function addListedFonts(doc) {
        var list = /<xmpTPg:Fonts>([\s\S]*?)<\/xmpTPg:Fonts>/.exec(doc.XMPString || "");
        var items = list ? list[1].split("<rdf:li") : [];
        for (var i = 1; i < items.length; i++) {
            add(property(items[i], "fontName"), property(items[i], "fontFamily"), property(items[i], "fontFace"));
        }
    }

    function addFontOf(range) {
        try {
            var font = range.characterAttributes.textFont;
            add(font.name, font.family, font.style);
        } catch (error) {
            return; // a missing font is none to the object tree
        }
    }

    function addUsedFonts(doc) {
        for (var i = 0; i < doc.textFrames.length; i++) {
            var words = doc.textFrames[i].words;
            for (var j = 0; j < words.length && wordsLeft > 0; j++, wordsLeft--) {
                addFontOf(words[j]);
            }
        }
    }

    function addDocument(doc) {
        addListedFonts(doc);
        addUsedFonts(doc);
    }

    addWantedDocuments(addDocument);
    return lines.join("\n");
}());
