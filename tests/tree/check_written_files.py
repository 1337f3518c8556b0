"""Compares the files that the library writes on Windows and on Linux from the same data.

usage: check_written_files.py COMMAND-FOR-WINDOWS BUILD-DIRECTORY-FOR-LINUX SCRATCH-DIRECTORY

They are equal byte for byte but for the line ends: CR LF on Windows, LF on Linux. The command for
Linux is taken from the given build where there is one, else from one in the scratch directory.
"""

import pathlib
import re
import sys
import tempfile

from check_consumer import run

SOURCE = pathlib.Path(__file__).parent.parent.parent
KINDS = ["actions", "attributes", "settings", "coefficients", "control"]


def command_for_linux(build, scratch):
    if not (build / "build.ninja").exists():
        build = scratch
        run("cmake", "-S", SOURCE, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release")
    run("cmake", "--build", build, "--target", "command", seconds=900)
    return build / "bin" / "zelstandard"


def main():
    windows, build, scratch = map(pathlib.Path, sys.argv[1:])
    linux = command_for_linux(build, scratch)
    faults = []
    with tempfile.TemporaryDirectory() as directory:
        folder = pathlib.Path(directory)
        for system, command in (("windows", ["wine", windows]), ("linux", [linux])):
            lines = folder / f"{system}.txt"
            lines.write_text("".join(f"save {kind} {folder}/{kind}.{system}\n" for kind in KINDS), encoding="utf-8")
            run(*command, "--data", SOURCE / "data", "batch", lines)
        for kind in KINDS:
            ours, theirs = ((folder / f"{kind}.{system}").read_bytes() for system in ("linux", "windows"))
            if not ours:
                faults.append(f"{kind}: the file is empty")
            if b"\r" in ours or re.search(rb"(?<!\r)\n|\r(?!\n)", theirs):
                faults.append(f"{kind}: the file mixes line ends")
            if theirs.replace(b"\r\n", b"\n") != ours:
                faults.append(f"{kind}: the files differ")
    print("\n".join(faults) or f"{len(KINDS)} files are equal but for their line ends")
    return 1 if faults else 0


sys.exit(main())
