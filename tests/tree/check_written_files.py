"""Compares the files that the library writes on Windows and on Linux from the same data.

usage: check_written_files.py WRITER-FOR-WINDOWS BUILD-DIRECTORY-FOR-LINUX SCRATCH-DIRECTORY

They are equal byte for byte but for the line ends: CR LF on Windows, LF on Linux. The writer for
Linux is taken from the given build where there is one, else from one in the scratch directory.
"""

import pathlib
import re
import sys
import tempfile

from check_consumer import run

SOURCE = pathlib.Path(__file__).parent.parent.parent
FILES = ["actions.xml", "attributes.xml", "settings.xml", "coefficients.xml", "control.xml",
         "document.xml", "deciphered.xml"]


def writer_for_linux(build, scratch):
    if not (build / "build.ninja").exists():
        build = scratch
        run("cmake", "-S", SOURCE, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release")
    run("cmake", "--build", build, "--target", "write_files", seconds=900)
    return build / "bin" / "write_files"


def main():
    windows, build, scratch = map(pathlib.Path, sys.argv[1:])
    linux = writer_for_linux(build, scratch)
    faults = []
    with tempfile.TemporaryDirectory() as directory:
        there, here = pathlib.Path(directory) / "windows", pathlib.Path(directory) / "linux"
        there.mkdir()
        here.mkdir()
        run("wine", windows, SOURCE / "data", there)
        run(linux, SOURCE / "data", here)
        for name in FILES:
            ours, theirs = (here / name).read_bytes(), (there / name).read_bytes()
            if not ours:
                faults.append(f"{name} is empty")
            if b"\r" in ours or re.search(rb"(?<!\r)\n|\r(?!\n)", theirs):
                faults.append(f"{name} mixes line ends")
            if theirs.replace(b"\r\n", b"\n") != ours:
                faults.append(f"{name} differs")
        if (here / "deciphered.xml").read_bytes() != (here / "actions.xml").read_bytes():
            faults.append("deciphered.xml is not actions.xml")
    print("\n".join(faults) or f"{len(FILES)} files are equal but for their line ends")
    return 1 if faults else 0


sys.exit(main())
