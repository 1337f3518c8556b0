#!/usr/bin/env python3
"""Compiles the text tables of the embedded suite into a C++ file.

usage: texts.py OUT.cpp en.tsv de.tsv ...

A table has the columns id, display and report, parted by one tab each, under a first line with
these three names; lines that begin with "#" are comments. The first table is the language in force
at the start. Every fault is reported as file:line and what to do about it.
"""

import pathlib
import sys
import unicodedata

HEADER = "id\tdisplay\treport"
LARGEST_ID = 2**32 - 1


def fault_of_text(column, text):
    if text == "":
        return f"the {column} text is empty: write one"
    if text != text.strip():
        return f"remove the blanks around the {column} text"
    if any(unicodedata.category(character) == "Cc" for character in text):
        return f"remove the control characters from the {column} text"
    return None


def read_table(path, faults):
    """The rows (id, display, report) of one file, sorted by id."""
    rows = {}
    lines = path.read_bytes().split(b"\n")
    if lines[-1] == b"":
        lines.pop()
    for number, raw in enumerate(lines or [b""], start=1):

        def fault(what):
            faults.append(f"{path}:{number}: {what}")

        try:
            line = raw.removesuffix(b"\r").decode("utf-8")
        except UnicodeDecodeError as error:
            fault(f"byte {error.start + 1} of the line is not UTF-8: save the file as UTF-8")
            continue
        if number == 1:
            if line != HEADER:
                fault('begin the file with the line "id<tab>display<tab>report"')
            continue
        if line.startswith("#"):
            continue
        columns = line.split("\t")
        if len(columns) != 3:
            fault(f"{len(columns)} columns instead of 3: part id, display and report by one tab each")
            continue
        id_text, display, report = columns
        if not (id_text.isascii() and id_text.isdigit()) or int(id_text) > LARGEST_ID:
            fault(f'"{id_text}" is no id: write a whole number up to {LARGEST_ID}')
            continue
        text_fault = fault_of_text("display", display) or fault_of_text("report", report)
        if text_fault:
            fault(text_fault)
            continue
        text_id = int(id_text)
        if text_id in rows:
            fault(f"id {text_id} stands in line {rows[text_id][0]} already: remove one of the two")
            continue
        rows[text_id] = (number, display, report)
    if not rows and not faults:
        faults.append(f"{path}:1: the table has no texts: write some")
    return [(text_id, *rows[text_id][1:]) for text_id in sorted(rows)]


def literal(text):
    """A C++ string literal, in ASCII whatever the compiler takes its source for."""
    result = ""
    for byte in text.encode("utf-8"):
        character = chr(byte)
        if character in '"\\':
            result += "\\" + character
        else:
            result += character if byte < 0x80 else f"\\{byte:03o}"
    return f'"{result}"'


def source_of(tables):
    lines = ["// Made by texts.py from the text tables; change those.", '#include "text/TextTables.h"', ""]
    lines += ["namespace zelsuite::text", "{", "", "namespace", "{", ""]
    for index, (_, rows) in enumerate(tables):
        lines.append(f"constexpr TextRow rows{index}[] = {{")
        lines += [f"    {{{i}u, {literal(display)}, {literal(report)}}}," for i, display, report in rows]
        lines += ["};", ""]
    lines.append("constexpr TextTable tables[] = {")
    lines += [f"    {{{literal(name)}, rows{index}}}," for index, (name, _) in enumerate(tables)]
    lines += ["};", "", "} // namespace", ""]
    lines += ["std::span<const TextTable> textTables() { return tables; }", ""]
    lines += ["} // namespace zelsuite::text", ""]
    return "\n".join(lines)


def main(arguments):
    if len(arguments) < 2:
        print(__doc__.split("\n\n")[1], file=sys.stderr)
        return 2
    out, paths = arguments[0], [pathlib.Path(argument) for argument in arguments[1:]]
    faults = []
    tables = [(path.stem, read_table(path, faults)) for path in paths]
    if faults:
        print("\n".join(faults), file=sys.stderr)
        return 1
    pathlib.Path(out).write_text(source_of(tables), encoding="ascii")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
