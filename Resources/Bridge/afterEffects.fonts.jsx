// Lists the fonts that documents of After Effects use, those that are missing included: see fonts.jsxinc.
(function () {
    //@include "fonts.jsxinc"

    // By the names that are the same in every language; null when it is no text layer.
    function sourceText(layer) {
        var group = layer.property("ADBE Text Properties");
        return group ? group.property("ADBE Text Document") : null;
    }

    function addText(text) {
        add(text.font, text.fontFamily, text.fontStyle);
    }

    function addLayer(layer) {
        var source = sourceText(layer);
        if (!source) {
            return;
        }
        addText(source.value);
        for (var key = 1; key <= source.numKeys; key++) {
            addText(source.keyValue(key));
        }
    }

    function addCompositions(project) {
        for (var i = 1; i <= project.numItems; i++) {
            var item = project.item(i);
            for (var j = 1; item.layers && j <= item.numLayers; j++) {
                addLayer(item.layer(j));
            }
        }
    }

    // Version 24.5 and later.
    function addUsedFonts(fonts) {
        for (var i = 0; i < fonts.length; i++) {
            add(fonts[i].font.postScriptName, fonts[i].font.familyName, fonts[i].font.styleName);
        }
    }

    // The one document is the project.
    var project = app.project;
    if (project && project.file && isWanted(project.file.displayName)) {
        if (project.usedFonts) {
            addUsedFonts(project.usedFonts);
        } else {
            addCompositions(project);
        }
    }
    return lines.join("\n");
}());
