// Lists the fonts that documents of InDesign use, those that are missing included: see fonts.jsxinc.
(function () {
    //@include "fonts.jsxinc"

    function read(font, name) {
        try {
            return font[name];
        } catch (error) {
            return ""; // of a missing font, some names are not known
        }
    }

    // Its list of fonts is that of the document, with those that are missing.
    function addDocument(doc) {
        for (var i = 0; i < doc.fonts.length; i++) {
            var font = doc.fonts[i];
            add(read(font, "postscriptName"), read(font, "fontFamily"), read(font, "fontStyleName"));
        }
    }

    addWantedDocuments(addDocument);
    return lines.join("\n");
}());
