// The part of Photoshop's object tree that its script touches.
var LayerKind = {NORMAL: "LayerKind.NORMAL", TEXT: "LayerKind.TEXT"};
var model = {selected: [], steps: []}; // identifiers of selected layers, names of undo steps

function textLayer(id, name) {
    return {typename: "ArtLayer", id: id, name: name, kind: LayerKind.TEXT, textItem: {font: "Old"}};
}

function lockedLayer(id, name) {
    var layer = textLayer(id, name);
    defineProperty(layer.textItem, "font", {
        get: function () { return "Old"; },
        set: function () { throw new Error("The layer\nis locked."); }
    });
    return layer;
}

function pixelLayer(id, name) {
    return {typename: "ArtLayer", id: id, name: name, kind: LayerKind.NORMAL};
}

function group(id, name, layers) {
    return {typename: "LayerSet", id: id, name: name, layers: layers};
}

function layerOf(layers, id) {
    for (var i = 0; i < layers.length; i++) {
        var found = layers[i].id == id ? layers[i] : layers[i].layers ? layerOf(layers[i].layers, id) : null;
        if (found) {
            return found;
        }
    }
    return null;
}

function open(layers, selected) {
    model.selected = selected;
    var doc = {layers: layers, suspendHistory: function (name, script) { model.steps.push(name); (0, eval)(script); }};
    defineProperty(doc, "activeLayer", {get: function () {
        if (model.selected.length == 0) {
            throw new Error("No such element");
        }
        return layerOf(layers, model.selected[model.selected.length - 1]);
    }});
    app.documents.push(doc);
}

function fontsOf(ids) {
    var fonts = [];
    for (var i = 0; i < ids.length; i++) {
        fonts.push(layerOf(app.activeDocument.layers, ids[i]).textItem.font);
    }
    return fonts.join(" ");
}

function openNamed(id, name, layers) {
    app.documents.push({id: id, name: name, layers: layers});
}

// A text in several styles, each a tree of what differs from the one that it is based on.
function withStretches(layer, stretches) {
    layer.textStyleRange = stretches;
    return layer;
}

function descriptor(values) {
    return {
        hasKey: function (key) { return values.hasOwnProperty(key); },
        getString: function (key) { return values[key]; },
        getObjectValue: function (key) { return descriptor(values[key]); },
        getList: function (key) {
            return {count: values[key].length, getObjectValue: function (i) { return descriptor(values[key][i]); }};
        }
    };
}

function describedLayer(documentId, layerId) {
    for (var i = 0; i < app.documents.length; i++) {
        if (app.documents[i].id == documentId) {
            return layerOf(app.documents[i].layers, layerId);
        }
    }
    return null;
}

function ActionReference() {
    this.identifiers = {};
}
ActionReference.prototype.putIdentifier = function (type, identifier) {
    this.identifiers[type] = identifier;
};
ActionReference.prototype.putEnumerated = function (type, enumeration, value) {
    this.isFrontDocument = type == "Dcmn" && enumeration == "Ordn" && value == "Trgt";
};

var app = {
    documents: [],
    fonts: [{name: "Old", postScriptName: "Old"}, {name: "Inter Bold", postScriptName: "Inter-Bold"}],
    charIDToTypeID: function (id) { return id; },
    stringIDToTypeID: function (id) { return id; },
    executeActionGet: function (reference) {
        var layer = describedLayer(reference.identifiers["Dcmn"], reference.identifiers["Lyr "]);
        if (layer && layer.textStyleRange) {
            return descriptor({textKey: {textStyleRange: layer.textStyleRange}});
        }
        if (!reference.isFrontDocument) {
            throw new Error("General Photoshop error");
        }
        return {
            hasKey: function (key) { return key == "targetLayersIDs" && model.selected.length > 0; },
            getList: function () {
                return {count: model.selected.length, getReference: function (i) {
                    return {getIdentifier: function () { return model.selected[i]; }};
                }};
            }
        };
    }
};
defineProperty(app, "activeDocument", {get: function () {
    if (app.documents.length == 0) {
        throw new Error("No documents open");
    }
    return app.documents[app.documents.length - 1];
}});
