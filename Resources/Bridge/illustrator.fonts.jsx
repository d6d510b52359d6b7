// Lists the fonts that documents of Illustrator use, those that are missing included.
//
// ECMAScript 3. The value of the script is its answer: a line for each font, with its PostScript name, family and style
// and a tab between them; what is not known is empty. Kerlune puts the names of the documents into the string literal
// below, each on a line, and nowhere else.
(function () {
    var documentNames = "__DOCUMENTS__".split("\n");
    var lines = [];
    var isListed = {};

    function field(text) {
        return text == null ? "" : String(text).replace(/[\t\r\n\u2028\u2029]+/g, " ");
    }

    function add(postScriptName, family, style) {
        var line = field(postScriptName) + "\t" + field(family) + "\t" + field(style);
        if (!isListed["font " + line]) {
            isListed["font " + line] = true;
            lines.push(line);
        }
    }

    function isWanted(name) {
        for (var i = 0; i < documentNames.length; i++) {
            if (documentNames[i] == name) {
                return true;
            }
        }
        return false;
    }

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

    for (var i = 0; i < app.documents.length; i++) {
        if (isWanted(app.documents[i].name)) {
            addDocument(app.documents[i]);
        }
    }
    return lines.join("\n");
}());
