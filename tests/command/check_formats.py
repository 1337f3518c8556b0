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
    "settings show", "check --save --accepted", "check faulty.xml", "check --explain",
]
FAULTY = '<SMOD><SETTINGS><STANDARD_MODE>ec</STANDARD_MODE> größer &amp</SETTINGS></SMOD>'


def answer(words, form):
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "faulty.xml").write_text(FAULTY, encoding="utf-8")
        done = subprocess.run([*COMMAND, "--data", str(ROOT / "data"), "--format", form, *shlex.split(words)], cwd=folder,
                              capture_output=True, timeout=120, check=False)
    if done.returncode == 2:
        sys.exit(f"{words}: {done.stderr.decode()}")
    return json.loads(done.stdout)


def check_sarif(log):
    """The properties that the standard requires, and a place for each result."""
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
    return len(run["results"])


schema = json.loads((ROOT / "docs" / "answer.schema.json").read_text(encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
for question in QUESTIONS:
    jsonschema.validate(answer(question, "json"), schema)
assert check_sarif(answer("check", "sarif")) == 0
assert check_sarif(answer("check faulty.xml", "sarif")) == len(answer("check faulty.xml", "json")["findings"]) == 4
print(f"{len(QUESTIONS)} answers as JSON and two as SARIF are of their form")
