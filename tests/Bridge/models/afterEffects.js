// The part of After Effects' object tree that its script touches. A text document is a copy: only what is set counts.
var model = {steps: [], isStepOpen: false, known: {"Old": true, "Inter-Bold": true}};

function copy(textDocument) {
    return {font: textDocument.font};
}

// What is put into a text whose font nobody knows keeps the old one.
function kept(textDocument) {
    if (!model.isStepOpen) {
        throw new Error("outside of an undo step");
    }
    return {font: model.known[textDocument.font] ? textDocument.font : "Old"};
}

function sourceText(keyCount) {
    var documents = [{font: "Old"}];
    for (var i = 1; i < keyCount; i++) {
        documents.push({font: "Old"});
    }
    var property = {
        numKeys: keyCount,
        keyValue: function (key) { return copy(documents[key - 1]); },
        setValueAtKey: function (key, value) { documents[key - 1] = kept(value); },
        setValue: function (value) {
            if (keyCount > 0) {
                throw new Error("Cannot call setValue() on a property with keyframes.");
            }
            documents[0] = kept(value);
        },
        fonts: function () {
            var fonts = [];
            for (var i = 0; i < documents.length; i++) {
                fonts.push(documents[i].font);
            }
            return fonts.join(" ");
        }
    };
    defineProperty(property, "value", {get: function () { return copy(documents[0]); }});
    return property;
}

function textLayer(keyCount) {
    var text = sourceText(keyCount || 0);
    return {text: text, property: function (name) {
        return name != "ADBE Text Properties" ? null : {property: function (inner) {
            return inner == "ADBE Text Document" ? text : null;
        }};
    }};
}

function failingLayer() {
    var layer = textLayer();
    layer.text.setValue = function () { throw new Error("The layer is\r\nlocked: |"); };
    return layer;
}

function solidLayer() {
    return {property: function () { return null; }};
}

function open(layers) {
    app.project = {activeItem: {selectedLayers: layers}};
}

var app = {
    project: {activeItem: null},
    beginUndoGroup: function (name) { model.steps.push(name); model.isStepOpen = true; },
    endUndoGroup: function () { model.isStepOpen = false; }
};

// Version 24 and later.
function offerFonts() {
    app.fonts = {getFontsByPostScriptName: function (name) {
        return [{postScriptName: name, isSubstitute: !model.known[name]}];
    }};
}
