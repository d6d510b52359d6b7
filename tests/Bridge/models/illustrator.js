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

// A word without a name has a font that is missing.
function word(name, family, style) {
    var attributes = {textFont: {name: name, family: family, style: style}};
    if (name === null) {
        defineProperty(attributes, "textFont", {get: function () { throw new Error("No such element"); }});
    }
    return {characterAttributes: attributes};
}

function openNamed(name, xmp, frames) {
    var textFrames = [];
    for (var i = 0; i < frames.length; i++) {
        textFrames.push({words: frames[i]});
    }
    app.documents.push({name: name, XMPString: xmp, textFrames: textFrames});
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
