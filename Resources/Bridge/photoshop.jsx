// Gives the selected text layers of Photoshop's front document a font.
//
// ECMAScript 3. The value of the script is its answer, one line: OK|COUNT, with a note after a further |, or ERR|TEXT,
// where a TEXT that begins with @ is a code with its arguments after colons. Kerlune puts the font and the name of the
// undo step into the two string literals below, and nowhere else.
(function () {
    var fontName = "__PSNAME__";
    var undoName = "__UNDO_NAME__";
    var refusal = null;
    var changed = 0;

    function oneLine(text) {
        return String(text).replace(/[\r\n\u2028\u2029]+/g, " ");
    }

    function argument(text) {
        return oneLine(text).replace(/:/g, "\u2236"); // a colon would end it
    }

    // Null where this version does not tell.
    function selectedIdentifiers() {
        try {
            var reference = new ActionReference();
            reference.putEnumerated(app.charIDToTypeID("Dcmn"), app.charIDToTypeID("Ordn"), app.charIDToTypeID("Trgt"));
            var description = app.executeActionGet(reference);
            var key = app.stringIDToTypeID("targetLayersIDs");
            var identifiers = [];
            if (!description.hasKey(key)) {
                return identifiers;
            }
            var list = description.getList(key);
            for (var i = 0; i < list.count; i++) {
                identifiers.push(list.getReference(i).getIdentifier());
            }
            return identifiers;
        } catch (error) {
            return null;
        }
    }

    function addLayers(layers, wanted, found) {
        for (var i = 0; i < layers.length; i++) {
            var layer = layers[i];
            if (wanted["layer " + layer.id]) {
                found.push(layer);
            }
            if (layer.typename == "LayerSet") {
                addLayers(layer.layers, wanted, found);
            }
        }
    }

    function activeLayer(doc) {
        try {
            return doc.activeLayer;
        } catch (error) {
            return null; // none is selected
        }
    }

    function selectedLayers(doc) {
        var identifiers = selectedIdentifiers();
        if (identifiers == null || identifiers.length == 1) {
            var active = activeLayer(doc);
            return active ? [active] : [];
        }
        var wanted = {};
        for (var i = 0; i < identifiers.length; i++) {
            wanted["layer " + identifiers[i]] = true;
        }
        var found = [];
        addLayers(doc.layers, wanted, found);
        return found;
    }

    function textLayers(layers) {
        var found = [];
        for (var i = 0; i < layers.length; i++) {
            if (layers[i].kind == LayerKind.TEXT) {
                found.push(layers[i]);
            }
        }
        return found;
    }

    // Photoshop takes any name, and shows another font where it knows none of that name.
    function isKnown() {
        for (var i = 0; i < app.fonts.length; i++) {
            if (app.fonts[i].postScriptName == fontName) {
                return true;
            }
        }
        return false;
    }

    function change(layers) {
        for (var i = 0; i < layers.length; i++) {
            try {
                layers[i].textItem.font = fontName;
                changed++;
            } catch (error) {
                refusal = error.message; // a locked layer
            }
        }
    }

    // suspendHistory() evaluates a text, which sees only what is global.
    function changeInOneStep(doc, layers) {
        if (!doc.suspendHistory) {
            change(layers);
            return;
        }
        var everyone = (function () { return this; }());
        everyone.kerluneChange = function () { change(layers); };
        try {
            doc.suspendHistory(undoName, "kerluneChange()");
        } finally {
            everyone.kerluneChange = undefined;
        }
    }

    function answer() {
        if (app.documents.length == 0) {
            return "ERR|@NO_DOCUMENT";
        }
        var doc = app.activeDocument;
        var selected = selectedLayers(doc);
        if (selected.length == 0) {
            return "ERR|@NO_SELECTION";
        }
        var texts = textLayers(selected);
        if (texts.length == 0) {
            return "ERR|@PS_SELECT_TEXT_LAYER:" + argument(selected[0].name);
        }
        if (!isKnown()) {
            return "ERR|@UNKNOWN_FONT:" + argument(fontName);
        }
        changeInOneStep(doc, texts);
        if (changed == 0) {
            return "ERR|" + oneLine(refusal);
        }
        return "OK|" + changed + (refusal == null ? "" : "|" + oneLine(refusal));
    }

    try {
        return answer();
    } catch (error) {
        return "ERR|" + oneLine(error.message || error);
    }
}());
