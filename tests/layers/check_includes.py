#!/usr/bin/env python3
"""Checks that each folder of src/ includes only from the folders before it, and that the folders of plain C++ include
nothing of Qt. Usage: check_includes.py SRC"""

import re
import sys
from pathlib import Path

MAY_INCLUDE = {
    "Support": set(),
    "Platform": {"Support"},
    "Model": {"Support", "Platform"},
    "Store": {"Support", "Platform", "Model"},
}
BELOW_STATE = {"Support", "Platform", "Model", "Store"}
for peer in ("Library", "Identify", "Catalogs", "Bridge", "Export"):
    MAY_INCLUDE[peer] = set(BELOW_STATE)
MAY_INCLUDE["Identify"].add("Catalogs")
MAY_INCLUDE["State"] = BELOW_STATE | {"Library", "Identify", "Catalogs", "Bridge", "Export"}
MAY_INCLUDE["UI"] = MAY_INCLUDE["State"] | {"State"}
MAY_INCLUDE["CLI"] = set(MAY_INCLUDE["UI"])
MAY_INCLUDE["App"] = MAY_INCLUDE["UI"] | {"UI", "CLI"}

WITHOUT_QT = {"Model", "Store"}
# Headers of Platform that are not plain C++.
QT_HEADERS = {
    "Platform/FileEventStream.h",
    "Platform/FontRegistry.h",
    "Platform/Linux/InotifyEventStream.h",
    "Platform/Linux/LinuxFontRegistry.h",
}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def problems_of(file: Path, folder: str) -> list[str]:
    problems = []
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if match is None:
            continue
        quoted, header = match[1] == '"', match[2]
        owner = header.split("/")[0]
        where = f"{file}:{number}: {folder} may not include {header}"
        if quoted and (owner not in MAY_INCLUDE or (owner != folder and owner not in MAY_INCLUDE[folder])):
            problems.append(where)
        if folder in WITHOUT_QT and (header in QT_HEADERS or re.match(r"Q[A-Z]|Qt", header)):
            problems.append(where)
    return problems


def main() -> int:
    source = Path(sys.argv[1])
    files = [f for f in sorted(source.rglob("*")) if f.suffix in (".h", ".cpp")]
    problems = []
    for file in files:
        folder = file.relative_to(source).parts[0]
        problems += problems_of(file, folder) if folder in MAY_INCLUDE else [f"{file}: unknown folder {folder}"]
    print("\n".join(problems) or f"{len(files)} files follow the order")
    return 1 if problems or not files else 0


if __name__ == "__main__":
    sys.exit(main())
