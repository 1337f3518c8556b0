#!/usr/bin/env python3
"""Writes data/SOURCES.md, the list of every shipped value with its source and status.

usage: sources.py [--check] [DIRECTORY-OF-DATA]

With --check nothing is written: it fails when the list is out of date. Either way a value without
a source or status, or with one of a wrong form, is reported as file:line. The attributes that hold
them, and which of them counts for a value, are described at the head of ActionTypes.xml and of
Profiles/Standard.xml.
"""

import collections
import pathlib
import re
import sys
import xml.parsers.expat

CODES = ["EC", "DIN-1988", "DIN-2008", "SIA", "OENORM", "CSN", "BS", "DIN-EN"]
FACTORS = ["GAMMA_SUP", "GAMMA_INF", "PSI0", "PSI1", "PSI2", "PSI11", "PSI21", "PSI22", "CrackRed"]
OPTIONAL = "CrackRed"  # 1 where it is not given
REPEATS = {"PSI11": "PSI1", "PSI21": "PSI2", "PSI22": "PSI2"}
STRESSBLOCK = ["LAMBDA", "ETA", "STRUTFACTOR"]
WRITTEN_STATUSES = ["CONFIRMED-2S", "CONFIRMED-1S+T", "CONFIRMED-T", "CONVENTION"]

HEADER = """\
# Sources of the shipped values

Made by `cmake/sources.py` from `ActionTypes.xml` and `Profiles/Standard.xml`; do not edit. Every
value that the library reads from these two files has one row here, under the code that it holds for
and the table of the standard that it comes from, so that someone with the printed standard can tick
them off. Only numbers are taken from the standards.

| Status | Meaning |
| --- | --- |
| CONFIRMED-2S | at least two independent public sources agree |
| CONFIRMED-1S+T | one public source agrees, and the standard's own table is known |
| CONFIRMED-T | from the standard's own table as known, without a copy at hand: compare it once with the standard |
| INHERITED | the recommended value of EC; the national value is not confirmed. The heading names the source of the EC value |
| CONVENTION | a choice of this data set, not a value of a standard |

Crack reduction is 1 (CONVENTION) where it has no row. The values of STRESSBLOCK under EC hold
for every code but DIN-1988, which has none. DIN-1988 is not meant for the limit-state design of steel.
"""


class Element:
    """An element of a data file with the line it begins on."""

    def __init__(self, path, line, name, attributes):
        self.path, self.line, self.name, self.attributes = path, line, name, attributes
        self.children, self.text = [], ""

    def get(self, attribute):
        return self.attributes.get(attribute)

    def child(self, name):
        return next((child for child in self.children if child.name == name), None)


def parse(path):
    document = Element(path, 0, "", {})
    stack = [document]
    parser = xml.parsers.expat.ParserCreate()

    def start(name, attributes):
        element = Element(path, parser.CurrentLineNumber, name, attributes)
        stack[-1].children.append(element)
        stack.append(element)

    def end(_):
        stack.pop()

    def data(text):
        stack[-1].text += text

    parser.StartElementHandler, parser.EndElementHandler = start, end
    parser.CharacterDataHandler = data
    try:
        parser.Parse(path.read_bytes(), True)
    except xml.parsers.expat.ExpatError as error:
        sys.exit(f"{path}:{error.lineno}: {xml.parsers.expat.ErrorString(error.code)}")
    return document.children[0]


# A value: its text, its source, its status, a note.
Value = collections.namedtuple("Value", "number source status note")


class Reader:
    """Collects the rows (code, action or material, place, factor, Value) and the faults."""

    def __init__(self):
        self.rows, self.faults = [], []

    def fault(self, element, what):
        self.faults.append(f"{element.path}:{element.line}: {what}")

    def value(self, element, what, origins):
        """Of the origins, pairs of source and status, the first that is present counts."""
        source, status = next((origin for origin in origins if any(origin)), (None, None))
        if source is None or status is None:
            self.fault(element, f"{what} has no {'status' if source else 'source'}")
        else:
            self.check_source(element, what, source, status)
        try:
            float(element.text)
        except ValueError:
            self.fault(element, f'{what}: "{element.text}" is no number')
        return Value(element.text.strip(), source, status, element.get("NOTE"))

    def check_source(self, element, what, source, status):
        fields = [field.strip() for field in source.split(",")]
        if len(fields) != 3 or not all(fields):
            self.fault(element, f'{what}: "{source}" is not "standard, table or clause, row"')
        if status not in WRITTEN_STATUSES:
            self.fault(element, f"{what}: a value cannot have the status {status}")
        elif source.startswith("Data set") and status != "CONVENTION":
            self.fault(element, f"{what}: a choice of the data set has the status CONVENTION")

    # Action types

    def action_types(self, root):
        for action in root.child("ACTIONTYPES").children:
            word = action.get("NAME")
            annexes = {annex.get("NAME"): annex for annex in action.child("ANNEXES").children}
            if list(annexes) != CODES:
                self.fault(action, f"{word} has the annexes {list(annexes)} instead of {CODES}")
                continue
            eurocode = self.sets_of_annex(annexes["EC"], word, {})
            for code in CODES:
                sets = eurocode
                if code != "EC":
                    sets = self.sets_of_annex(
                        annexes[code], word, self.inherited(annexes[code], word, eurocode))
                for structure, factors in sets.items():
                    for factor in FACTORS:
                        if factor in factors:
                            self.rows.append((code, word, structure, factor, factors[factor]))
                        elif factor != OPTIONAL:
                            self.fault(annexes[code],
                                       f"{word} {code} {structure} has no {factor}: it would be 0")

    def inherited(self, annex, word, eurocode):
        """The sets that a national annex starts from."""
        confirmed = (annex.get("BUILDING_VALUES") or "").split()
        for factor in confirmed:
            if factor not in FACTORS or "BUILDING" not in eurocode:
                self.fault(annex, f"{word} confirms {factor} of a building, which EC has not")
        source, status = annex.get("BUILDING_SOURCE"), annex.get("BUILDING_STATUS")
        if confirmed and not (source and status):
            self.fault(annex, f"{word}: BUILDING_VALUES without BUILDING_SOURCE or BUILDING_STATUS")
        elif confirmed:
            self.check_source(annex, word, source, status)
        for element in annex.children:
            twice = [value.name for value in element.children if value.name in confirmed]
            if element.get("NAME") in ("BUILDING", "DEFAULT") and twice:
                self.fault(element, f"{word}: {twice} given, and confirmed by BUILDING_VALUES")
        sets = {}
        for structure, factors in eurocode.items():
            sets[structure] = {
                factor: value._replace(source=source, status=status)
                if structure == "BUILDING" and factor in confirmed
                else value._replace(status="INHERITED")
                for factor, value in factors.items()}
        return sets

    def sets_of_annex(self, annex, word, sets):
        """Follows the library: a DEFAULT reaches the sets behind it, under a national code all."""
        overlay = {}
        for element in annex.children:
            structure = element.get("NAME")
            given = {}
            for value in element.children:
                if value.name not in FACTORS:
                    self.fault(value, f"{word} has a {value.name}, which is no factor")
                    continue
                origins = [(value.get("SOURCE"), value.get("STATUS"))]
                if value.name in REPEATS:
                    origins.append(("Data set, convention, repeats " + REPEATS[value.name],
                                    "CONVENTION"))
                if value.name.startswith("GAMMA"):
                    origins.append((element.get("GAMMA_SOURCE"), element.get("GAMMA_STATUS")))
                origins.append((element.get("SOURCE"), element.get("STATUS")))
                read = self.value(value, f"{value.name} of {word}", origins)
                noted = "GAMMA" if "GAMMA_SOURCE" in element.attributes else ""
                if not read.note and value.name.startswith(noted):
                    read = read._replace(note=element.get("NOTE"))
                given[value.name] = read
            if structure == "DEFAULT":
                overlay.update(given)
                if annex.get("NAME") != "EC":
                    for factors in sets.values():
                        factors.update(overlay)
            else:
                sets[structure] = {**sets.get(structure, {}), **overlay, **given}
        return sets

    # Materials

    def materials(self, root):
        for table in root.child("COEFFICIENTS").children:
            places = ["BUILDING", "BRIDGE"] if table.name.startswith("ALPHA") else [
                "PERSISTENT", "ACCIDENTAL", "ACCIDENTAL_EQ"]
            annexes = {annex.get("NAME"): annex for annex in table.children}
            if list(annexes)[:1] != ["EC"]:
                self.fault(table, f"{table.name}: the annex EC has to stand first")
                continue
            eurocode = self.values_of_annex(annexes["EC"], table.name, places)
            for code in CODES:
                own = {}
                if code in annexes:
                    own = self.values_of_annex(annexes[code], table.name, places)
                for place in places:
                    if place in own:
                        value = own[place]
                    elif place in eurocode:
                        value = eurocode[place]._replace(status="INHERITED")
                    else:
                        self.fault(table, f"{table.name} has no {place} under EC")
                        continue
                    self.rows.append((code, "material", place, table.name, value))
        for annex in root.child("STRESSBLOCK").children:
            for factor, value in self.values_of_annex(annex, "STRESSBLOCK", STRESSBLOCK).items():
                self.rows.append((annex.get("NAME"), "material", "STRESSBLOCK", factor, value))

    def values_of_annex(self, annex, table, names):
        values = {}
        for value in annex.children:
            if value.name not in names:
                self.fault(value, f"{table} has a {value.name} instead of one of {names}")
            values[value.name] = self.value(value, f"{value.name} of {table}",
                                            [(value.get("SOURCE") or annex.get("SOURCE"),
                                              value.get("STATUS") or annex.get("STATUS"))])
        return values


def split(source, factor):
    """The standard with its table, and the row. "Tables 2 (psi) and 1 (gamma)" are told apart."""
    standard, table, row = (field.strip() for field in source.split(","))
    tables = re.fullmatch(r"Tables (\S+) \(psi\) and (\S+) \(gamma\)", table)
    if tables:
        table = "Table " + tables[2 if factor.startswith("GAMMA") else 1]
    return ("Choices of this data set" if standard == "Data set" else f"{standard}, {table}"), row


def listing(rows):
    lines = [HEADER]
    statuses = WRITTEN_STATUSES[:3] + ["INHERITED", "CONVENTION"]
    count = collections.Counter((code, value.status) for code, *_, value in rows)
    lines.append("| Values of | " + " | ".join(statuses) + " |")
    lines.append("| --- |" + " ---: |" * len(statuses))
    for code in CODES:
        lines.append(f"| {code} | " + " | ".join(str(count[code, s]) for s in statuses) + " |")
    for code in CODES:
        tables = {}
        for row_code, action, place, factor, value in rows:
            if row_code != code:
                continue
            heading, row = split(value.source, factor)
            if value.status == "INHERITED":
                heading = "Inherited from EC: " + heading
            tables.setdefault(heading, []).append((row, action, place, factor, value))
        lines.append(f"\n## {code}")
        for heading in sorted(tables, key=lambda text: text.startswith("Inherited")):
            lines.append(f"\n### {code}: {heading}\n")
            lines.append("| Row | Action | Structure or situation | Factor | Value | Status | ok |")
            lines.append("| --- | --- | --- | --- | ---: | --- | --- |")
            for row, action, place, factor, value in tables[heading]:
                note = f" ({value.note})" if value.note else ""
                lines.append(f"| {row}{note} | {action} | {place} | {factor} | {value.number} | "
                             f"{value.status} | |")
    return "\n".join(lines) + "\n"


def main():
    arguments = sys.argv[1:]
    check = "--check" in arguments
    directories = [argument for argument in arguments if argument != "--check"]
    data = pathlib.Path(directories[0]) if directories else (
        pathlib.Path(__file__).resolve().parents[1] / "data")
    reader = Reader()
    reader.action_types(parse(data / "ActionTypes.xml"))
    reader.materials(parse(data / "Profiles" / "Standard.xml"))
    if reader.faults:
        sys.exit("\n".join(reader.faults))
    text = listing(reader.rows)
    path = data / "SOURCES.md"
    if not check:
        path.write_text(text, encoding="utf-8", newline="\n")
        return
    old = path.read_text(encoding="utf-8") if path.exists() else ""
    if old == text:
        print(f"{len(reader.rows)} values have a source and stand in {path}")
        return
    differing = next((number for number, lines in enumerate(
        zip(old.split("\n"), text.split("\n")), start=1) if lines[0] != lines[1]), 1)
    sys.exit(f"{path}:{differing}: out of date; refresh it with cmake/sources.py")


main()
