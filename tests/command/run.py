"""Runs the cases of a folder, or of one file, and compares what the command answers.

usage: run.py [--refresh] FOLDER-OR-FILE COMMAND...

A case is a line "$ zelstandard ARGUMENT...", the lines of its standard input behind "<<END" if it has any,
and what is expected: lines of standard output, lines of standard error behind "! ", and "? STATUS" unless
that is 0. Lines that begin with "## " are for the reader. The cases of a file run one after another in one
empty folder, in which "data" is a copy of the shipped data. COMMAND is the program, an emulator in front of
it. With --refresh the answers become the expectations: read the difference.
"""

import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

DATA = pathlib.Path(__file__).parents[2] / "data"


def cases(text):
    """(heading: what is kept as it stands, arguments, standard input, expectation) of each case."""
    heading, words, given, expected, end = [], None, [], [], None
    for line in text.splitlines():
        if end is not None:  # standard input
            heading.append(line)
            end, given = (None, given) if line == end else (end, given + [line])
        elif line.startswith(("$ ", "## ")):
            if words is not None:
                yield heading, words, given, expected
                heading, words, given, expected = [], None, [], []
            heading.append(line)
            if line.startswith("$ "):
                words = shlex.split(line)[2:]
                if words and words[-1].startswith("<<"):
                    end = words.pop()[2:]
        else:
            expected.append(line)
    yield heading, words, given, expected


def answer(command, words, given, folder):
    done = subprocess.run([*command, *words], input="".join(line + "\n" for line in given).encode(), cwd=folder,
                          capture_output=True, timeout=120, check=False, env={**os.environ, "NO_COLOR": "1"})
    lines = done.stdout.decode(errors="backslashreplace").replace("\r\n", "\n").splitlines()
    lines += ["! " + line for line in done.stderr.decode(errors="replace").replace("\r\n", "\n").splitlines()]
    return lines + ([f"? {done.returncode}"] if done.returncode else [])


def trimmed(lines):
    return "\n".join(lines).rstrip("\n").split("\n")


def run(path, command, refresh):
    """The number of cases, and of those that differ."""
    count, wrong, shown = 0, 0, []
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(DATA, pathlib.Path(folder) / "data")
        for heading, words, given, expected in cases(path.read_text(encoding="utf-8")):
            found = trimmed(answer(command, words, given, folder))
            count += 1
            shown.append("\n".join([*heading, *found]).rstrip("\n") + "\n")
            if found != trimmed(expected) and not refresh:
                wrong += 1
                print(f"{path}: {heading[-1] if not given else heading[0]}")
                print("\n".join([*("- " + line for line in expected if line not in found),
                                 *("+ " + line for line in found if line not in expected)]) or "  another order")
    if refresh:
        path.write_text("\n".join(shown), encoding="utf-8")
    return count, wrong


def main():
    refresh = "--refresh" in sys.argv
    place, *command = [word for word in sys.argv[1:] if word != "--refresh"]
    command = [str(pathlib.Path(word).resolve()) if pathlib.Path(word).exists() else word for word in command]
    files = sorted(pathlib.Path(place).rglob("*.txt")) if pathlib.Path(place).is_dir() else [pathlib.Path(place)]
    results = [run(path, command, refresh) for path in files]
    count, wrong = map(sum, zip(*results))
    print(f"{count} cases, {wrong} differ" + (f"; refresh: {shlex.join([sys.argv[0], '--refresh', *sys.argv[1:]])}"
                                              if wrong else ""))
    return 1 if wrong or not count else 0


sys.exit(main())
