// Gives the selected text layers of After Effects' active composition a font.
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

    // Folders and footage have no layers.
    function activeComposition() {
        var item = app.project ? app.project.activeItem : null;
        return item && item.selectedLayers ? item : null;
    }

    // By the names that are the same in every language; null when it is no text layer.
    function sourceText(layer) {
        var group = layer.property("ADBE Text Properties");
        return group ? group.property("ADBE Text Document") : layer.property("Source Text");
    }

    function sourceTexts(layers) {
        var found = [];
        for (var i = 0; i < layers.length; i++) {
            var text = sourceText(layers[i]);
            if (text) {
                found.push(text);
            }
        }
        return found;
    }

    // Versions before 24 do not tell; they are asked by whether the text keeps the font.
    function isUnknown() {
        if (!app.fonts || !app.fonts.getFontsByPostScriptName) {
            return false;
        }
        var fonts = app.fonts.getFontsByPostScriptName(fontName);
        for (var i = 0; i < fonts.length; i++) {
            if (!fonts[i].isSubstitute) {
                return false;
            }
        }
        return true;
    }

    function withFont(textDocument) {
        textDocument.font = fontName;
        return textDocument;
    }

    // Of a text that changes over time, at each of its keyframes. Says whether the font has been kept.
    function changeText(text) {
        for (var key = 1; key <= text.numKeys; key++) {
            text.setValueAtKey(key, withFont(text.keyValue(key)));
        }
        if (!text.numKeys) {
            text.setValue(withFont(text.value));
        }
        return text.value.font == fontName;
    }

    function change(texts) {
        app.beginUndoGroup(undoName);
        try {
            for (var i = 0; i < texts.length; i++) {
                try {
                    if (changeText(texts[i])) {
                        changed++;
                    } else {
                        refusal = "@UNKNOWN_FONT:" + argument(fontName);
                    }
                } catch (error) {
                    refusal = oneLine(error.message);
                }
            }
        } finally {
            app.endUndoGroup();
        }
    }

    function answer() {
        var composition = activeComposition();
        if (composition == null) {
            return "ERR|@AE_NO_COMP";
        }
        var layers = composition.selectedLayers;
        if (layers.length == 0) {
            return "ERR|@AE_NO_LAYER";
        }
        var texts = sourceTexts(layers);
        if (texts.length == 0) {
            return "ERR|@AE_NO_TEXT_LAYER";
        }
        if (isUnknown()) {
            return "ERR|@UNKNOWN_FONT:" + argument(fontName);
        }
        change(texts);
        if (changed == 0) {
            return "ERR|" + refusal;
        }
        return "OK|" + changed + (refusal == null ? "" : "|" + refusal);
    }

    try {
        return answer();
    } catch (error) {
        return "ERR|" + oneLine(error.message || error);
    }
}());
