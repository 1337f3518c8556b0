"""Compares what the command answers as JSON and as SARIF with the schema in docs, and with what SARIF 2.1.0 requires.

usage: check_formats.py SOURCE-DIRECTORY COMMAND...
"""

import json
import pathlib
import shlex
import subprocess
import sys
import tempfile

import jsonschema

ROOT, COMMAND = pathlib.Path(sys.argv[1]).resolve(), [*sys.argv[2:-1], str(pathlib.Path(sys.argv[-1]).resolve())]
QUESTIONS = [
    "factors wind snow --code all --for all", "table --code BS --for road", "explain wind psi0 --code BS --for building",
    "explain GAMMA_C --code BS", "list actions", "where", "rules fundamental", "attributes --all", "material --code all",
    "settings show", "combine snow wind --rule frequent --code EC --for building", "diff EC BS", "sources --check",
    "check --save --accepted", "check faulty.xml", "check --explain",
]
FAULTY = '<SMOD><SETTINGS><STANDARD_MODE>ec</STANDARD_MODE> größer &amp</SETTINGS></SMOD>'


def answer(words, form):
    with tempfile.TemporaryDirectory() as folder:
        for name in ("faulty.xml", "faulty 1.xml"):
            (pathlib.Path(folder) / name).write_text(FAULTY, encoding="utf-8")
        done = subprocess.run([*COMMAND, "--data", str(ROOT / "data"), "--format", form, *shlex.split(words)], cwd=folder,
                              capture_output=True, timeout=120, check=False)
    if done.returncode == 2:
        sys.exit(f"{words}: {done.stderr.decode()}")
    return json.loads(done.stdout)


def check_sarif(log):
    """The properties that the standard requires; what each result says."""
    said = []
    assert log["version"] == "2.1.0" and len(log["runs"]) == 1
    run = log["runs"][0]
    rules = [rule["id"] for rule in run["tool"]["driver"]["rules"]]
    assert run["tool"]["driver"]["name"] and len(set(rules)) == len(rules)
    for result in run["results"]:
        assert result["message"]["text"] and result["level"] in ("error", "warning", "note") and result["ruleId"] in rules
        place = result["locations"][0]["physicalLocation"]
        region = place["region"]
        assert place["artifactLocation"]["uri"] and region["startLine"] >= 1
        assert 1 <= region["startColumn"] < region["endColumn"]
        said.append((result["level"], result["ruleId"], place["artifactLocation"]["uri"], region["startLine"],
                     region["startColumn"], region["endColumn"] - region["startColumn"]))
    return said


schema = json.loads((ROOT / "docs" / "answer.schema.json").read_text(encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
for question in QUESTIONS:
    jsonschema.validate(answer(question, "json"), schema)
assert not check_sarif(answer("check", "sarif"))
found = [(one["severity"], one["rule"], one["place"]["file"].replace(" ", "%20"), *(one["place"][key] for key in (
    "line", "column")), one["length"]) for one in answer("check 'faulty 1.xml'", "json")["findings"]]
assert check_sarif(answer("check 'faulty 1.xml'", "sarif")) == found and len(found) == 4
if len(COMMAND) == 1 and pathlib.Path("/dev/full").exists():
    with open("/dev/full", "wb") as full:
        cut = subprocess.run([*COMMAND, "list", "codes"], stdout=full, stderr=subprocess.PIPE, timeout=120, check=False)
    assert cut.returncode == 2, "an answer that is cut"
print(f"{len(QUESTIONS)} answers as JSON and two as SARIF are of their form")
