// Gives the selected text objects or characters of Illustrator's front document a font.
//
// ECMAScript 3. The value of the script is its answer, one line: OK|COUNT, with a note after a further |, or ERR|TEXT,
// where a TEXT that begins with @ is a code with its arguments after colons. Kerlune puts the font into the string
// literal below, and nowhere else. Illustrator makes one undo step of a script and names it itself.
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

    // Its names are PostScript names; it throws where there is none.
    function knownFont() {
        try {
            return app.textFonts.getByName(fontName) || null;
        } catch (error) {
            return null;
        }
    }

    function addRange(range, ranges) {
        if (range.length !== 0) { // a caret has no characters
            ranges.push(range);
        }
    }

    function addRanges(item, ranges) {
        if (item.typename == "TextRange") {
            addRange(item, ranges);
        } else if (item.typename == "TextFrame") {
            addRange(item.textRange, ranges);
        } else if (item.typename == "GroupItem") {
            for (var i = 0; i < item.pageItems.length; i++) {
                addRanges(item.pageItems[i], ranges);
            }
        }
    }

    // Characters that are selected in a text are one range, objects are an array.
    function selectedItems(doc) {
        var selection = doc.selection;
        if (!selection) {
            return [];
        }
        return selection.typename == "TextRange" ? [selection] : selection;
    }

    function change(ranges, font) {
        for (var i = 0; i < ranges.length; i++) {
            try {
                ranges[i].characterAttributes.textFont = font;
                changed++;
            } catch (error) {
                refusal = error.message;
            }
        }
    }

    function answer() {
        if (app.documents.length == 0) {
            return "ERR|@NO_DOCUMENT";
        }
        var items = selectedItems(app.activeDocument);
        if (items.length == 0) {
            return "ERR|@NO_SELECTION";
        }
        var ranges = [];
        for (var i = 0; i < items.length; i++) {
            addRanges(items[i], ranges);
        }
        if (ranges.length == 0) {
            return "ERR|@NO_TEXT";
        }
        var font = knownFont();
        if (font == null) {
            return "ERR|@UNKNOWN_FONT:" + argument(fontName);
        }
        change(ranges, font);
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
