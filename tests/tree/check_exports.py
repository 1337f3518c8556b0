"""Compares the symbols that the library shows with the one list in the tree.

usage: check_exports.py LIST LIBRARY [OBJDUMP] [--refresh]

The list is that of Linux, where also inline operations can be called by their names; they stand with "inline" in
front. A DLL (then with OBJDUMP) shows the others, but for a few.
"""

import pathlib
import re
import subprocess
import sys

# Made by the compiler, or always inlined.
DLL_ALONE = {"Standard::ActionType::currentFactors() const", "Standard::SafetyFactors::SafetyFactors()",
             "Standard::SafetyFactors::operator=(Standard::SafetyFactors const&)",
             "Standard::SafetyFactors::operator=(Standard::SafetyFactors&&)"}
# Inline operations, names of types, and a class that no one outside uses.
LINUX_ALONE = re.compile(r"inline |typeinfo name for |Standard::StateAttribute::Validity::")


def demangled(names):
    return subprocess.run(["c++filt", "-n"], input="\n".join(names), check=True, capture_output=True,
                          text=True).stdout.splitlines()


def exported(library):
    """Constructors and destructors have several symbols of one name; one that is not inline decides."""
    lines = [line.split() for line in subprocess.run(
        ["nm", "-D", "--defined-only", "--format=posix", library], check=True, capture_output=True,
        text=True).stdout.splitlines()]
    kinds = {}
    for (_, kind, *_), name in zip(lines, demangled([line[0].split("@")[0] for line in lines])):
        kinds.setdefault(name, set()).add(kind)
    return {("inline " if kind == {"W"} else "") + name for name, kind in kinds.items()}


def exported_by_dll(library, objdump):
    headers = subprocess.run([objdump, "-p", library], check=True, capture_output=True, text=True).stdout
    table = headers.split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
    names = re.findall(r"^\s*\[ *\d+\] (?:\+base\[ *\d+\]\s+\w+ )?(\S+)$", table, re.M)
    return {name.replace("unsigned long long", "unsigned long") for name in demangled(names)} - DLL_ALONE


def main():
    path, library, *objdump = [argument for argument in sys.argv[1:] if argument != "--refresh"]
    path = pathlib.Path(path)
    names = exported_by_dll(library, objdump[0]) if objdump else exported(library)
    if "--refresh" in sys.argv and not objdump:
        path.write_text("".join(name + "\n" for name in sorted(names)), encoding="utf-8")
        return 0
    expected = set(path.read_text(encoding="utf-8").splitlines())
    if objdump:
        expected = {name for name in expected if not LINUX_ALONE.match(name)}
    for name in sorted(expected - names):
        print("no longer exported:", name)
    for name in sorted(names - expected):
        print("newly exported:", name)
    if names == expected:
        print(len(names), "symbols, as listed")
        return 0
    print(f"if this is wanted: python3 {sys.argv[0]} {path} LIBRARY-OF-LINUX --refresh")
    return 1


if __name__ == "__main__":
    sys.exit(main())
