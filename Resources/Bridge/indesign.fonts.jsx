// Lists the fonts that documents of InDesign use, those that are missing included.
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

    for (var i = 0; i < app.documents.length; i++) {
        if (isWanted(app.documents[i].name)) {
            addDocument(app.documents[i]);
        }
    }
    return lines.join("\n");
}());
