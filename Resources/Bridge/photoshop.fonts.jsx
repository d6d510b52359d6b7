// Lists the fonts that documents of Photoshop use, those that are missing included: see fonts.jsxinc.
(function () {
    //@include "fonts.jsxinc"

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

    addWantedDocuments(addDocument);
    return lines.join("\n");
}());
