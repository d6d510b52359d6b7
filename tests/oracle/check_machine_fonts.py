#!/usr/bin/env python3
"""Indexes the machine's own fonts in a home of its own and compares every face with what fontTools reads.

    check_machine_fonts.py KERLUNE SRC
"""

import json
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROW = re.compile(r'^    \{"(\w+)", marked\("[^"]+"\), U"([^"]+)", marked\("\w+"\)\},$', re.MULTILINE)


def coverage_table(source: Path) -> list[dict[str, str]]:
    """The characters that each entry asks for, as the program's own table lists them."""
    text = (source / "Model/ScriptCoverage.cpp").read_text(encoding="utf-8")
    return [{"id": row[0], "required": row[1]} for row in ROW.findall(text)]


def main() -> int:
    program, source = sys.argv[1], Path(sys.argv[2])
    table = coverage_table(source)
    assert len(table) == 43, f"{len(table)} rows found"
    with tempfile.TemporaryDirectory() as home:
        for name in ("DATA", "CACHE", "CONFIG"):
            os.environ[f"XDG_{name}_HOME"] = f"{home}/{name}"
        subprocess.run([program, "index"], check=True)
        faces, coverage = f"{home}/faces.json", f"{home}/coverage.json"
        with open(faces, "wb") as file:
            subprocess.run([program, "faces", "--json"], check=True, stdout=file)
        Path(coverage).write_text(json.dumps(table), encoding="utf-8")
        compare = Path(__file__).with_name("compare_with_fonttools.py")
        return subprocess.run([sys.executable, str(compare), faces, "--coverage", coverage]).returncode


if __name__ == "__main__":
    sys.exit(main())
