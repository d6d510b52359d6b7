#!/usr/bin/python3
"""Makes a large library of small fonts: each file one face of a family of its own. Usage:
make_library.py FOLDER [FACES] [FONTS]

The glyphs come from the fonts below FONTS (/usr/share/fonts), cut down to Latin; the names are made up. The same
library comes out of every run over the same fonts."""

import io
import struct
import sys
from pathlib import Path

from fontTools import subset
from fontTools.ttLib import TTFont, TTLibError

MOST_SOURCES = 40
FIRST = ["Aldine", "Arbor", "Birch", "Calder", "Corvus", "Delta", "Ember", "Fable", "Garnet", "Halden", "Indigo",
         "Juniper", "Kestrel", "Larch", "Merlin", "Nacre", "Orion", "Pivot", "Quartz", "Rivage", "Saffron", "Tundra"]
LAST = ["Antique", "Book", "Classic", "Display", "Gothic", "Grotesk", "Hand", "Humanist", "Journal", "Linear", "Modern",
        "News", "Old", "Poster", "Rounded", "Sketch", "Text", "Title", "Urban"]
CHARACTERS = [*range(0x20, 0x7F), *range(0xA0, 0x100), 0x152, 0x153, 0x178, 0x2018, 0x2019, 0x201C, 0x201D, 0x2026]

Tables = dict[str, bytes]


def small(path: Path) -> Tables | None:
    """The tables of a font, cut down to Latin; none where it has no Latin or cannot be read."""
    try:
        font = TTFont(path, fontNumber=0, lazy=False)
        if not set(map(ord, "Kerlun")) <= set(font.getBestCmap() or {}) or "fvar" in font:
            return None
        options = subset.Options(hinting=False, layout_features=["kern", "liga", "mark"], notdef_outline=True)
        subsetter = subset.Subsetter(options)
        subsetter.populate(unicodes=CHARACTERS)
        subsetter.subset(font)
        stream = io.BytesIO()
        font.save(stream)
    except (TTLibError, OSError, subset.Subsetter.SubsettingError):
        return None
    reader = TTFont(stream).reader
    return {tag: reader[tag] for tag in reader.keys()} | {"": stream.getvalue()[:4]}


def name_table(family: str, postscript: str) -> bytes:
    """OpenType 'name': family, style, unique and full name, version, PostScript name; Windows, English."""
    names = {1: family, 2: "Regular", 3: postscript, 4: family, 5: "Version 1.000", 6: postscript}
    records, text = b"", b""
    for name_id, name in names.items():
        encoded = name.encode("utf-16-be")
        records += struct.pack(">6H", 3, 1, 0x409, name_id, len(encoded), len(text))
        text += encoded
    return struct.pack(">3H", 0, len(names), 6 + len(records)) + records + text


def assembled(tables: Tables) -> bytes:
    """OpenType's table directory and the tables."""
    tags = sorted(tag for tag in tables if tag)
    power = len(tags).bit_length() - 1
    head = tables[""] + struct.pack(">4H", len(tags), 16 << power, power, 16 * len(tags) - (16 << power))
    offset = len(head) + 16 * len(tags)
    body = []
    for tag in tags:
        data = tables[tag] + bytes(-len(tables[tag]) % 4)
        checksum = sum(struct.unpack(f">{len(data) // 4}I", data)) & 0xFFFFFFFF
        head += tag.encode("latin-1") + struct.pack(">3I", checksum, offset, len(tables[tag]))
        body.append(data)
        offset += len(data)
    return head + b"".join(body)


def main(arguments: list[str]) -> int:
    if not 2 <= len(arguments) <= 4:
        print(__doc__, file=sys.stderr)
        return 2
    folder = Path(arguments[1])
    faces = int(arguments[2]) if len(arguments) > 2 else 20_000
    fonts = Path(arguments[3]) if len(arguments) > 3 else Path("/usr/share/fonts")
    sources = []
    for path in sorted(path for path in fonts.rglob("*") if path.suffix.lower() in {".ttf", ".otf"}):
        if len(sources) < MOST_SOURCES and (tables := small(path)) is not None:
            sources.append(tables)
    if not sources:
        print(f"no fonts with Latin letters below {fonts}", file=sys.stderr)
        return 1
    for number in range(faces):
        first, last = FIRST[number % len(FIRST)], LAST[number // len(FIRST) % len(LAST)]
        family = f"{first} {last} {number}"
        postscript = family.replace(" ", "") + "-Regular"
        data = assembled(sources[number % len(sources)] | {"name": name_table(family, postscript)})
        path = folder / f"{number // 1000:03}" / f"{postscript}.ttf"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
    print(f"{faces} faces from {len(sources)} fonts in {folder}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
