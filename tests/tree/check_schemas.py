"""Checks documents against the schemas in data/schemas: the shipped data files, what the library
writes, and the samples of the guide pass; copies of the shipped files with one fault each do not.

The words are those of the library's tables.

usage: check_schemas.py SOURCE-DIRECTORY SCHEMA-WORDS-PROGRAM
"""

import pathlib
import re
import subprocess
import sys

SCHEMA_LOCATION = re.compile(r'xsi:noNamespaceSchemaLocation="([^"]+)"')
VALID, INVALID = 0, 3  # what xmllint returns; anything else is a fault of the schema or the call

# For each shipped file: a pattern, and what one occurrence of it becomes.
FAULTS = {
    "ActionTypes.xml": [
        (r'<ANNEX NAME="DIN-EN"', '<ANNEX NAME="DIN_EN"'),
        (r"<LOADDURATION>PERMANENT<", "<LOADDURATION>LASTING<"),
        (r"<PSI11>(.*?)</PSI11>", r"<PSI_11>\1</PSI_11>"),
        (r"<GAMMA_SUP>(\d)\.(\d+)<", r"<GAMMA_SUP>\1,\2<"),
        (r"<GAMMA_SUP>(\d)\.(\d+)<", r"<GAMMA_SUP>\1\2<"),
        (r'<ACTIONTYPE NAME="G2">', '<ACTIONTYPE NAME="G1">'),
        (r'STATUS="CONFIRMED-T"', 'STATUS="CONFIRMED"'),
        (r'<ANNEX NAME="BS"[^>]*', '<ANNEX NAME="BS" CHECKED="AB, edition 2010: 1.50"'),
    ],
    "StateAttributes.xml": [
        (r'NAME="TRAFFIC"', 'NAME="Traffic"'),
        (r"<OPERATOR>AND_MINMAX<", "<OPERATOR>MINMAX<"),
        (r"<BRIDGETYPE><ROADWAY/>", "<BRIDGETYPE><ROADBRIDGE/>"),
        (r"<EXCLGROUP>(.*?)</EXCLGROUP>", r"<EXLGROUP>\1</EXLGROUP>"),
    ],
    "Profiles/Standard.xml": [
        (r"<STANDARD_MODE>EC<", "<STANDARD_MODE>EN<"),
        (r"<SITUATION>(.*?)</SITUATION>", r"<SITUATON>\1</SITUATON>"),
        (r"<PERSISTENT>(.*?)</PERSISTENT>", r"<PERSISTANT>\1</PERSISTANT>"),
        (r'OPERATOR="AND_MINMAX"', 'OPERATOR="MINMAX"'),
        (r'TEMPLATE="EC-BUILDING"', 'TEMPLATE="EC_BUILDING"'),
    ],
}
# Their first document was written by the library.
WRITTEN = {"text/actions/files.txt": "action-types.xsd", "text/context/settings.txt": "settings.xsd"}


def check(schema, text, expected, what):
    """Gives what is wrong, or nothing."""
    run = subprocess.run(["xmllint", "--noout", "--nonet", "--schema", str(schema), "-"],
                         input=text, capture_output=True, text=True, encoding="utf-8", timeout=60)
    if run.returncode != expected:
        yield f"{what}: xmllint gave {run.returncode} and not {expected} by {schema}\n{run.stderr}"


def check_shipped(data):
    for name, faults in FAULTS.items():
        path = data / name
        text = path.read_text(encoding="utf-8")
        schema = path.parent / SCHEMA_LOCATION.search(text).group(1)
        yield from check(schema, text, VALID, path)
        for pattern, fault in faults:
            changed, count = re.subn(pattern, fault, text, count=1)
            if count != 1:
                yield f"{path}: no longer holds {pattern}"
            yield from check(schema, changed, INVALID, f"{path} with {fault}")


def check_written(root):
    for name, schema in WRITTEN.items():
        path = root / "tests" / name
        text = re.search(r"^<\?xml.*?^</SMOD>$", path.read_text(encoding="utf-8"), re.M | re.S)[0]
        yield from check(root / "data" / "schemas" / schema, text, VALID, path)


def check_samples(root):
    guide = root / "docs" / "data-files.md"
    samples = re.findall(r"^```xml\n(<(?:SMOD|STATEATTRIBUTES)>.*?)^```", guide.read_text(encoding="utf-8"),
                         re.M | re.S)
    if len(samples) < 4:
        yield f"{guide}: holds {len(samples)} whole documents only"
    for sample in samples:
        schema = "settings.xsd"
        if sample.startswith("<STATEATTRIBUTES>"):
            schema = "state-attributes.xsd"
        elif "<ACTIONTYPES>" in sample:
            schema = "action-types.xsd"
        yield from check(root / "data" / "schemas" / schema, sample, VALID, f"{guide}:\n{sample}")


def check_words(root, program):
    header, schema = root / "src/zelstandard/vocabulary/Enumerations.h", root / "data" / "schemas" / "words.xsd"
    made = subprocess.run([program, header], capture_output=True, check=True, timeout=60).stdout
    if made != schema.read_bytes():
        yield f"{schema} is not made of the library's tables any more; {program} {header} >{schema}"


root = pathlib.Path(sys.argv[1])
found = [*check_words(root, sys.argv[2]), *check_shipped(root / "data"), *check_written(root), *check_samples(root)]
print("\n".join(found) or "the schemas accept what is right and find what is wrong")
sys.exit(1 if found else 0)
