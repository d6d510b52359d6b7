// The part of Illustrator's object tree that its script touches.
function textRange(length) {
    return {typename: "TextRange", length: length, characterAttributes: {textFont: {name: "Old"}}};
}

function textFrame(length) {
    return {typename: "TextFrame", textRange: textRange(length)};
}

function lockedFrame() {
    var frame = textFrame(3);
    defineProperty(frame.textRange.characterAttributes, "textFont", {set: function () {
        throw new Error("Target layer\u2028cannot be modified");
    }});
    return frame;
}

function path() {
    return {typename: "PathItem"};
}

function group(items) {
    return {typename: "GroupItem", pageItems: items};
}

function open(selection) {
    app.documents.push({selection: selection});
}

function fontOf(range) {
    return range.characterAttributes.textFont.name;
}

var app = {
    documents: [],
    fontNames: {"Inter-Bold": true},
    textFonts: {getByName: function (name) {
        if (!app.fontNames.hasOwnProperty(name)) {
            throw new Error("No such element");
        }
        return {typename: "TextFont", name: name};
    }}
};
defineProperty(app, "activeDocument", {get: function () {
    if (app.documents.length == 0) {
        throw new Error("There is no document");
    }
    return app.documents[app.documents.length - 1];
}});
