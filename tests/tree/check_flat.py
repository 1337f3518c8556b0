"""Asks an example program of the flat interface for snow, from the shipped file and a changed copy.

usage: check_flat.py SOURCE-DIRECTORY PROGRAM...
"""

import pathlib
import re
import subprocess
import sys
import tempfile


def psi0(program, path):
    answer = subprocess.run([*program, str(path), "SNOW", "EC", "BUILDING"], capture_output=True,
                            text=True, timeout=60)
    found = re.search(r"psi0\s+([0-9.]+)", answer.stdout)
    if answer.returncode != 0 or not found:
        sys.exit(f"{path}: {answer.stdout}{answer.stderr}")
    return found.group(1)


def main():
    shipped = pathlib.Path(sys.argv[1]) / "data" / "ActionTypes.xml"
    program = sys.argv[2:]
    before = psi0(program, shipped)

    text = shipped.read_text(encoding="utf-8")
    begin = text.index('<ACTIONTYPE NAME="SNOW">')
    after = "0.65" if before != "0.65" else "0.66"
    psi = re.compile(r"(<PSI0[^>]*>)[0-9.]+")
    changed = text[:begin] + psi.sub(r"\g<1>" + after, text[begin:], count=1)
    with tempfile.TemporaryDirectory() as directory:
        copy = pathlib.Path(directory) / "changed types.xml"
        copy.write_text(changed, encoding="utf-8")
        assert psi0(program, copy) == after, "the changed copy must change the answer"

    missing = subprocess.run([*program, "no-such-file.xml", "SNOW", "EC", "BUILDING"],
                             capture_output=True, text=True, timeout=60)
    assert missing.returncode != 0 and "no action types found" in missing.stderr
    print("snow answers from the shipped file and from a changed copy")


main()
