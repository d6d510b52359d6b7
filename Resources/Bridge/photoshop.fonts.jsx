// Lists the fonts that documents of Photoshop use, those that are missing included.
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

    function type(name) {
        return app.stringIDToTypeID(name);
    }

    function textOf(descriptor, key) {
        return descriptor.hasKey(type(key)) ? descriptor.getString(type(key)) : "";
    }

    // A style holds what differs from the one that it is based on.
    function holderOf(style) {
        var base = type("baseParentStyle");
        return style.hasKey(type("fontPostScriptName")) || !style.hasKey(base) ? style : style.getObjectValue(base);
    }

    // Each stretch of a text has a style of its own. The object tree tells that of the first only.
    function addStretches(doc, layer) {
        var reference = new ActionReference();
        reference.putIdentifier(app.charIDToTypeID("Lyr "), layer.id);
        reference.putIdentifier(app.charIDToTypeID("Dcmn"), doc.id);
        var ranges = app.executeActionGet(reference).getObjectValue(type("textKey")).getList(type("textStyleRange"));
        for (var i = 0; i < ranges.count; i++) {
            var style = holderOf(ranges.getObjectValue(i).getObjectValue(type("textStyle")));
            add(textOf(style, "fontPostScriptName"), textOf(style, "fontName"), textOf(style, "fontStyleName"));
        }
    }

    function addTextLayer(doc, layer) {
        try {
            addStretches(doc, layer);
        } catch (error) {
            try {
                add(layer.textItem.font, "", "");
            } catch (another) {
                return; // a text that has no characters has no font
            }
        }
    }

    function addLayers(doc, layers) {
        for (var i = 0; i < layers.length; i++) {
            if (layers[i].typename == "LayerSet") {
                addLayers(doc, layers[i].layers);
            } else if (layers[i].kind == LayerKind.TEXT) {
                addTextLayer(doc, layers[i]);
            }
        }
    }

    function addDocument(doc) {
        addLayers(doc, doc.layers);
    }

    for (var i = 0; i < app.documents.length; i++) {
        if (isWanted(app.documents[i].name)) {
            addDocument(app.documents[i]);
        }
    }
    return lines.join("\n");
}());
