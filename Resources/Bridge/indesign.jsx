// Gives the selected text frames, text or characters of InDesign's front document a font.
//
// ECMAScript 3. The value of the script is its answer, one line: OK|COUNT, with a note after a further |, or ERR|TEXT,
// where a TEXT that begins with @ is a code with its arguments after colons. Kerlune puts the font into the string
// literal below, and nowhere else. The command that runs the script names the undo step.
(function () {
    var fontName = "__PSNAME__";
    var refusal = null;
    var changed = 0;

    function oneLine(text) {
        return String(text).replace(/[\r\n\u2028\u2029]+/g, " ");
    }

    function argument(text) {
        return oneLine(text).replace(/:/g, "\u2236"); // a colon would end it
    }

    function has(item, property) {
        return item.hasOwnProperty(property) || property in item;
    }

    // The list also names fonts that documents use and nobody has.
    function isInstalled(font) {
        return typeof FontStatus == "undefined" || font.status == FontStatus.INSTALLED;
    }

    function nameOf(font) {
        try {
            return font.postscriptName;
        } catch (error) {
            return null; // a damaged font
        }
    }

    // One call for all names, where it succeeds, is much faster than one for each.
    function allNames() {
        try {
            return app.fonts.everyItem().postscriptName;
        } catch (error) {
            var names = [];
            for (var i = 0; i < app.fonts.length; i++) {
                names.push(nameOf(app.fonts[i]));
            }
            return names;
        }
    }

    function knownFont() {
        var names = allNames();
        for (var i = 0; i < names.length; i++) {
            if (names[i] == fontName && isInstalled(app.fonts[i])) {
                return app.fonts[i];
            }
        }
        return null;
    }

    function isCaret(item) {
        return item.constructor != null && item.constructor.name == "InsertionPoint";
    }

    function addText(text, texts) {
        if (text.contents !== "") {
            texts.push(text);
        }
    }

    function addEachText(items, texts) {
        for (var i = 0; i < items.length; i++) {
            addText(items[i], texts);
        }
    }

    function addTextsOfEach(items, texts) {
        for (var i = 0; i < items.length; i++) {
            addTexts(items[i], texts);
        }
    }

    // Text has a font itself; frames and cells hold texts; groups and tables hold these, and any shape may carry text
    // along its outline.
    function addTexts(item, texts) {
        if (isCaret(item)) {
            return;
        }
        if (has(item, "appliedFont")) {
            addText(item, texts);
            return;
        }
        if (has(item, "texts")) {
            addEachText(item.texts, texts);
        } else if (has(item, "pageItems")) {
            addTextsOfEach(item.pageItems, texts);
        } else if (has(item, "cells")) {
            addTextsOfEach(item.cells, texts);
        }
        if (has(item, "textPaths")) {
            addTextsOfEach(item.textPaths, texts);
        }
    }

    function change(texts, font) {
        for (var i = 0; i < texts.length; i++) {
            try {
                texts[i].appliedFont = font;
                changed++;
            } catch (error) {
                refusal = error.message; // a locked story
            }
        }
    }

    function answer() {
        if (app.documents.length == 0) {
            return "ERR|@NO_DOCUMENT";
        }
        var selection = app.selection;
        if (!selection || selection.length == 0) {
            return "ERR|@NO_SELECTION";
        }
        var texts = [];
        addTextsOfEach(selection, texts);
        if (texts.length == 0) {
            return "ERR|@NO_TEXT";
        }
        var font = knownFont();
        if (font == null) {
            return "ERR|@UNKNOWN_FONT:" + argument(fontName);
        }
        change(texts, font);
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
