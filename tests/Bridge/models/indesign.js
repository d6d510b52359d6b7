// The part of InDesign's object tree that its script touches. Properties are found on prototypes, as those of a host are.
var FontStatus = {INSTALLED: 1685352308, NOT_AVAILABLE: 1684958305};

function Text(contents) {
    this.contents = contents;
    this.font = "Old";
}
defineProperty(Text.prototype, "appliedFont", {
    get: function () { return this.font; },
    set: function (font) {
        if (this.isLocked) {
            throw new Error("The story is locked.");
        }
        this.font = font.postscriptName;
    }
});

function InsertionPoint() {}
InsertionPoint.prototype.appliedFont = null;

function TextFrame(contents) {
    this.texts = [new Text(contents)];
    this.textPaths = [];
}

function Rectangle(items) {
    this.pageItems = items || [];
    this.textPaths = [];
}

function withTextPath(item, contents) {
    item.textPaths.push({texts: [new Text(contents)]});
    return item;
}

function Group(items) {
    this.pageItems = items;
}

function Cell(contents) {
    this.texts = [new Text(contents)];
}

function Table(cells) {
    this.cells = cells;
}

function font(name, status) {
    return {postscriptName: name, status: status};
}

function damagedFont() {
    return defineProperty({status: FontStatus.INSTALLED}, "postscriptName", {get: function () {
        throw new Error("Invalid object for this request.");
    }});
}

function fontList(fonts) {
    fonts.everyItem = function () {
        var names = [];
        for (var i = 0; i < fonts.length; i++) {
            names.push(fonts[i].postscriptName);
        }
        return {postscriptName: names};
    };
    return fonts;
}

function open(selection) {
    app.documents.push({});
    app.selection = selection;
}

var app = {
    documents: [],
    selection: [],
    fonts: fontList([font("Old", FontStatus.INSTALLED), font("Inter-Bold", FontStatus.NOT_AVAILABLE),
                     font("Inter-Bold", FontStatus.INSTALLED), font("Lost", FontStatus.NOT_AVAILABLE)])
};
