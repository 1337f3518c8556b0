"""Checks the text tables: every text that the library asks for exists in each language.

usage: check_texts.py SOURCE-DIRECTORY
"""

import pathlib
import re
import sys

# Ids that are counted up from a first one, which stands in the code.
COUNTED = [range(6001, 6009), range(6024, 6032)]
LONGEST = 60  # characters that a list box shows


def texts(path):
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()
            if line and not line.startswith("#")]
    return {int(row[0]): row[1] for row in rows[1:]}


def asked_for(source):
    ids = {number for span in COUNTED for number in span}
    for path in source.rglob("*"):
        if path.suffix not in (".h", ".cpp"):
            continue
        code = re.sub(r'//.*|"[^"]*"|array<char, \d+>', "", path.read_text(encoding="utf-8"))
        ids.update(int(number) for number in re.findall(r"(?<![\w.])([1-7]\d{3})(?![\w.])", code))
    return ids


def main():
    root = pathlib.Path(sys.argv[1])
    asked = asked_for(root / "src")
    faults = []
    for path in sorted((root / "texts").glob("*.tsv")):
        there = texts(path)
        faults += [f"{path}: no text {number}, which the library asks for; add a row"
                   for number in sorted(asked - set(there))]
        faults += [f"{path}: text {number} has {len(text)} characters; a list box shows {LONGEST}"
                   for number, text in there.items() if len(text) > LONGEST]
    print("\n".join(faults) or f"{len(asked)} texts in each language")
    return 1 if faults or len(asked) < 300 else 0


sys.exit(main())
