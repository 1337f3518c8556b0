"""Checks families, tags and superposition rules of the shipped data, and what the library makes of them.

usage: check_rules.py SOURCE-DIRECTORY COMMAND... [--refresh]

A reading of the files that knows nothing of the library's must give what the library answers; families and
tags are those of tests/data/tables; and under all settings there are the combinations that an engineer needs.
The rules are as they were reviewed, in tests/golden/superposition.txt, which --refresh writes anew.
"""

import collections
import pathlib
import re
import subprocess
import sys
import textwrap
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(sys.argv[1])
PROGRAM = [argument for argument in sys.argv[2:] if argument != "--refresh"]
GOLDEN = ROOT / "tests" / "golden" / "superposition.txt"
DATA, TABLES = ROOT / "data", ROOT / "tests" / "data" / "tables"
STRUCTURES = {"all": "", "buildings": "", "bridges": "", "road": "ROADWAY", "rail": "RAILWAY1 RAILWAY2 RAILWAY3",
              "foot": "FOOTBRIDGE1", "road foot": "ROADWAY FOOTBRIDGE1"}
OPERATORS = "- NONE AND OR AND_MINMAX OR_MINMAX".split()
BRIDGES = "ROADWAY RAILWAY1 RAILWAY2 RAILWAY3 FOOTBRIDGE1".split()
CODES = "EC DIN-1988 DIN-2008 SIA OENORM CSN BS DIN-EN".split()
MATERIALS = "CONCRETE STEEL TIMBER ROPE COMPOSITE_STEEL COMPOSITE_CONCRETE".split()
KINDS = {"buildings": "BUILDING", "all": ""}
# With all others these enter whole.
WHOLE = re.compile(r"FATIGUE|TOTAL|ELM4_\d\d")


def rows(name):
    lines = [line for line in (TABLES / name).read_text(encoding="utf-8").splitlines() if line[:1] not in ("", "#")]
    columns = [cell.strip() for cell in lines[0].split("|")]
    for line in lines[1:]:
        # A tag may hold "|" itself: the columns are counted from the end.
        first, *rest = line.rsplit("|", len(columns) - 1)
        yield dict(zip(columns, [cell.strip() for cell in (first, *rest)]))


def tree(name):
    return ElementTree.parse(DATA / name).getroot()


def text(element, name):
    return (element.findtext(name) or "").strip()


def tags_read():
    """A line for each tag, as the command shows one."""
    numbers = {"AGR_AU": "1", "AGR_AO": "2", "AGR_GR3": "3", "0": "0"}
    for element in tree("StateAttributes.xml"):
        codes, bridges = ({child.tag for child in element.find(name)} for name in ("STANDARD", "BRIDGETYPE"))
        yield (f"{element.get('NAME')} action {text(element, 'ACTIONTYPE')} operator {text(element, 'OPERATOR')} "
               f"type {text(element, 'TYPE')} load {text(element, 'LOAD_TYPE')} "
               f"classifications {text(element, 'CLASSIFICATION') or 'all'} "
               f"standards {','.join(c for c in CODES if c.replace('-', '_') in codes) or 'all'} "
               f"bridges {','.join(bridge for bridge in BRIDGES if bridge in bridges) or 'all'} "
               f"excl {text(element, 'EXCLGROUP')} comb {numbers[text(element, 'COMBGROUP')]}")


def tags_transcribed():
    """The same by the table: what a tag means."""
    known = list(rows("attributes.txt"))
    for element in tree("StateAttributes.xml"):
        tag = element.get("NAME")
        for row in known:
            found = re.fullmatch(row["tag"].replace("TRACK", "(?P<n>[1-3])"), tag)
            if not found:
                continue
            track = int(found.groupdict().get("n") or 0)
            bridges = STRUCTURES[row["structures"]].split()
            bridges = [b for b in bridges if not track or int(b[-1]) >= track]
            same = re.sub(r"_[1-3]$", "", tag) if track else tag
            action = {"same": same, "part": found[1] if found.re.groups else ""}.get(row["action"], row["action"])
            kind = KINDS.get(row["structures"], "" if tag in ("TRAFFIC", "EXCLUSIVE") else "BRIDGE")
            exclusion = str(int(row["exclusion"].removesuffix("+n")) + (track if "+n" in row["exclusion"] else 0))
            yield (tag, action, row["operator"], kind, " ".join(bridges), exclusion, row["combination"])
            break
        else:
            yield (tag, "no row of the table fits it")


def tags_shipped():
    for e in tree("StateAttributes.xml"):
        bridges = {child.tag for child in e.find("BRIDGETYPE")}
        yield (e.get("NAME"), text(e, "ACTIONTYPE"), text(e, "OPERATOR"), text(e, "CLASSIFICATION"),
               " ".join(b for b in BRIDGES if b in bridges), text(e, "EXCLGROUP"), text(e, "COMBGROUP"))


def rules_read(types):
    """The lines of the superposition rules: the first mention of a tag counts, blocks stand for their entries."""
    blocks, taken = collections.defaultdict(list), {}
    for element in tree("Profiles/Standard.xml").iter("STATEINSTRUCTIONS").__next__():
        if element.tag == "DEFAULT_BLOCKS":
            for block in element:
                blocks[block.get("NAME")] += [(e.get("NAME"), e.get("OPERATOR")) for e in block]
            continue
        rule = taken.setdefault((element.get("TEMPLATE"), element.get("TYPE")), {})
        for entry in element.find("STATEATTRIBUTES"):
            pulled = [e for name in entry for e in blocks[name.tag]] if entry.tag == "DEFAULT_BLOCKS" else \
                [(entry.get("NAME"), entry.get("OPERATOR"))]
            for tag, operator in pulled:
                rule.setdefault(tag, operator)
        for name in [name.tag for name in element.iter() if name.tag in blocks and not blocks[name.tag]]:
            yield f"{name} is used and not defined"
    for (template, kind), tags in taken.items():
        for tag, operator in tags.items():
            yield f"{template} {kind} {tag} {operator} {' '.join(types[tag])}"


def combinations(answers, families, tags):
    """Under all settings the rules that an engineer needs hold permanent actions that always act, variable ones,
    and on a bridge traffic; and every tag that is offered has an action with factors."""
    rules = collections.defaultdict(dict)
    for line in answers["rule"]:
        template, kind, tag, operator, *_ = line.split()
        rules[template, kind][tag] = operator
    factors = {tuple(line.split()[:3]): line.split()[3:] for line in answers["factors"]}
    for line in answers["active"]:
        code, structure, material, template, *active = line.split()
        where = f"{code} {structure} {material}"
        for tag in active:
            given = factors.get((code, structure, tags[tag][1]))
            if not given:
                yield f"{where}: {tag} has no factors"
            elif WHOLE.fullmatch(tag) and set(given) != {"1"}:
                yield f"{where}: {tag} does not enter whole"
        bridge = structure != "BUILDING"
        for kind in ["FUNDAMENTAL", "CHARACTERISTIC", "QUASI_PERMANENT"] + ["FATIGUE"] * bridge:
            rule = {tag: operator for tag, operator in rules[template, kind].items() if tag in active}
            family = {tag: families[tags[tag][1]] for tag in rule}
            if not any(family[tag] == "G" and operator == "AND" for tag, operator in rule.items()):
                yield f"{where} {kind}: no permanent action"
            if all(family[tag] in "GV" for tag in rule):
                yield f"{where} {kind}: no variable action"
            if bridge and kind != "QUASI_PERMANENT" and not any(
                    family[tag] == "P" or WHOLE.fullmatch(tag) for tag in rule):
                yield f"{where} {kind}: no traffic"


def compare(what, wanted, given, by):
    wanted, given = set(wanted), set(given)
    for line in sorted(wanted ^ given, key=str):
        yield f"{what} {' '.join(line) if isinstance(line, tuple) else line}: {'' if line in wanted else 'not '}{by}"


def reviewed(rules):
    """The rules to read: those of a template with the same tags together, the tags of an operator in their order."""
    templates = {}
    for template, kind, tag, operator, *_ in map(str.split, rules):
        templates.setdefault(template, {}).setdefault(kind, {}).setdefault(operator, []).append(tag)
    yield "The superposition rules of data/Profiles/Standard.xml. Instructions of a template with the"
    yield "same attributes stand together; a line holds the tokens of one operator in their order."
    for template, kinds in templates.items():
        yield from ("", template)
        alike = collections.defaultdict(list)
        for kind, tags in kinds.items():
            alike[tuple((o, " ".join(tags[o])) for o in OPERATORS if o in tags)].append(kind)
        for tags, names in alike.items():
            yield from ("", *("  " + name for name in names))
            for operator, line in tags:
                yield from textwrap.wrap(line, 100, initial_indent=f"    {operator:12}", subsequent_indent=" " * 16)


def ask():
    """kind: the lines that the command answers."""
    settings = [(code, structure, material) for code in CODES for structure in ["BUILDING", *BRIDGES]
                for material in MATERIALS]
    lines = ["dump actions", "echo", "dump attributes", "echo", "dump rules", "echo"]
    for code, structure, material in settings:
        lines += [f"code {code}", f"for {structure}", f"material {material}", "dump active"]
    run = subprocess.run([*PROGRAM, "--data", str(DATA), "batch"], input="\n".join(lines), capture_output=True,
                         text=True, timeout=120, check=True)
    actions, tags, rules, active = (part.splitlines() for part in run.stdout.split("\n\n"))
    words = [line.split() for line in actions]
    return {"factors": [" ".join([line[1], line[2], line[0], *line[3:]]) for line in words if line[1] != "group"],
            "action": [" ".join(line[0:5:2]) for line in words if line[1] == "group"], "attribute": tags,
            "rule": [line for line in rules if len(line.split()) > 2],
            "active": [" ".join([*where, *line.split()[1:]]) for where, line in zip(settings, active, strict=True)]}


def faults():
    answers = ask()
    if "--refresh" in sys.argv:
        GOLDEN.write_text("".join(line + "\n" for line in reviewed(answers["rule"])), encoding="utf-8")
    if list(reviewed(answers["rule"])) != GOLDEN.read_text(encoding="utf-8").splitlines():
        yield f"the rules are not those of {GOLDEN}; if they are wanted: python3 {' '.join(sys.argv)} --refresh"
    shipped = [(e.get("NAME"), text(e, "ACTIONGROUP"), text(e, "LOADDURATION"))
               for e in tree("ActionTypes.xml").iter("ACTIONTYPE")]
    transcribed = [(action, row["group"], row["duration"]) for row in rows("families.txt")
                   for action in row["actions"].split()]
    if len(shipped) != len(set(shipped)) or len(shipped) < 50 or len(answers["attribute"]) < 130:
        yield "an action stands twice, or there are fewer than there were"
    yield from compare("action", transcribed, shipped, "by the table of families")
    yield from compare("action", [" ".join(row) for row in shipped], answers["action"], "in the file")
    yield from compare("tag", tags_transcribed(), tags_shipped(), "by the table of tags")
    yield from compare("tag", tags_read(), answers["attribute"], "in the file")
    types = {line.split()[0]: line.split()[6:9:2] for line in tags_read()}
    yield from compare("rule", rules_read(types), answers["rule"], "in the file")
    tags = {row[0]: row for row in tags_shipped()}
    for line in answers["rule"]:
        template, kind, tag, operator, *_ = line.split()
        if tags[tag][2] != operator:
            yield f"{template} {kind}: {tag} has the operator {operator}, the tag itself {tags[tag][2]}"
    yield from combinations(answers, {row[0]: row[1] for row in shipped}, tags)


found = list(faults())
print("\n".join(found[:40]) or "families, tags and rules are those of the tables, of the files and of the library")
sys.exit(1 if found else 0)
