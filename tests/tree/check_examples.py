"""Runs the examples of the class interface on the shipped data.

usage: check_examples.py DATA-DIRECTORY HOST LOAD-CASES SAVE-SETTINGS [EMULATOR]
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile


def run(*command, expect=0):
    answer = subprocess.run([*sys.argv[5:], *map(str, command)], capture_output=True, timeout=120)
    output = answer.stdout.decode("utf-8") + answer.stderr.decode("utf-8")
    if answer.returncode != expect:
        sys.exit(f"{command}: exit {answer.returncode}\n{output}")
    return output


def main():
    data = pathlib.Path(sys.argv[1])
    host, load_cases, save_settings = sys.argv[2:5]

    english, german = run(host, data), run(host, data, "de")
    assert "Fundamental combination" in english and "Grundkombination" in german
    factors = re.compile(r"\d+\.\d+")
    assert factors.findall(english) == factors.findall(german), "the language changes no number"
    assert "no texts in 'xx'" in run(host, data, "xx", expect=1)

    listed = run(load_cases, data / "ActionTypes.xml", data / "StateAttributes.xml")
    building, bridge = listed.split("railway bridge")
    assert "Load model 71, track 2" in bridge and "Load model 71" not in building
    assert "Crane" in building and "Crane" not in bridge
    assert "holds no action types" in run(load_cases, data / "none", data / "none", expect=1)

    with tempfile.TemporaryDirectory() as directory:
        copy = pathlib.Path(directory) / "Standard.xml"
        shutil.copy(data / "Profiles" / "Standard.xml", copy)
        run(save_settings, copy, "DIN-EN")
        saved, shipped = copy.read_text(encoding="utf-8"), (
            data / "Profiles" / "Standard.xml").read_text(encoding="utf-8")
        assert "<STANDARD_MODE>DIN-EN</STANDARD_MODE>" in saved
        for element in ("<ANNEX", "<STATEINSTRUCTION ", "<STRESSBLOCK", "<!--", "SOURCE="):
            assert saved.count(element) == shipped.count(element), element
    print("the examples ran")


main()
