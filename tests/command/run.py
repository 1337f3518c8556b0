"""Runs the cases of a folder, or of one file, and compares what the command answers.

usage: run.py [--refresh | --comma] FOLDER-OR-FILE COMMAND...

A case is a line "$ zelstandard ARGUMENT...", the lines of its standard input behind "<<END" if it has any, and what
is expected: lines of standard output, lines of standard error behind "! ", and "? STATUS" unless that is 0. Lines
that begin with "## " are for the reader. In front of a case "@ FILE <<END" writes a file of the lines up to END
(\\xHH is a byte), "@ pipe FILE" makes a pipe, "@ large FILE" a file of 100 MB, "@ deep FILE" one of 1001 elements
within one another, "@ readonly FILE" takes the right to write; "$ changed FILE" shows by what lines a file differs
from the shipped one. The cases of a file run one after another in one empty folder, in which "data" is a copy of the
shipped data. COMMAND is the program, an emulator in front of it, which leaves out the files *_posix.txt. With
--refresh the answers become the expectations: read the difference. With --comma a decimal comma is in force in each
batch, which is an error where the system has none, and the answers have to be the same.
"""

import difflib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

DATA = pathlib.Path(__file__).parents[2] / "data"


def cases(text):
    """(heading: what is kept as it stands, files, words, standard input, expectation) of each case."""
    heading, files, words, given, expected, end = [], [], None, [], [], None
    for line in text.splitlines():
        if end is not None:  # standard input, or a file
            heading.append(line)
            end, given = (None, given) if line == end else (end, given + [line])
            if end is None and words is None:
                files[-1].append(given)
                given = []
        elif line.startswith(("$ ", "@ ", "## ")):
            if words is not None:
                yield heading, files, words, given, expected
                heading, files, words, given, expected = [], [], None, [], []
            heading.append(line)
            if not line.startswith("#"):
                parts = shlex.split(line)[1:]
                end = parts.pop()[2:] if parts[-1].startswith("<<") else None
                if line.startswith("$ "):
                    words = parts
                else:
                    files.append(parts)
        else:
            expected.append(line)
    yield heading, files, words, given, expected


def make(folder, kind, name, lines=()):
    path = folder / name
    if kind == "pipe":
        os.mkfifo(path)
    elif kind == "readonly":
        path.chmod(0o444)
    elif kind == "deep":
        path.write_bytes(b"<A>" * 1001 + b"</A>" * 1001)
    elif kind == "large":
        path.touch()
        os.truncate(path, 100 << 20)
    else:
        path.parent.mkdir(exist_ok=True)
        text = "".join(line + "\n" for line in lines).encode()
        path.write_bytes(re.sub(rb"\\x([0-9A-F]{2})", lambda byte: bytes.fromhex(byte[1].decode()), text))


def changes(name, folder):
    shipped, now = (path.read_text(encoding="utf-8").splitlines() for path in (DATA / name, folder / "data" / name))
    return [line for line in difflib.ndiff(shipped, now) if line[0] in "+-"]


def answer(command, words, given, folder):
    if words[0] == "changed":
        return changes(words[1], folder)
    done = subprocess.run([*command, *words[1:]], input="".join(line + "\n" for line in given).encode(), cwd=folder,
                          capture_output=True, timeout=120, check=False, env={**os.environ, "NO_COLOR": "1"})
    lines = done.stdout.decode(errors="backslashreplace").replace("\r\n", "\n").splitlines()
    lines += ["! " + line for line in done.stderr.decode(errors="replace").replace("\r\n", "\n").splitlines()]
    return lines + ([f"? {done.returncode}"] if done.returncode else [])


def trimmed(lines):
    return "\n".join(lines).rstrip("\n").split("\n")


def answer_with_comma(command, words, given, folder):
    if words[-1:] != ["batch"]:
        if "batch" in words:
            sys.exit("a batch with a word behind it would run without the comma: " + " ".join(words))
        return answer(command, words, given, folder)
    return [re.sub(r"^! line (\d+)", lambda line: f"! line {int(line[1]) - 1}", line)
            for line in answer(command, words, ["locale german", *given], folder)]


def run(path, command, refresh, comma):
    """The number of cases, and of those that differ."""
    count, wrong, shown = 0, 0, []
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(DATA, pathlib.Path(folder) / "data")
        for heading, files, words, given, expected in cases(path.read_text(encoding="utf-8")):
            for file in files:
                make(pathlib.Path(folder), *(["text"] * (len(file) == 2 and isinstance(file[1], list))), *file)
            found = trimmed((answer_with_comma if comma else answer)(command, words, given, pathlib.Path(folder)))
            count += 1
            shown.append("\n".join([*heading, *found]).rstrip("\n") + "\n")
            if found != trimmed(expected) and not refresh:
                wrong += 1
                print(f"FAILED {path.stem}: {heading[-1] if not given else heading[0]}")
                print("\n".join([*difflib.unified_diff(trimmed(expected), found, lineterm="", n=1)][2:]))
    if refresh:
        path.write_text("\n".join(shown), encoding="utf-8")
    return count, wrong


def main():
    refresh, comma = "--refresh" in sys.argv, "--comma" in sys.argv
    place, *command = [word for word in sys.argv[1:] if word not in ("--refresh", "--comma")]
    command = [str(pathlib.Path(word).resolve()) if pathlib.Path(word).exists() else word for word in command]
    files = sorted(pathlib.Path(place).rglob("*.txt")) if pathlib.Path(place).is_dir() else [pathlib.Path(place)]
    if len(command) > 1:  # an emulator
        print(*(f"{file.stem} skipped" for file in files if file.stem.endswith("_posix")))
        files = [file for file in files if not file.stem.endswith("_posix")]
    results = [run(path, command, refresh, comma) for path in files]
    count, wrong = map(sum, zip(*results))
    print(f"{count} cases, {wrong} differ" + (f"; refresh: {shlex.join([sys.argv[0], '--refresh', *sys.argv[1:]])}"
                                              if wrong else ""))
    return 1 if wrong or not count else 0


sys.exit(main())
