#!/usr/bin/env python3
"""Writes data/SOURCES.md: what each code decides itself, with source, status and the reviewers' ticks.

usage: sources.py [--check] [DIRECTORY-OF-DATA]

With --check nothing is written: it fails when the page is out of date. Either way a value without a
source or status, one of a wrong form, a follower (PSI11, PSI21, PSI22) that was left behind, a set that EC
lacks and a tick that stands nowhere are reported as file:line; stale ticks are told. The attributes are described at the head of
ActionTypes.xml and of Profiles/Standard.xml, the ticks in docs/data-files.md.
"""

import collections
import dataclasses
import datetime
import itertools
import pathlib
import re
import sys
import xml.parsers.expat

CODES = ["EC", "DIN-1988", "DIN-2008", "SIA", "OENORM", "CSN", "BS", "DIN-EN"]
STRUCTURES = ["BUILDING", "ROADWAY", "RAILWAY1", "RAILWAY2", "RAILWAY3", "FOOTBRIDGE1"]
FACTORS = ["GAMMA_SUP", "GAMMA_INF", "PSI0", "PSI1", "PSI2", "PSI11", "PSI21", "PSI22", "CrackRed"]
FOLLOWS = {"PSI11": "PSI1", "PSI21": "PSI2", "PSI22": "PSI2"}
SITUATIONS = ["PERSISTENT", "ACCIDENTAL", "ACCIDENTAL_EQ"]
CLASSIFICATIONS = ["BUILDING", "BRIDGE"]
STRESSBLOCK = ["STRUTFACTOR", "ETA", "LAMBDA"]
STATUSES = ["CONFIRMED-2S", "CONFIRMED-1S+T", "CONFIRMED-T", "SAFER", "INHERITED", "CONVENTION", "OFFICE"]
TICK = re.compile(r"([^,:|]+) (\d{4}-\d\d-\d\d), edition ([^:|]+): ([^|]+)")


class Element:
    """An element of a data file with the line it begins on."""

    def __init__(self, path, line, name, attributes, parent):
        self.path, self.line, self.name, self.attributes, self.parent = path, line, name, attributes, parent
        self.children, self.text = [], ""

    def get(self, attribute):
        return self.attributes.get(attribute)

    def child(self, name):
        return next((child for child in self.children if child.name == name), None)


def parse(path):
    stack = [Element(path, 0, "", {}, None)]
    parser = xml.parsers.expat.ParserCreate()

    def start(name, attributes):
        element = Element(path, parser.CurrentLineNumber, name, attributes, stack[-1])
        stack[-1].children.append(element)
        stack.append(element)

    def data(text):
        stack[-1].text += text

    parser.StartElementHandler = start
    parser.EndElementHandler = lambda _: stack.pop()
    parser.CharacterDataHandler = data
    try:
        parser.Parse(path.read_bytes(), True)
    except xml.parsers.expat.ExpatError as error:
        sys.exit(f"{path}:{error.lineno}: {xml.parsers.expat.ErrorString(error.code)}")
    return stack[0].children[0]


@dataclasses.dataclass(frozen=True)
class Value:
    number: str
    source: str
    status: str
    note: str = None
    place: Element = None  # the set, DEFAULT or annex that decides it; None: taken as EC, not confirmed
    follower: bool = False  # repeats PSI1 or PSI2, and has its source and status


class Reader:
    """The values of both files: sets[code, action, structure][factor], materials[code, table][column]."""

    def __init__(self, data):
        self.sets, self.materials, self.faults = {}, {}, []
        self.places = {}  # (element, structure of an action's annex): what a tick there may repeat
        self.marked = []  # elements with a tick
        self.notes = collections.defaultdict(list)
        self.actions = parse(data / "ActionTypes.xml").child("ACTIONTYPES").children
        for action in self.actions:
            self.action(action)
        settings = parse(data / "Profiles" / "Standard.xml")
        self.tables = settings.child("COEFFICIENTS").children + [settings.child("STRESSBLOCK")]
        for table in self.tables:
            self.table(table)
        self.ticks = self.verdicts()

    def fault(self, element, what):
        self.faults.append(f"{element.path}:{element.line}: {what}")

    def value(self, element, origins, place, follower=False):
        """Of the origins, pairs of source and status, the first that is present counts."""
        source, status = next((origin for origin in origins if any(origin)), (None, None))
        what = f"{element.name} of {place.parent.get('NAME') or place.parent.name} {place.get('NAME')}"
        if not source or not status:
            self.fault(element, f"{what} has no {'status' if source else 'source'}")
        elif len([field for field in source.split(",") if field.strip()]) != 3 or source.count(",") != 2:
            self.fault(element, f'{what}: "{source}" is not "standard, table or clause, row"')
        elif status not in STATUSES:
            self.fault(element, f"{what}: {status} is none of {', '.join(STATUSES)}")
        elif source.startswith("Data set") and status not in ("CONVENTION", "OFFICE"):
            self.fault(element, f"{what}: a choice of the data set has the status CONVENTION")
        if not re.fullmatch(r"\d+(\.\d+)?", element.text.strip()):
            self.fault(element, f'{what}: "{element.text}" is no number')
        return Value(element.text.strip(), source, status, element.get("NOTE") or place.get("NOTE"),
                     place, follower)

    # Action types

    def action(self, action):
        word = action.get("NAME")
        annexes = {annex.get("NAME"): annex for annex in action.child("ANNEXES").children}
        if list(annexes) != CODES:
            self.fault(action, f"{word} has the annexes {list(annexes)} instead of {CODES}")
            return
        eurocode = {}
        for code, annex in annexes.items():
            self.place(annex)
            sets = self.own_sets(annex, {} if code == "EC" else self.taken(annex, eurocode))
            for structure, factors in sets.items():
                self.follow(annex, structure, factors)
                self.sets[code, word, structure] = factors
                if code != "EC":
                    self.annex_place(annex, structure, factors, eurocode)
                for factor in FACTORS[:-1]:
                    if factor not in factors:
                        self.fault(annex, f"{word} {code} {structure} has no {factor}: it would be 0")
            if code == "EC":
                eurocode = sets
            if annex.get("NOTE"):
                self.notes[code].append(f"{word}: {annex.get('NOTE')}.")

    def taken(self, annex, eurocode):
        """The sets that a national annex starts from; BUILDING_VALUES are confirmed for the nation."""
        confirmed = (annex.get("BUILDING_VALUES") or "").split()
        source, status = annex.get("BUILDING_SOURCE"), annex.get("BUILDING_STATUS")
        if confirmed and not (source and status):
            self.fault(annex, "BUILDING_VALUES without BUILDING_SOURCE or BUILDING_STATUS")
        for element in annex.children:
            if element.get("NAME") in ("BUILDING", "DEFAULT"):
                for twice in [value.name for value in element.children if value.name in confirmed]:
                    self.fault(element, f"{twice} is given, and confirmed by BUILDING_VALUES")

        def heir(structure, factor, value):
            if structure == "BUILDING" and factor in confirmed and value.status != "OFFICE":
                return dataclasses.replace(value, source=source, status=status, note=None, place=annex)
            return dataclasses.replace(value, place=None, note=None, status=(
                "OFFICE" if value.status == "OFFICE" else "INHERITED"))

        return {structure: {factor: heir(structure, factor, value) for factor, value in factors.items()}
                for structure, factors in eurocode.items()}

    def own_sets(self, annex, sets):
        """As the library reads: a DEFAULT reaches the sets behind it, under a national code all."""
        overlay = {}
        for element in annex.children:
            given = {}
            for value in element.children:
                if value.name not in FACTORS:
                    self.fault(value, f"{value.name} is no factor")
                    continue
                origins = [(value.get("SOURCE"), value.get("STATUS"))]
                follower = value.name in FOLLOWS and not any(origins[0])
                if value.name.startswith("GAMMA"):
                    origins.append((element.get("GAMMA_SOURCE"), element.get("GAMMA_STATUS")))
                origins.append((element.get("SOURCE"), element.get("STATUS")))
                given[value.name] = self.value(value, origins, element, follower)
            structure, national = element.get("NAME"), annex.get("NAME") != "EC"
            if structure == "DEFAULT":
                overlay.update(given)
                if national:
                    for name, factors in sets.items():
                        sets[name] = {**without_crack_reduction(factors), **overlay}
            else:
                if national and structure not in sets:
                    self.fault(element, f"EC has no set for {structure}, so this one starts with zeros")
                sets[structure] = {**without_crack_reduction(sets.get(structure, {})), **overlay, **given}
            self.place(element, given.values(), [v for v in given.values() if not v.follower])
        return sets

    def follow(self, annex, structure, factors):
        for name, leader in FOLLOWS.items():
            follower, led = factors.get(name), factors.get(leader)
            if not follower or not led or not follower.follower:
                continue
            if float(follower.number) != float(led.number):
                self.fault(annex, f"{name} of {structure} is {follower.number} and {leader} "
                                  f"{led.number}: give {name} too, or a SOURCE of its own")
            factors[name] = dataclasses.replace(follower, source=led.source, status=led.status,
                                                place=led.place and follower.place or led.place)

    # Materials

    def table(self, table):
        columns = (STRESSBLOCK if table.name == "STRESSBLOCK" else
                   CLASSIFICATIONS if table.name.startswith("ALPHA") else SITUATIONS)
        eurocode = {}
        for annex in table.children:
            values = {}
            for value in annex.children:
                if value.name not in columns:
                    self.fault(value, f"{table.name} has a {value.name} instead of one of {columns}")
                    continue
                values[value.name] = self.value(value, [(value.get("SOURCE") or annex.get("SOURCE"),
                                                         value.get("STATUS") or annex.get("STATUS"))], annex)
            code = annex.get("NAME")
            if (code == "EC") != (annex is table.children[0]):
                self.fault(annex, f"{table.name}: the annex EC has to stand first")
            eurocode = values if code == "EC" else eurocode
            self.materials[code, table.name] = {
                column: values.get(column) or dataclasses.replace(
                    eurocode[column], place=None,
                    status="OFFICE" if eurocode[column].status == "OFFICE" else "INHERITED")
                for column in columns if column in values or column in eurocode}
            self.place(annex, self.materials[code, table.name].values(), values.values() or
                       self.materials[code, table.name].values())

    # Ticks

    def place(self, element, *wordings):
        """A place for a tick that repeats one of the lists of values."""
        wordings = [[value.number for value in values] for values in wordings]
        if any(wordings):
            self.places[element, None] = wordings
        if element.get("CHECKED") is not None:
            self.marked.append(element)

    def annex_place(self, annex, structure, factors, eurocode):
        """The annex of an action holds the ticks of what it takes as EC: "-" for what it gives itself."""
        taken = [value.number if value.place in (None, annex) else "-"
                 for factor, value in in_order(factors) if not value.follower]
        if set(taken) != {"-"}:
            self.places[annex, structure] = [taken]
        for factor, value in factors.items():
            if value.status == "INHERITED" and structure in eurocode and (
                    float(value.number) != float(eurocode[structure][factor].number)):
                self.fault(annex, f"{factor} of {structure} is marked as the value of EC, which is "
                                  f"{eurocode[structure][factor].number}: change it too")

    def verdicts(self):
        """{(element, structure or None): (who, what was read or None where it still holds)}"""
        verdicts = {}
        for element in self.marked:
            found = TICK.fullmatch(element.get("CHECKED"))
            try:
                datetime.date.fromisoformat(found[2])
            except (TypeError, ValueError):
                self.fault(element, f'"{element.get("CHECKED")}" is not "initials YYYY-MM-DD, edition YEAR: values"')
                continue
            who = f"{found[1]} {found[2]}, edition {found[3]}"
            for structure, read in self.parts(element, found[4]):
                if (element, structure) not in self.places and (structure is None or structure not in STRUCTURES):
                    self.fault(element, f'"{found[4]}" ticks nothing here; SOURCES.md says what to write')
                elif (element, structure) in verdicts:
                    self.fault(element, f"{structure} is ticked twice")
                else:
                    wordings = self.places.get((element, structure), [])
                    holds = any(same_numbers(read, wording) for wording in wordings)
                    verdicts[element, structure] = who, None if holds else " ".join(read)
        return verdicts

    @staticmethod
    def parts(element, text):
        """The parts of a tick: [(structure or None, words of numbers)]."""
        if not is_annex_of_action(element):
            return [(None, text.split())]
        parts = []
        for part in text.split(";"):
            words = part.replace("RAILWAY1-3", "RAILWAY1 RAILWAY2 RAILWAY3").split()
            names = list(itertools.takewhile(lambda word: word[0].isalpha(), words))
            parts += [(name, words[len(names):]) for name in names or [None]]
        return parts


def is_annex_of_action(element):
    return element.name == "ANNEX" and element.parent.name == "ANNEXES"


def in_order(factors):
    return [(factor, factors[factor]) for factor in FACTORS if factor in factors]


def same_numbers(left, right):
    def number(word):
        return float(word) if re.fullmatch(r"\d+(\.\d*)?", word) else word
    return list(map(number, left)) == list(map(number, right))


def without_crack_reduction(factors):
    """A set takes crack reduction 1 by being named, and by a DEFAULT, unless they give another."""
    return {factor: value for factor, value in factors.items() if factor != "CrackRed"}


def names_of(structures):
    return " ".join(structures).replace("RAILWAY1 RAILWAY2 RAILWAY3", "RAILWAY1-3")


def tick_cell(reader, places):
    """Ticked when all places are; else what to paste, places that repeat the same in one line."""
    lines, groups = [], collections.defaultdict(list)
    for element, structure in places:
        who, stale = reader.ticks.get((element, structure), (None, None))
        wording = reader.places[element, structure][-1]
        state = f"STALE: {who} read {stale}. " if stale else f"ticked: {who}" if who else ""
        groups[state, " ".join(([structure] if structure else []) + wording)].append(
            element.get("NAME") if element.name == "CLASSIFICATION" else "ANNEX")
    for (state, now), names in groups.items():
        paste = "" if state.startswith("ticked") else f'`CHECKED="XX YYYY-MM-DD, edition YYYY: {now}"`'
        lines.append(f"{names_of(dict.fromkeys(names))}: {state}{paste}")
    return "<br>".join(lines)


def origin_cell(values):
    """Sources and statuses, each with its factors where there are several. values: {factor: Value}."""
    groups = collections.defaultdict(list)
    for factor, value in values.items():
        groups[value.source, value.status].append(factor)
    texts = [f"{source} ({status})" + (f": {' '.join(factors)}" if len(groups) > 1 else "")
             for (source, status), factors in groups.items()]
    notes = sorted({value.note for value in values.values() if value.note})
    return "; ".join(texts) + "".join(f". Note: {note}" for note in notes)


def action_rows(reader, code):
    """[(action, structures, own values, places)]: structures with equal own values together."""
    for action in reader.actions:
        groups = collections.defaultdict(list)
        for structure in STRUCTURES:
            factors = reader.sets.get((code, action.get("NAME"), structure), {})
            own = {f: v for f, v in in_order(factors) if v.place is not None}
            if own:
                groups[tuple((f, float(v.number), v.source, v.status, v.note) for f, v in own.items()
                             if not v.follower)].append((structure, own))
        for members in groups.values():
            places = dict.fromkeys((value.place, structure if is_annex_of_action(value.place) else None)
                                   for structure, own in members for value in own.values())
            annex = next(annex for annex in action.child("ANNEXES").children if annex.get("NAME") == code)
            places |= dict.fromkeys((annex, structure) for structure, _ in members
                                    if (annex, structure) in reader.ticks)
            yield action.get("NAME"), [s for s, _ in members], members[0][1], places


def taken_as_ec(reader, code):
    """The actions with structures of which the code decides nothing: "G1; U (RAILWAY1-3)", and the
    reviewers' ticks on these."""
    texts, ticks = [], []
    for action in reader.actions:
        word = action.get("NAME")
        annex = next(annex for annex in action.child("ANNEXES").children if annex.get("NAME") == code)
        there = {s: reader.sets[code, word, s] for s in STRUCTURES if (code, word, s) in reader.sets}
        taken = [s for s, factors in there.items() if all(v.place is None for v in factors.values())]
        if taken:
            bridges = names_of(taken).replace("ROADWAY RAILWAY1-3 FOOTBRIDGE1", "bridges")
            texts.append(word + ("" if len(taken) == len(there) else f" ({bridges})"))
        ticks += [f"- {word} as EC: {tick_cell(reader, [(annex, s)])}\n" for s in taken
                  if (annex, s) in reader.ticks]
    return f"Taken as EC: {'; '.join(texts) or 'nothing'}.\n" + "".join(ticks)


def table(head, rows):
    if not rows:
        return ""
    return "\n".join(["", head, "|" + " --- |" * (head.count("|") - 1),
                      *("| " + " | ".join(row) + " |" for row in rows), ""])


HEADER = """\
# Sources of the shipped values

Made by `cmake/sources.py` from `ActionTypes.xml` and `Profiles/Standard.xml`; do not edit. It lists what
each code decides itself; all else is taken as EC. An empty cell is taken as EC too; psi11 repeats psi1, and
psi21 and psi22 repeat psi2, where nothing else is said. Crack reduction is 1. Only numbers are taken from
the standards.

To tick a row, with the standard in hand: paste its `CHECKED` into the start tag of the element that is named
(the set or DEFAULT of that name; ANNEX: the start tag of the annex), put in your initials, the date and the
edition, and make this page anew. A value that changes afterwards makes the tick stale. What a code takes as EC
is ticked on its ANNEX, with the text of the last column of the row under EC, "-" in the place of a value that
the annex gives itself; several such parts are parted by ";".

| Status | Meaning |
| --- | --- |
| CONFIRMED-2S | at least two independent public sources agree |
| CONFIRMED-1S+T | one public source agrees, and the standard's own table is known |
| CONFIRMED-T | from the standard's own table as known, without a copy at hand: compare it once with the standard |
| SAFER | believed national value without a copy at hand, shipped because EC's would be on the unsafe side |
| INHERITED | the recommended value of EC; the national value is not confirmed |
| CONVENTION | a choice of this data set, not a value of a standard |
| OFFICE | an office's own value |

DIN-1988 is not meant for the limit-state design of steel. The stress block of EC holds for every code but
DIN-1988, which has none.
"""


def counts(reader):
    count = collections.Counter()
    for (code, *_), values in itertools.chain(reader.sets.items(), reader.materials.items()):
        count.update((code, value.status) for value in values.values())
    yield "\n## Counts\n\nValues by status:\n"
    yield table("| Values of | " + " | ".join(STATUSES) + " |",
                [[code, *(str(count[code, s]) for s in STATUSES)] for code in CODES])

    def differing(code, structure):
        return sum(any(float(value.number) != float(reader.sets["EC", action, s][factor].number)
                       for factor, value in values.items())
                   for (c, action, s), values in reader.sets.items() if (c, s) == (code, structure))

    yield "\nActions whose factors differ from those of EC:\n"
    yield table("| Code | " + " | ".join(STRUCTURES) + " |",
                [[code, *(str(differing(code, s)) for s in STRUCTURES)] for code in CODES[1:]])


def page(reader):
    yield HEADER
    yield from counts(reader)
    conventions = collections.defaultdict(list)
    for code in CODES:
        rows = []
        for action, structures, own, places in action_rows(reader, code):
            leaders = {f: v for f, v in own.items() if not v.follower}
            shown = [leaders[f].number if f in leaders else "" for f in FACTORS[:6]]
            extra = [f" {f} {leaders[f].number}" for f in FACTORS[6:] if f in leaders]
            as_ec = [f"`{names_of(structures)} {' '.join(v.number for v in leaders.values())}`"] * (code == "EC")
            ticks = tick_cell(reader, places)
            if {v.status for v in own.values()} == {"CONVENTION"} and not extra:
                choice = "; ".join(dict.fromkeys(v.source.removeprefix("Data set, convention, ")
                                                 for v in leaders.values()))
                conventions[code, *shown, choice, ticks].append(f"{action} ({names_of(structures)})")
                continue
            rows.append([action, names_of(structures), *shown, origin_cell(leaders) + "".join(extra), ticks,
                         *as_ec])
        yield f"\n## {code}\n\n"
        yield taken_as_ec(reader, code) if code != "EC" else ""
        yield "".join(f"- {note}\n" for note in reader.notes[code])
        yield table("| Action | Structures | gamma sup | gamma inf | psi0 | psi1 | psi2 | psi11 | Source and "
                    "status | Tick |" + (" To tick as EC |" if code == "EC" else ""), rows)
    yield "\n## Conventions of this data set\n"
    yield table("| Code | gamma sup | gamma inf | psi0 | psi1 | psi2 | psi11 | Choice | Actions | Tick |",
                [[*key[:-1], "; ".join(actions), key[-1]] for key, actions in conventions.items()])
    yield "\n## Materials\n"
    for code in CODES:
        rows, taken = [], []
        for (_, name), values in [item for item in reader.materials.items() if item[0][0] == code]:
            own = {column: value for column, value in values.items() if value.place}
            annex = next(a for t in reader.tables if t.name == name for a in t.children if a.get("NAME") == code)
            tick = tick_cell(reader, [(annex, None)])
            if own:
                rows.append([name, ", ".join(f"{column} {value.number}" for column, value in own.items()),
                             origin_cell(own), tick])
            elif (annex, None) in reader.ticks:
                rows.append([name, "taken as EC", "", tick])
            else:
                taken.append(name)
        yield f"\n### {code}\n" + (f"\nTaken as EC: {', '.join(taken)}.\n" if taken else "")
        yield table("| Table | Values | Source and status | Tick |", rows)


def main():
    arguments = sys.argv[1:]
    check = "--check" in arguments
    directories = [argument for argument in arguments if argument != "--check"]
    data = pathlib.Path(directories[0]) if directories else (
        pathlib.Path(__file__).resolve().parents[1] / "data")
    reader = Reader(data)
    if reader.faults:
        sys.exit("\n".join(reader.faults))
    text = "".join(page(reader))
    path = data / "SOURCES.md"
    if not check:
        path.write_text(text, encoding="utf-8", newline="\n")
    elif not path.exists() or path.read_text(encoding="utf-8") != text:
        sys.exit(f"{path}: out of date; refresh it with cmake/sources.py")
    stale = [(element, structure, who, read) for (element, structure), (who, read) in reader.ticks.items() if read]
    print(f"{path}: {len(text.splitlines())} lines, {len(reader.marked)} ticks, "
          f"{len({element for element, *_ in stale})} stale")
    for element, structure, who, read in stale:
        now = " ".join(reader.places.get((element, structure), [["nothing is taken as EC"]])[-1])
        print(f"stale: {element.path}:{element.line}: {' '.join(filter(None, [element.get('NAME'), structure]))}: "
              f"{who} read {read}, now {now}")


if __name__ == "__main__":
    main()
