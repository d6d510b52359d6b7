#!/usr/bin/env python3
"""Compares what `kerlune faces --json` says of this machine's fonts with what fontTools reads.

    compare_with_fonttools.py FACES.json [--coverage COVERAGE.json] [--all]

Exits with 1 when a face or a value differs.
"""

from __future__ import annotations

import argparse
import json
import logging
import os
import re
import struct
import subprocess
import sys
from collections import Counter, defaultdict
from dataclasses import dataclass, field
from functools import cached_property, partial
from multiprocessing import Pool
from typing import Any, Callable, Iterator

from fontTools.pens.boundsPen import BoundsPen
from fontTools.ttLib import TTFont

Coverage = list[set[int]]  # in the order of the bits, the characters that each one requires

SFNT_MAGICS = (b"\x00\x01\x00\x00", b"\x00\x02\x00\x00", b"true", b"OTTO", b"ttcf",
               b"wOFF", b"wOF2")
UNICODE_MAPS = ((3, 10), (0, 6), (0, 4), (3, 1), (0, 3), (0, 2), (0, 1), (0, 0))
COLOUR_TABLES = ("COLR", "CBDT", "sbix", "SVG ")
WIDTH_PERCENTS = (50, 62.5, 75, 87.5, 100, 112.5, 125, 150, 200)  # of the classes 1 to 9
NO_NAME = 0xFFFF

INSTANCE_FIELDS = ("family", "style", "weight", "width", "slant")
NEVER_COMPARED = ("classification", "symbolicTraits")
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

    def __init__(self, path: str, number: int, coverage: Coverage | None) -> None:
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
        return sum(1 << bit for bit, required in enumerate(self.coverage or [])
                   if required <= present)

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


def default_values(face: Face) -> tuple[dict[str, Any], dict[str, str]]:
    """The values of the fields, and why some of them could not be read."""
    values, failures = {}, {}
    for name, read in FIELDS.items():
        if name == "scriptMask" and face.coverage is None:
            continue
        try:
            values[name] = read(face)
        except Exception as error:  # whatever a damaged table makes the library raise
            failures[name] = f"{type(error).__name__}: {error}"
    return values, failures


@dataclass
class Expected:
    """One face that the index should hold."""
    postscript: str
    path: str
    values: dict[str, Any]
    failures: dict[str, str] = field(default_factory=dict)


@dataclass
class FileReport:
    path: str
    faces: list[Expected] = field(default_factory=list)
    skipped: str = ""
    failures: list[str] = field(default_factory=list)


def accepted(name: str | None) -> bool:
    return bool(name) and not name.startswith(".")


def expected_of(face: Face) -> Iterator[Expected]:
    if face.units_per_em == 0:
        return
    if accepted(face.postscript):
        yield Expected(face.postscript, face.path, *default_values(face))
    for instance in face.instances():
        style = face.name(instance.subfamilyNameID) or ""
        name = instance_name(face, instance, style)
        if accepted(name):
            yield Expected(name, face.path, instance_values(face, instance, style))


def face_count(path: str, magic: bytes) -> int:
    if magic != b"ttcf":
        return 1
    with open(path, "rb") as file:
        return struct.unpack(">8xI", file.read(12))[0]


def read_file(path: str, coverage: Coverage | None) -> FileReport:
    logging.disable(logging.CRITICAL)
    report = FileReport(path)
    try:
        with open(path, "rb") as file:
            magic = file.read(4)
        if magic not in SFNT_MAGICS:
            report.skipped = "not SFNT"
            return report
        for number in range(face_count(path, magic)):
            face = Face(path, number, coverage)
            report.faces.extend(expected_of(face))
            face.font.close()
    except Exception as error:  # whatever a damaged file makes the library raise
        report.failures.append(f"{path}: {type(error).__name__}: {error}")
    return report


def font_files() -> list[str]:
    listing = subprocess.run(["fc-list", "-f", "%{file}\n"], check=True, stdout=subprocess.PIPE)
    return sorted({os.path.realpath(os.fsdecode(line)) for line in listing.stdout.splitlines()},
                  key=os.fsencode)


def read_coverage(path: str) -> Coverage:
    with open(path, encoding="utf-8") as file:
        return [set(map(ord, "".join(entry["required"]))) for entry in json.load(file)]


def same(name: str, actual: Any, wanted: Any) -> bool:
    if isinstance(actual, bool) or not isinstance(actual, (int, float)) or name not in TOLERANCES:
        return type(actual) is type(wanted) and actual == wanted
    return abs(actual - wanted) <= TOLERANCES[name]


class Comparison:
    def __init__(self, records: list[dict[str, Any]]) -> None:
        self.unmatched = {record["postScriptName"]: record for record in records}
        self.repeated = sorted(name for name, count in Counter(
            record["postScriptName"] for record in records).items() if count > 1)
        self.seen: set[str] = set()
        self.missing: list[str] = []
        self.mismatches: dict[str, list[str]] = defaultdict(list)
        self.unread: list[str] = []  # values that could not be computed here
        self.skipped: Counter[str] = Counter()
        self.damaged: list[str] = []
        self.compared = self.identical = 0

    def add(self, report: FileReport) -> None:
        if report.skipped:
            self.skipped[report.skipped] += 1
        self.damaged += report.failures
        for face in report.faces:
            if face.postscript not in self.seen:
                self.seen.add(face.postscript)
                self.compare(face)

    def compare(self, face: Expected) -> None:
        record = self.unmatched.pop(face.postscript, None)
        if record is None:
            self.missing.append(f"{face.postscript} ({face.path})")
            return
        self.compared += 1
        self.unread += [f"{face.postscript} {name}: {why}" for name, why in face.failures.items()]
        wrong = [name for name, wanted in face.values.items()
                 if name not in record or not same(name, record[name], wanted)]
        for name in wrong:
            self.mismatches[name].append(f"{face.postscript}: {record.get(name, '(no such key)')!r}"
                                         f" here, {face.values[name]!r} expected")
        self.identical += not wrong and not face.failures

    def unexpected(self) -> list[str]:
        return sorted(f"{name} ({record.get('filePath')})"
                      for name, record in self.unmatched.items())

    def differs(self) -> bool:
        return bool(self.missing or self.unmatched or self.mismatches or self.repeated)


def show(title: str, lines: list[str], limit: int | None) -> None:
    print(f"{title}: {len(lines)}")
    for line in lines[:limit]:
        print(f"    {line}")
    if limit is not None and len(lines) > limit:
        print(f"    and {len(lines) - limit} more")


def print_result(result: Comparison, with_scripts: bool, everything: bool) -> None:
    few, many = (None, None) if everything else (5, 20)
    print(f"faces compared: {result.compared}, identical: {result.identical}")
    print("never compared: " + ", ".join(NEVER_COMPARED)
          + ("" if with_scripts else ", scriptMask (no --coverage given)"))
    print(f"of named instances only: {', '.join(INSTANCE_FIELDS)}")
    for kind, count in sorted(result.skipped.items()):
        print(f"files skipped, {kind}: {count}")
    show("files that fontTools could not read to the end", result.damaged, many)
    show("values that could not be computed here", result.unread, many)
    show("missing", result.missing, many)
    show("unexpected", result.unexpected(), many)
    show("given more than once", result.repeated, many)
    for name, lines in sorted(result.mismatches.items()):
        show(f"mismatches of {name}", lines, few)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("faces", metavar="FACES.json")
    parser.add_argument("--coverage", metavar="COVERAGE.json",
                        help='the "id" and "required" characters of each script, in bit order')
    parser.add_argument("--all", action="store_true", help="print every difference")
    arguments = parser.parse_args()

    with open(arguments.faces, encoding="utf-8") as file:
        result = Comparison(json.load(file))
    coverage = read_coverage(arguments.coverage) if arguments.coverage else None
    with Pool(2) as pool:
        for report in pool.imap(partial(read_file, coverage=coverage), font_files(), chunksize=16):
            result.add(report)
    print_result(result, coverage is not None, arguments.all)
    return 1 if result.differs() else 0


if __name__ == "__main__":
    sys.exit(main())
