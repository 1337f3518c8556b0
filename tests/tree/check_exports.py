"""Compares the symbols that a library shows with the list in the tree.

usage: check_exports.py LIST LIBRARY [--refresh]
"""

import pathlib
import subprocess
import sys


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", "--format=posix", library], check=True,
                           capture_output=True, text=True).stdout.splitlines()
    mangled = sorted({line.split()[0].split("@")[0] for line in lines})
    names = subprocess.run(["c++filt"], input="\n".join(mangled), check=True, capture_output=True,
                           text=True).stdout.splitlines()
    # Constructors and destructors have several symbols of one name.
    return sorted(set(names))


def main():
    listed, library = pathlib.Path(sys.argv[1]), sys.argv[2]
    names = exported(library)
    if "--refresh" in sys.argv:
        listed.write_text("".join(name + "\n" for name in names), encoding="utf-8")
        return 0
    expected = listed.read_text(encoding="utf-8").splitlines() if listed.exists() else []
    for name in sorted(set(expected) - set(names)):
        print("no longer exported:", name)
    for name in sorted(set(names) - set(expected)):
        print("newly exported:", name)
    if names == expected:
        print(len(names), "symbols, as listed")
        return 0
    print(f"if this is wanted: python3 {sys.argv[0]} {listed} {library} --refresh")
    return 1


sys.exit(main())
