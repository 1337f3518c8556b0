"""Counts the lines of the tests beside those of the code that they test.

usage: size.py SOURCE-DIRECTORY [PERCENT]

Lines that are not blank, of programs and scripts; documents, transcripts and tables are none. Fails when the tests
are more than PERCENT of the code.
"""

import pathlib
import sys

PROGRAMS = {".cpp", ".h", ".c", ".py", ".sh", ".js", ".html", ".css"}


def lines(root, folders):
    return sum(1 for folder in folders for path in (root / folder).rglob("*") if path.suffix in PROGRAMS
               for line in path.read_text(encoding="utf-8").splitlines() if line.strip())


root, limit = pathlib.Path(sys.argv[1]), int(sys.argv[2]) if len(sys.argv) > 2 else None
tests, code = lines(root, ["tests"]), lines(root, ["src", "suite", "command"])
print(f"tests: {tests} lines for {code} of code, {100 * tests / code:.0f} %")
sys.exit(1 if limit is not None and 100 * tests > limit * code else 0)
