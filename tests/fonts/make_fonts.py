#!/usr/bin/env python3
"""Draws the small fonts that the tests read: make_fonts.py OUTDIR

Every font is there for one trait or one fault, and comes out with the same bytes on every run.
"""

from __future__ import annotations

import io
import struct
import sys
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any, Callable

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.fontBuilder import FontBuilder, buildCmapSubTable
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTCollection, TTFont, newTable
from fontTools.ttLib.sfnt import SFNTWriter
from fontTools.ttLib.tables import otTables
from fontTools.ttLib.tables.TupleVariation import TupleVariation
from fontTools.varLib.builder import buildVarData, buildVarRegionList, buildVarStore

Tables = dict[str, bytes]
Polygon = list[tuple[int, int]]
Record = tuple[int, int, int, int, bytes]  # platform, encoding, language, name ID, text

TIMESTAMP = 3_786_912_000  # 2024-01-01, in seconds since 1904
FRENCH, ENGLISH, JAPANESE = 0x40C, 0x409, 0x411


def characters(first: int, count: int) -> str:
    return "".join(map(chr, range(first, first + count)))


UPPER, LOWER, DIGITS = characters(0x41, 26), characters(0x61, 26), characters(0x30, 10)
LATIN = " " + UPPER + LOWER + DIGITS + ".,;:!?"
FILLER = characters(0xE000, 110)
FULL = LATIN + FILLER  # 180 glyphs with .notdef
ARABIC = "ابتثجحخدذرزسشصضطظعغفقكلمنهوي"
ACCENTS = "àâäçéèêëîïôöùûüÿœÀÂÇÉÈÊËÎÏÔÖÙÛÜŒ«»"


def box(left: int, bottom: int, right: int, top: int) -> Polygon:
    return [(left, bottom), (left, top), (right, top), (right, bottom)]


def capital_i(foot: int, bottom: int = 0, top: int = 700) -> Polygon:
    """A stem 100 wide between two serifs of the width `foot`, 60 high."""
    near, far = (foot - 100) // 2, (foot + 100) // 2
    low, high = bottom + 60, top - 60
    left = [(0, bottom), (0, low), (near, low), (near, high), (0, high), (0, top)]
    return left + [(foot - x, y) for x, y in reversed(left)]


def drawing(character: str, heights: tuple[int, int]) -> Polygon:
    if character.isspace():
        return []
    x_height, cap_height = heights
    right = 150 if character == "I" else 400 + ord(character) % 7 * 10
    return box(50, 0, right, x_height if character.islower() else cap_height)


def outline(polygon: Polygon) -> Any:
    pen = TTGlyphPen(None)
    if polygon:
        pen.moveTo(polygon[0])
        for point in polygon[1:]:
            pen.lineTo(point)
        pen.closePath()
    return pen.glyph()


def glyph_name(character: str) -> str:
    return f"u{ord(character):04X}"


def windows(name_id: int, text: str, language: int = ENGLISH) -> Record:
    return (3, 1, language, name_id, text.encode("utf-16-be"))


def mac(name_id: int, text: bytes, language: int = 0) -> Record:
    return (1, 0, language, name_id, text)


def name_table(records: list[Record]) -> bytes:
    directory, storage = b"", b""
    for record in sorted(records):
        directory += struct.pack(">6H", *record[:4], len(record[4]), len(storage))
        storage += record[4]
    return struct.pack(">3H", 0, len(records), 6 + len(directory)) + directory + storage


def assemble(tables: Tables) -> bytes:
    stream = io.BytesIO()
    writer = SFNTWriter(stream, len(tables))
    for tag, data in sorted(tables.items()):
        writer[tag] = data
    writer.close()
    return stream.getvalue()


def opened(tables: Tables) -> TTFont:
    return TTFont(io.BytesIO(assemble(tables)), recalcTimestamp=False)


def saved(font: TTFont) -> bytes:
    stream = io.BytesIO()
    font.save(stream)
    return stream.getvalue()


def tables_of(font: TTFont) -> Tables:
    reader = TTFont(io.BytesIO(saved(font))).reader
    return {tag: reader[tag] for tag in reader.keys()}


def patched(tables: Tables, tag: str, offset: int, data: bytes) -> Tables:
    table = tables[tag]
    return tables | {tag: table[:offset] + data + table[offset + len(data):]}


def without(tables: Tables, tag: str) -> Tables:
    return {other: data for other, data in tables.items() if other != tag}


@dataclass
class Design:
    """What sets one font apart. `subtables` lists the format, platform and encoding of each cmap.

    `names` adds to the English names or, with None, takes away; `records` replaces them all.
    """
    charset: str = LATIN
    heights: tuple[int, int] = (500, 700)
    drawings: dict[str, Polygon] = field(default_factory=dict)
    advance: int = 0
    unmapped: str = ""
    remap: dict[str, str] = field(default_factory=dict)
    subtables: tuple[tuple[int, int, int], ...] = ((4, 3, 1),)
    os2: dict[str, Any] = field(default_factory=dict)
    head: dict[str, Any] = field(default_factory=dict)
    post: dict[str, Any] = field(default_factory=dict)
    postscript: str = ""
    names: dict[int, str | None] = field(default_factory=dict)
    records: list[Record] = field(default_factory=list)

    def mapping(self) -> dict[int, str]:
        mapping = {ord(c): glyph_name(c) for c in self.charset if c not in self.unmapped}
        return mapping | {ord(c): target for c, target in self.remap.items()}

    def polygons(self) -> dict[str, Polygon]:
        return {".notdef": box(50, 0, 450, 700)} | {
            glyph_name(c): self.drawings.get(c, drawing(c, self.heights)) for c in self.charset}


def advance_and_bearing(polygon: Polygon, advance: int) -> tuple[int, int]:
    columns = [x for x, _ in polygon] or [0, 200]
    return advance or max(columns) + 50, min(columns)


def build(family: str, **design_fields: Any) -> Tables:
    design = Design(**design_fields)
    polygons, mapping = design.polygons(), design.mapping()
    builder = FontBuilder(1000, isTTF=True)
    builder.updateHead(created=TIMESTAMP, modified=TIMESTAMP, **design.head)
    builder.setupGlyphOrder(list(polygons))
    builder.setupCharacterMap(mapping)
    builder.font["cmap"].tables = [buildCmapSubTable(mapping, *kind) for kind in design.subtables]
    builder.setupGlyf({name: outline(polygon) for name, polygon in polygons.items()})
    builder.setupHorizontalMetrics({
        name: advance_and_bearing(polygon, design.advance) for name, polygon in polygons.items()})
    builder.setupHorizontalHeader(ascent=800, descent=-200)
    x_height, cap_height = design.heights
    builder.setupOS2(**{"version": 4, "fsType": 8, "fsSelection": 0x40, "sTypoAscender": 800,
                        "sTypoDescender": -200, "usWinAscent": 800, "usWinDescent": 200,
                        "sxHeight": x_height, "sCapHeight": cap_height} | design.os2)
    builder.setupPost(**design.post)
    records = design.records or english_names(family, design.postscript, design.names)
    return tables_of(builder.font) | {"name": name_table(records)}


def english_names(family: str, postscript: str, changes: dict[int, str | None]) -> list[Record]:
    postscript = postscript or family.replace(" ", "") + "-Regular"
    texts = {1: family, 2: "Regular", 4: f"{family} Regular", 5: "Version 1.000", 6: postscript}
    return [windows(name_id, text) for name_id, text in (texts | changes).items() if text]


PLAIN_NAMES = {
    0: "© 2024 Essai", 3: "1.250;ESSAI;EssaiPlain-Regular", 5: "Version 1.250",
    8: "Fonderie Essai", 9: "Élodie Martin", 13: "Usage libre pour essai",
    14: "https://example.org/licence",
}


def plain() -> Tables:
    return build("Essai Plain", names=PLAIN_NAMES)


def arch(stem: int, counter: int, height: int = 400) -> Polygon:
    """Two stems and a bar of the same thickness over them."""
    inner, outer = stem + counter, 2 * stem + counter
    return [(0, 0), (0, height), (outer, height), (outer, 0), (inner, 0), (inner, height - stem),
            (stem, height - stem), (stem, 0)]


# Letters whose measures can be told in advance. The "o" of the wide one is drawn like an arch of thin and thick parts.
EMPREINTE = {"a": box(0, 0, 400, 400), "n": arch(100, 200), "o": box(0, 0, 400, 400), "g": box(0, 0, 200, 400)}

# File name to family and design.
SIMPLE: dict[str, tuple[str, dict[str, Any]]] = {
    "mono-post": ("Essai Courier", {"post": {"isFixedPitch": 1}, "advance": 600}),
    "italic": ("Essai Italic", {"os2": {"fsSelection": 1}, "head": {"macStyle": 2},
                                "post": {"italicAngle": -12}}),
    "slanted": ("Essai Slanted", {"post": {"italicAngle": -9}}),
    "backslanted": ("Essai Backslanted", {"post": {"italicAngle": 9}}),
    "i-sans": ("Essai Alpha", {"charset": FULL, "drawings": {"I": box(0, 0, 100, 700)}}),
    "i-slab": ("Essai Beta", {"charset": FULL, "drawings": {"I": capital_i(170)}}),
    "i-serif": ("Essai Gamma", {"charset": FULL, "drawings": {"I": capital_i(300)}}),
    "i-short": ("Essai Delta", {"charset": FULL, "drawings": {"I": box(0, 0, 100, 100)}}),
    "i-missing": ("Essai Epsilon", {"charset": FULL, "unmapped": "I"}),
    "i-tall": ("Essai Zeta", {"charset": FULL, "drawings": {"I": capital_i(300, -400, 1200)}}),
    "pictograms": ("Essai Sans", {"charset": characters(0xE000, 17)}),
    "french-no-y": ("Essai Accents", {"charset": LATIN + ACCENTS}),
    "french": ("Essai Accents Y", {"charset": LATIN + ACCENTS + "Ÿ"}),
    "no-embedding": ("Essai Interdit", {"os2": {"fsType": 2}}),
    "cmap-0": ("Essai Octet", {"subtables": ((0, 1, 0),)}),
    "cmap-symbol": ("Essai Prive", {"charset": characters(0xF020, 95), "subtables": ((4, 3, 0),)}),
    "cmap-12": ("Essai Douze", {"subtables": ((12, 3, 10),)}),
    "cmap-glyph0": ("Essai Nul", {"remap": {"A": ".notdef"}}),
    "fingerprint-four": ("Essai Empreinte", {
        "drawings": EMPREINTE, "unmapped": "eR", "advance": 500, "post": {"italicAngle": 9}}),
    "fingerprint-namesake": ("Essai Empreinte", {"drawings": EMPREINTE | {"a": arch(50, 300)}}),
    "fingerprint-arabic": ("Essai Empreinte Arabe", {"charset": LATIN + ARABIC}),
    "fingerprint-three": ("Essai Empreinte Trois", {"drawings": EMPREINTE, "unmapped": "egR"}),
    "fingerprint-flat": ("Essai Empreinte Plate", {"drawings": EMPREINTE, "heights": (5, 10)}),
    "fingerprint-wide": ("Essai Empreinte Large", {
        "drawings": EMPREINTE | {"o": [(0, 0), (0, 1000), (20, 1000), (20, 400), (1000, 400), (1000, 0)]},
        "advance": 2000}),
    "family-10": ("Essai 10", {}),
    "family-9": ("Essai 9", {}),
    "family-9-capitals": ("ESSAI 9", {}),
    "two-a": ("Essai Double", {"names": {5: "Version 1.000"}}),
    "two-b": ("Essai Double", {"names": {5: "Version 2.000"}}),
    "names-typographic": ("Essai Typo Cond Light", {
        "postscript": "EssaiTypo-CondensedLight",
        "names": {16: "Essai Typo", 17: "Condensed Light"}}),
    "names-no-family": ("", {"records": [windows(6, "EssaiNoFamily-Regular")]}),
    "names-no-postscript": ("Essai Anonyme", {"names": {6: None}}),
    "names-hidden": ("Essai Hidden", {"postscript": ".EssaiHidden-Regular"}),
    "names-control": ("", {"records": [
        windows(1, "Essai\x1b]0;x\x07Fin"), windows(6, "EssaiControl-Regular")]}),
    "names-mac-roman": ("", {"records": [
        mac(1, b"Essai Roman"), mac(2, b"Regular"), mac(5, b"Version 1.000"),
        mac(6, b"EssaiRoman-Regular"), mac(9, b"\x82\x8edille\xaa")]}),  # Çédille™
    "names-shift-jis": ("", {"records": [
        (3, 2, JAPANESE, 1, b"\x83\x74\x83\x48\x83\x93\x83\x67"),  # フォント
        windows(2, "Regular"), windows(6, "EssaiKana-Regular")]}),
} | {
    f"family-class-{number:02}": (f"Essai Classe {number:02}", {
        "charset": FULL, "os2": {"sFamilyClass": number << 8}})
    for number in (1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12)
}


def collection() -> bytes:
    bold = {"postscript": "EssaiCollection-Bold", "head": {"macStyle": 1},
            "os2": {"usWeightClass": 700, "fsSelection": 0x20},
            "names": {2: "Bold", 4: "Essai Collection Bold"}}
    faces = TTCollection()
    faces.fonts = [opened(build("Essai Collection", **options)) for options in ({}, bold)]
    stream = io.BytesIO()
    faces.save(stream)
    return stream.getvalue()


AXES = [("wght", 100, 400, 900, "Axe wght"), ("wdth", 75, 100, 125, "Axe wdth"), ("slnt", -12, 0, 0, "Axe slnt")]
INSTANCES = [("Regular", {}, None), ("Bold", {"wght": 700}, "EssaiVariable-Gras"),
             ("Condensed Light", {"wght": 300, "wdth": 75}, None), ("Slanted", {"slnt": -12}, None)]


def x_height_variation(delta: int) -> Any:
    regions = buildVarRegionList([{"wght": (0, 1, 1)}], [axis[0] for axis in AXES])
    record = otTables.MetricsValueRecord()
    record.ValueTag, record.VarIdx = "xhgt", 0
    metrics = otTables.MVAR()
    metrics.Version, metrics.Reserved, metrics.ValueRecordSize = 0x00010000, 0, 8
    metrics.ValueRecord, metrics.ValueRecordCount = [record], 1
    metrics.VarStore = buildVarStore(regions, [buildVarData([0], [[delta]])])
    table = newTable("MVAR")
    table.table = metrics
    return table


def moved(peak: int, points: list[tuple[int, int]], advance: int = 0) -> TupleVariation:
    """Deltas of a glyph at one end of the weight axis, with those of its four phantom points."""
    region = (0, 1, 1) if peak > 0 else (-1, -1, 0)
    return TupleVariation({"wght": region}, points + [(0, 0), (advance, 0), (0, 0), (0, 0)])


def variable() -> Tables:
    font = opened(build("Essai Variable"))
    standard = {axis[0]: axis[2] for axis in AXES}
    FontBuilder(font=font).setupFvar(AXES, [
        {"stylename": style, "location": standard | place, "postscriptfontname": postscript}
        for style, place, postscript in INSTANCES])
    font["fvar"].axes[1].flags = 1  # hidden
    font["MVAR"] = x_height_variation(60)

    def wider(by: int) -> list[tuple[int, int]]:
        return [(0, 0), (0, 0), (by, 0), (by, 0)]

    FontBuilder(font=font).setupGvar({
        "u0049": [moved(1, wider(100), 100), moved(-1, wider(-50), -50)],
        "u0078": [moved(1, [(0, 0), (0, 60), (0, 60), (0, 0)])],
    })
    return tables_of(font)


def layered() -> Tables:
    builder = FontBuilder(font=opened(build("Essai Calques")))
    builder.setupCOLR({"u0041": [("u0042", 0), ("u0043", 1)]}, version=0)
    builder.setupCPAL([[(1, 0, 0, 1), (0, 0, 1, 1)]])
    return tables_of(builder.font)


BOXES = {"A": box(0, 0, 900, 700), "B": box(0, 0, 300, 300), "C": box(200, 200, 500, 500), "D": box(600, 0, 700, 700),
         "E": box(800, 600, 900, 700)}


def colored_boxes() -> Tables:
    builder = FontBuilder(font=opened(build("Essai Teintes", drawings=BOXES)))
    builder.setupCOLR({"u0041": [("u0042", 0), ("u0043", 1), ("u0044", 0xFFFF), ("u0045", 9)]}, version=0)
    builder.setupCPAL([[(1, 0, 0, 1), (0, 0, 1, 128 / 255)], [(0, 1, 1, 1), (1, 1, 1, 1)]])
    return tables_of(builder.font)


def overlapping() -> Tables:
    tables = build("Essai Croise", drawings={"B": box(50, 0, 430, 700), "C": box(250, 0, 450, 700)})
    glyph = 1 + LATIN.index("I")
    return with_glyphs(tables, {glyph: composite(1 + LATIN.index("B"), 1 + LATIN.index("C"))})


def vector_documents() -> Tables:
    font = opened(build("Essai Vecteurs"))
    font["SVG "] = newTable("SVG ")
    shape = '<svg xmlns="http://www.w3.org/2000/svg"><path id="glyph2" d="M0 0h400v-700z"/></svg>'
    font["SVG "].docList = [(shape, 2, 2)]
    return tables_of(font)


def bitmap_strikes() -> Tables:
    strike = struct.pack(">4I24x2H4B", 56, 0, 0, 0, 0, 0, 20, 20, 32, 1)  # 20 pixels, no glyphs
    locations = struct.pack(">2I", 0x00030000, 1) + strike
    return build("Essai Pixels") | {"CBDT": struct.pack(">I", 0x00030000), "CBLC": locations}


def bitmap_images() -> Tables:
    tables = build("Essai Images")
    glyphs = struct.unpack_from(">H", tables["maxp"], 4)[0]
    no_data = [4 + 4 * (glyphs + 1)] * (glyphs + 1)
    strike = struct.pack(f">2H{glyphs + 1}I", 20, 72, *no_data)
    return tables | {"sbix": struct.pack(">2H2I", 1, 1, 1, 12) + strike}


def unsorted_map() -> Tables:
    """A format 4 map of LATIN whose runs are not in the order of their characters."""
    runs = [LOWER, "?", DIGITS, "!", UPPER, ";", ":", ".", ",", " "]
    rows = [(ord(run[-1]), ord(run[0]), 1 + LATIN.index(run[0]) - ord(run[0])) for run in runs]
    rows.append((0xFFFF, 0xFFFF, 1))
    ends, starts, deltas = ([value & 0xFFFF for value in column] for column in zip(*rows))
    count = len(rows)
    power = count.bit_length() - 1
    search = [2 * count, 2 << power, power, 2 * count - (2 << power)]
    words = search + ends + [0] + starts + deltas + [0] * count
    subtable = struct.pack(f">3H{len(words)}H", 4, 6 + 2 * len(words), 0, *words)
    return build("Essai Desordre") | {"cmap": struct.pack(">4HI", 0, 1, 3, 1, 12) + subtable}


def with_glyphs(tables: Tables, changes: dict[int, bytes]) -> Tables:
    """Puts other bytes in place of some glyphs, with long offsets."""
    count = struct.unpack_from(">H", tables["maxp"], 4)[0]
    is_long = tables["head"][51] == 1
    offsets = struct.unpack(f">{count + 1}{'I' if is_long else 'H'}", tables["loca"])
    scale = 1 if is_long else 2
    outlines, ends = b"", [0]
    for glyph in range(count):
        outline_bytes = tables["glyf"][offsets[glyph] * scale:offsets[glyph + 1] * scale]
        outlines += changes.get(glyph, outline_bytes)
        outlines += b"\0" * (-len(outlines) % 4)
        ends.append(len(outlines))
    locations = struct.pack(f">{count + 1}I", *ends)
    return patched(tables | {"glyf": outlines, "loca": locations}, "head", 51, b"\x01")


def composite(*components: int) -> bytes:
    data = struct.pack(">5h", -1, 0, 0, 500, 700)
    for position, glyph in enumerate(components, 1):
        flags = 0x0002 if position == len(components) else 0x0022  # offsets follow, more to come
        data += struct.pack(">2H2b", flags, glyph, 0, 0)
    return data


def composites(family: str, depth: int, follow: Callable[[int], bytes]) -> Tables:
    """A font that draws I, H and x as composites, `depth` glyphs from the first private one on."""
    first = 1 + FULL.index(FILLER[0])
    tables = build(family, charset=FULL, remap={c: glyph_name(FILLER[0]) for c in "IHx"})
    tables = with_glyphs(tables, {g: follow(g) for g in range(first, first + depth)}
                         | {first + depth: b""})
    tables = patched(tables, "maxp", 28, struct.pack(">2H", 2, depth + 1))
    return without(tables, "OS/2")


FEATURES = """
    feature liga { sub u0041 u0042 by u0043; } liga;
    feature salt { sub u0041 from [u0042 u0043 u0044]; } salt;
    feature ss01 { featureNames { name "Formes rondes"; }; sub u0041 by u0042; } ss01;
    feature cv01 {
        cvParameters {
            FeatUILabelNameID { name "A du titre"; };
            ParamUILabelNameID { name "haut"; };
            ParamUILabelNameID { name "large"; };
        };
        sub u0041 from [u0042 u0043];
    } cv01;
    feature zzzz { sub u0041 by u0042; } zzzz;
    feature kern { pos u0041 u0042 -50; } kern;
"""


def with_features() -> Tables:
    font = opened(build("Essai Fonctions"))
    addOpenTypeFeaturesFromString(font, FEATURES)
    return tables_of(font)


def endless_alternates() -> Tables:
    """One feature with 30,000 lookups, all of them the same one with 30,000 sets of alternates."""
    lookups, sets = 30_000, 30_000
    script = struct.pack(">H4sH", 1, b"DFLT", 8) + struct.pack(">2H", 4, 0) + struct.pack(">3HH", 0, 0xFFFF, 1, 0)
    features = struct.pack(">H4sH", 1, b"salt", 8) + struct.pack(f">2H{lookups}H", 0, lookups, *([0] * lookups))
    table = struct.pack(">2H3H", 1, 0, 10, 10 + len(script), 0)
    head = table + script
    lookup_list_at = len(head) + 0
    lookup = struct.pack(">4H", 3, 0, 1, 8) + struct.pack(f">3H{sets}H", 1, 0, sets, *([0] * sets))
    lookup_list = struct.pack(">2H", 1, 4) + lookup
    feature_at = lookup_list_at + len(lookup_list)
    head = struct.pack(">2H3H", 1, 0, 10, feature_at, lookup_list_at) + script
    return build("Essai Sans Fin") | {"GSUB": head + lookup_list + features}


def mapped_groups(family: str, groups: list[tuple[int, int, int]], kind: int = 12) -> Tables:
    data = b"".join(struct.pack(">3I", *group) for group in groups)
    subtable = struct.pack(">2H3I", kind, 0, 16 + len(data), 0, len(groups)) + data
    return build(family) | {"cmap": struct.pack(">4HI", 0, 1, 3, 10, 12) + subtable}


def growing_text() -> Tables:
    font = opened(build("Essai Foule"))
    rules = "".join(f"lookup l{i} {{ sub u0061 by {'u0061 ' * 10}; }} l{i};\n" for i in range(30))
    addOpenTypeFeaturesFromString(font, f"feature ccmp {{ {rules} }} ccmp;")
    return tables_of(font)


def huge_offsets() -> bytes:
    """Four tables lie far outside; some of their ends wrap around."""
    ranges = {b"name": (0xFFFFFFF0, 0x20), b"OS/2": (0x100, 0xFFFFFFFF),
              b"cmap": (0xFFFFFFFF, 0xFFFFFFFF), b"post": (0x7FFFFFFF, 0x80000010)}
    font = bytearray(assemble(plain()))
    for entry in range(12, 12 + 16 * struct.unpack_from(">H", font, 4)[0], 16):
        tag = bytes(font[entry:entry + 4])
        if tag in ranges:
            struct.pack_into(">2I", font, entry + 8, *ranges[tag])
    return bytes(font)


def names_out_of_range() -> Tables:
    places = [(100, 0xFFF0), (0xFFFF, 0), (20, 40), (0xFFFF, 0xFFFF), (2, 50), (60, 1)]
    table = struct.pack(">3H", 0, len(places), 6 + 12 * len(places))
    for name_id, place in enumerate(places, 1):
        table += struct.pack(">6H", 3, 1, ENGLISH, name_id, *place)
    return plain() | {"name": table + "Essai dehors".encode("utf-16-be")}


def too_many_names() -> Tables:
    text = "EssaiNombreux-Regular".encode("utf-16-be")
    table = struct.pack(">9H", 0, 65535, 18, 3, 1, ENGLISH, 6, len(text), 0) + text
    return plain() | {"name": table}


def names_in_vain() -> Tables:
    """A designer that twenty records do not tell, all of them in the same 60,000 bytes, and the last one does."""
    texts = ["Élodie Martin".encode("utf-16-be"), ("x" * 29_999).encode("utf-16-be") + b"\xd8\x00",
             "EssaiVain-Regular".encode("utf-16-be")]
    places = [(9, 1)] * 20 + [(9, 0), (6, 2)]
    table = struct.pack(">3H", 0, len(places), 6 + 12 * len(places))
    for name_id, text in places:
        offset = sum(map(len, texts[:text]))
        table += struct.pack(">6H", 3, 1, FRENCH, name_id, len(texts[text]), offset)
    return plain() | {"name": table + b"".join(texts)}


def long_instance_names() -> Tables:
    """A thousand instances that share one name of 20,000 characters."""
    font = opened(build("Essai Long", names={256: "x" * 20_000}))
    axes = struct.pack(">4s3i2H", b"wght", 100 << 16, 400 << 16, 900 << 16, 0, 256)
    instances = b"".join(struct.pack(">2Hi", 256, 0, (500 << 16) + i) for i in range(1000))
    return tables_of(font) | {"fvar": struct.pack(">8H", 1, 0, 16, 2, 1, 20, 1000, 8) + axes + instances}


def resource_file() -> bytes:
    font = assemble(build("Essai Dfont"))
    data = struct.pack(">I", len(font)) + font
    header = struct.pack(">4I", 256, 256 + len(data), len(data), 50)
    fork_map = header + struct.pack(">IH", 0, 0) + struct.pack(">3H", 0, 28, 50)
    types = struct.pack(">H4s2H", 0, b"sfnt", 0, 10)
    reference = struct.pack(">HhII", 128, -1, 0, 0)
    return header.ljust(256, b"\0") + data + fork_map + types + reference


def other_files() -> dict[str, bytes]:
    font = opened(plain())
    font.flavor = "woff"
    sound, woff = assemble(plain()), saved(font)
    return {
        "collection.ttc": collection(),
        "plain.dfont": resource_file(),
        "plain.woff": woff,
        "broken.woff": woff[:16] + struct.pack(">I", 0x7FFFFFFF) + woff[20:],  # the unpacked size
        "empty.ttf": b"",
        "text.ttf": b"This file holds a few words and no font at all.\n" * 20,
        "truncated-directory.ttf": sound[:12 + 16 * 2 + 5],
        "truncated-tables.ttf": sound[:len(sound) * 6 // 10],
        "huge-offsets.ttf": huge_offsets(),
    }


def table_sets() -> dict[str, Tables]:
    sets = {name: build(family, **design) for name, (family, design) in SIMPLE.items()}
    narrow = build("Essai Court", os2={"usWeightClass": 700, "usWidthClass": 3, "fsType": 4})
    return sets | {
        "plain": plain(),
        "no-os2": without(build("Essai Bare", heights=(480, 720), head={"macStyle": 3}), "OS/2"),
        "os2-10": narrow | {"OS/2": narrow["OS/2"][:10]},
        "mono-panose": patched(build("Essai Fixe", advance=600), "OS/2", 35, b"\x09"),
        "variable": variable(),
        "color-colr": layered(),
        "colr-layers": colored_boxes(),
        "overlap": overlapping(),
        "color-svg": vector_documents(),
        "color-cbdt": bitmap_strikes(),
        "color-sbix": bitmap_images(),
        "cmap-unsorted": unsorted_map(),
        "upem-0": patched(build("Essai Zero"), "head", 18, bytes(2)),
        # 2^40 ways down through the components.
        "composite-bomb": composites("Essai Bombe", 40, lambda g: composite(g + 1, g + 1)),
        "composite-deep": composites("Essai Puits", 70, lambda g: composite(g + 1)),
        "composite-loop": composites("Essai Boucle", 1, lambda g: composite(g, g)),
        "gsub-bomb": growing_text(),
        "features": with_features(),
        "gsub-endless": endless_alternates(),
        # Every code there is, by 200 groups that all say so.
        "cmap-everything": mapped_groups("Essai Tout", [(0, 0xFFFFFFFF, 5)] * 200, 13),
        "cmap-overlap": mapped_groups("Essai Chevauche", [
            (0x41, 0x50, 2), (0x45, 0x48, 20), (0x4A, 0x60, 30), (0x40, 0x4C, 40), (0x70, 0x60, 3)]),
        "graphite-broken": plain() | {"Silf": struct.pack(">2I", 0x00030000, 0xFFFFFFFF)},
        "name-out-of-range": names_out_of_range(),
        "many-names": too_many_names(),
        "names-in-vain": names_in_vain(),
        "long-instance-names": long_instance_names(),
        "fvar-hostile": build("Essai Hostile") | {
            "fvar": struct.pack(">8H", 1, 0, 16, 2, 65535, 20, 65535, 65535)},
    }


def main(arguments: list[str]) -> int:
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    directory = Path(arguments[1])
    directory.mkdir(parents=True, exist_ok=True)
    fonts = {f"{name}.ttf": assemble(tables) for name, tables in table_sets().items()}
    for name, data in (fonts | other_files()).items():
        (directory / name).write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
