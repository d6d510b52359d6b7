#!/usr/bin/env python3
"""Indexes the machine's own fonts in a home of its own and compares every face with what fontTools reads.

    check_machine_fonts.py KERLUNE SRC

Exits with 1 when a face or a value differs.
"""

from __future__ import annotations

import json
import logging
import os
import re
import struct
import subprocess
import sys
import tempfile
from collections import Counter
from functools import cached_property, partial
from multiprocessing import Pool
from pathlib import Path
from typing import Any, Callable, Iterator

from fontTools.pens.boundsPen import BoundsPen
from fontTools.ttLib import TTFont

Coverage = list[set[int]]  # in the order of the bits, the characters that each one requires

Expected = tuple[str, str, dict[str, Any]]  # PostScript name, path and values of a face that the index should hold

ROW = re.compile(r'^    \{"\w+", marked\("[^"]+"\), U"([^"]+)", marked\("\w+"\)\},$', re.MULTILINE)
SFNT_MAGICS = (b"\x00\x01\x00\x00", b"\x00\x02\x00\x00", b"true", b"OTTO", b"ttcf", b"wOFF", b"wOF2")
UNICODE_MAPS = ((3, 10), (0, 6), (0, 4), (3, 1), (0, 3), (0, 2), (0, 1), (0, 0))
COLOUR_TABLES = ("COLR", "CBDT", "sbix", "SVG ")
WIDTH_PERCENTS = (50, 62.5, 75, 87.5, 100, 112.5, 125, 150, 200)  # of the classes 1 to 9
NO_NAME = 0xFFFF

# Heights may come from an outline that the index measures in fractions of a pixel.
TOLERANCES = {"weight": 1e-6, "width": 1e-6, "slant": 1e-6, "mtime": 1e-3,
              "xHeightRatio": 1e-3, "capHeightRatio": 1e-3}


def clamped(value: float) -> float:
    return max(-1.0, min(1.0, value))


def weight_trait(weight: float) -> float:
    return clamped((weight - 400) / (300 if weight <= 400 else 500))


def width_class(percent: float) -> float:
    """The class, with a fraction, of a width given in percent of the normal one."""
    if percent <= WIDTH_PERCENTS[0]:
        return 1
    for index, (low, high) in enumerate(zip(WIDTH_PERCENTS, WIDTH_PERCENTS[1:]), 1):
        if percent <= high:
            return index + (percent - low) / (high - low)
    return 9


class HeightPen(BoundsPen):
    """Gives up on a glyph of absurdly many components."""

    components = 0

    def addComponent(self, name: str, transformation: Any) -> None:
        self.components += 1
        if self.components > 10_000:
            raise ValueError("too many components")
        super().addComponent(name, transformation)


class Face:
    """The default instance of one face of a file; each value is read when it is asked for."""

    def __init__(self, path: str, number: int, coverage: Coverage) -> None:
        self.path = path
        self.font = TTFont(path, fontNumber=number, lazy=True)
        self.coverage = coverage
        self.unreadable: set[str] = set()

    def has(self, tag: str) -> bool:
        return tag in self.font.reader.keys()

    def raw(self, tag: str) -> bytes:
        return self.font.reader[tag] if self.has(tag) else b""

    def parsed(self, tag: str) -> Any:
        """A table, every time an error when it is damaged: the library keeps what it half read."""
        if tag in self.unreadable:
            raise ValueError(f"damaged {tag} table")
        try:
            return self.font[tag]
        except Exception:
            self.unreadable.add(tag)
            raise

    def number(self, tag: str, kind: str, offset: int) -> int:
        """A big-endian number of a table, 0 beyond its end."""
        data = self.raw(tag)
        if offset + struct.calcsize(kind) > len(data):
            return 0
        return struct.unpack_from(">" + kind, data, offset)[0]

    def name(self, name_id: int) -> str | None:
        if not self.has("name"):
            return None
        records = [record for record in self.parsed("name").names if record.nameID == name_id]
        passes = (lambda r: r.platformID == 3 and r.langID == 0x409,
                  lambda r: r.platformID == 1 and r.langID == 0,
                  lambda r: True)
        for accepts in passes:
            for record in filter(accepts, records):
                if text := decoded(record):
                    return text
        return None

    @cached_property
    def units_per_em(self) -> int:
        return self.number("head", "H", 18)

    @cached_property
    def postscript(self) -> str | None:
        return self.name(6)

    @cached_property
    def family(self) -> str:
        return self.name(16) or self.name(1) or self.postscript or ""

    def style(self) -> str:
        return self.name(17) or self.name(2) or ""

    def has_os2(self) -> bool:
        return len(self.raw("OS/2")) >= 10

    def weight_class(self) -> int:
        weight = self.number("OS/2", "H", 4) if self.has_os2() else 400
        return weight if 0 < weight <= 1000 else 400

    def width_class(self) -> int:
        width = self.number("OS/2", "H", 6) if self.has_os2() else 5
        return width if 0 < width <= 9 else 5

    def lean(self) -> float:
        """In degrees, positive to the right."""
        return -self.number("post", "i", 4) / 65536

    def is_italic(self) -> bool:
        if len(self.raw("OS/2")) >= 64:
            bits = self.number("OS/2", "H", 62) & 1
        else:
            bits = self.number("head", "H", 44) & 2
        return bits != 0 or clamped(self.lean() / 30) > 0.02

    def is_monospace(self) -> bool:
        os2 = self.raw("OS/2")
        return self.number("post", "I", 12) != 0 or (len(os2) >= 36 and os2[35] == 9)

    def is_colour(self) -> bool:
        return any(map(self.has, COLOUR_TABLES))

    @cached_property
    def axes(self) -> list[Any]:
        return self.parsed("fvar").axes if self.has("fvar") else []

    def instances(self) -> list[Any]:
        """The named instances at another place than the default one."""
        place = {axis.axisTag: axis.defaultValue for axis in self.axes}
        if not place:
            return []
        return [i for i in self.parsed("fvar").instances if i.coordinates != place]

    @cached_property
    def characters(self) -> dict[int, str]:
        """The characters with a glyph, and its name."""
        if not self.has("cmap"):
            return {}
        table = self.parsed("cmap")
        for kind in UNICODE_MAPS:
            if subtable := table.getcmap(*kind):
                return drawn(subtable.cmap, self.font)
        roman = table.getcmap(1, 0)
        if roman is None or table.getcmap(3, 0):
            return {}
        return {ord(bytes([code]).decode("mac_roman")): name
                for code, name in drawn(roman.cmap, self.font).items() if code < 256}

    def script_mask(self) -> int:
        present = self.characters.keys()
        return sum(1 << bit for bit, required in enumerate(self.coverage) if required <= present)

    def height_ratio(self, offset: int, character: str) -> float:
        """The height that the OS/2 table states at `offset`, else that of a drawn character."""
        stated = self.number("OS/2", "h", offset) if self.number("OS/2", "H", 0) >= 2 else 0
        return (stated or self.drawn_top(character)) / self.units_per_em

    def drawn_top(self, character: str) -> float:
        name = self.characters.get(ord(character))
        if name is None:
            return 0
        glyphs = self.font.getGlyphSet()
        pen = HeightPen(glyphs)
        glyphs[name].draw(pen)
        return pen.bounds[3] if pen.bounds else 0


FIELDS: dict[str, Callable[[Face], Any]] = {
    "family": lambda face: face.family,
    "style": Face.style,
    "filePath": lambda face: face.path,
    "mtime": lambda face: os.stat(face.path).st_mtime,
    "fileSize": lambda face: os.stat(face.path).st_size,
    "weight": lambda face: weight_trait(face.weight_class()),
    "width": lambda face: clamped((face.width_class() - 5) / 4),
    "slant": lambda face: clamped(face.lean() / 30),
    "isVariable": lambda face: bool(face.axes),
    "isMonospace": Face.is_monospace,
    "isColor": Face.is_colour,
    "isItalic": Face.is_italic,
    "xHeightRatio": lambda face: face.height_ratio(86, "x"),
    "capHeightRatio": lambda face: face.height_ratio(88, "H"),
    "glyphCount": lambda face: face.number("maxp", "H", 4),
    "scriptMask": Face.script_mask,
    "version": lambda face: face.name(5),
    "foundry": lambda face: face.name(8),
    "designer": lambda face: face.name(9),
    "licenseURL": lambda face: face.name(14),
    "copyrightNotice": lambda face: face.name(0),
    "fsType": lambda face: face.number("OS/2", "H", 8) if face.has_os2() else 0,
}


def decoded(record: Any) -> str | None:
    try:
        return record.toUnicode("strict")
    except UnicodeDecodeError:
        return None


def drawn(mapping: dict[int, str], font: TTFont) -> dict[int, str]:
    missing = font.getGlyphName(0)
    return {code: name for code, name in mapping.items() if name != missing}


def instance_name(face: Face, instance: Any, style: str) -> str:
    own = instance.postscriptNameID
    if own != NO_NAME and (text := face.name(own)):
        return text
    prefix = face.name(25) or re.sub("[^A-Za-z0-9]", "", face.family)
    return f"{prefix}-{style.replace(' ', '')}"


def instance_values(face: Face, instance: Any, style: str) -> dict[str, Any]:
    place = instance.coordinates
    width = width_class(place["wdth"]) if "wdth" in place else face.width_class()
    lean = -place["slnt"] if "slnt" in place else face.lean()
    return {"family": face.family, "style": style,
            "weight": weight_trait(place.get("wght", face.weight_class())),
            "width": clamped((width - 5) / 4), "slant": clamped(lean / 30)}


def default_values(face: Face) -> dict[str, Any]:
    """The values of the fields, but for those of tables that are too damaged for the library."""
    values = {}
    for name, read in FIELDS.items():
        try:
            values[name] = read(face)
        except Exception as error:
            print(f"not compared: {name} of {face.path}: {type(error).__name__}: {error}")
    return values


def accepted(name: str | None) -> bool:
    return bool(name) and not name.startswith(".")


def expected_of(face: Face) -> Iterator[Expected]:
    if face.units_per_em == 0:
        return
    if accepted(face.postscript):
        yield face.postscript, face.path, default_values(face)
    for instance in face.instances():
        style = face.name(instance.subfamilyNameID) or ""
        name = instance_name(face, instance, style)
        if accepted(name):
            yield name, face.path, instance_values(face, instance, style)


def faces_in(path: str, coverage: Coverage) -> list[Expected]:
    logging.disable(logging.CRITICAL)
    faces: list[Expected] = []
    try:
        with open(path, "rb") as file:
            start = file.read(12)
        if start[:4] in SFNT_MAGICS:
            for number in range(struct.unpack(">8xI", start)[0] if start[:4] == b"ttcf" else 1):
                faces.extend(expected_of(Face(path, number, coverage)))
    except Exception as error:  # whatever a damaged file makes the library raise
        print(f"not read to the end: {path}: {type(error).__name__}: {error}")
    return faces


def font_files() -> list[str]:
    listing = subprocess.run(["fc-list", "-f", "%{file}\n"], check=True, stdout=subprocess.PIPE)
    return sorted({os.path.realpath(os.fsdecode(line)) for line in listing.stdout.splitlines()},
                  key=os.fsencode)


def read_coverage(source: Path) -> Coverage:
    """The characters that each entry asks for, as the program's own table lists them."""
    rows = ROW.findall((source / "Model/ScriptCoverage.cpp").read_text(encoding="utf-8"))
    assert len(rows) == 43, f"{len(rows)} rows found"
    return [set(map(ord, row)) for row in rows]


def read_records(program: str) -> list[dict[str, Any]]:
    with tempfile.TemporaryDirectory() as home:
        for name in ("DATA", "CACHE", "CONFIG"):
            os.environ[f"XDG_{name}_HOME"] = f"{home}/{name}"
        subprocess.run([program, "index"], check=True)
        return json.loads(subprocess.run([program, "faces", "--json"], check=True, stdout=subprocess.PIPE).stdout)


def same(name: str, actual: Any, wanted: Any) -> bool:
    if isinstance(actual, bool) or not isinstance(actual, (int, float)) or name not in TOLERANCES:
        return type(actual) is type(wanted) and actual == wanted
    return abs(actual - wanted) <= TOLERANCES[name]


def differences(records: list[dict[str, Any]], faces: Iterator[Expected]) -> Iterator[str]:
    counts = Counter(record["postScriptName"] for record in records)
    yield from (f"{name}: given more than once" for name, count in counts.items() if count > 1)
    unmatched = {record["postScriptName"]: record for record in records}
    seen: set[str] = set()
    for name, path, values in faces:
        if name in seen:
            continue
        seen.add(name)
        record = unmatched.pop(name, None)
        if record is None:
            yield f"{name} ({path}): missing"
            continue
        for key, wanted in values.items():
            if key not in record or not same(key, record[key], wanted):
                yield f"{name}: {key} is {record.get(key)!r} here, {wanted!r} expected"
    yield from (f"{name} ({record.get('filePath')}): unexpected" for name, record in unmatched.items())
    print(f"faces compared: {len(records) - len(unmatched)}")


def main() -> int:
    program, source = sys.argv[1], Path(sys.argv[2])
    coverage, records = read_coverage(source), read_records(program)
    with Pool(2) as pool:
        files = pool.imap(partial(faces_in, coverage=coverage), font_files(), chunksize=16)
        found = list(differences(records, (face for faces in files for face in faces)))
    print(*found, f"differences: {len(found)}", sep="\n")
    return 1 if found or not records else 0


if __name__ == "__main__":
    sys.exit(main())
