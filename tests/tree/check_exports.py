"""Compares the symbols that the library shows with the one list in the tree.

usage: check_exports.py LIST LIBRARY [OBJDUMP] [--refresh]

The list is that of Linux; a DLL (then with OBJDUMP) shows the same. Inline operations belong to it: callers may find
them by name.
"""

import pathlib
import re
import subprocess
import sys

# Private parts of public classes, which a system shows or not; and names of types, which Windows does not need.
PRIVATE = re.compile(r"(bool |void )?Standard::(StateAttribute::Validity|ActionType::Values|Coefficients::Tables)::|"
                     r"ZelStandard::Requirements::|Standard::ActionType::currentFactors\(")
LINUX_ALONE = re.compile(r"typeinfo name for ")


def demangled(names):
    return subprocess.run(["c++filt", "-n"], input="\n".join(names), check=True, capture_output=True,
                          text=True).stdout.splitlines()


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", "--format=posix", library], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    return demangled([line.split()[0].split("@")[0] for line in lines])


def exported_by_dll(library, objdump):
    headers = subprocess.run([objdump, "-p", library], check=True, capture_output=True, text=True).stdout
    table = headers.split("[Ordinal/Name Pointer] Table", 1)[1].split("\n\n", 1)[0]
    names = re.findall(r"^\s*\[ *\d+\] (?:\+base\[ *\d+\]\s+\w+ )?(\S+)$", table, re.M)
    return [name.replace("unsigned long long", "unsigned long") for name in demangled(names)]


def main():
    path, library, *objdump = [argument for argument in sys.argv[1:] if argument != "--refresh"]
    path = pathlib.Path(path)
    names = exported_by_dll(library, objdump[0]) if objdump else exported(library)
    names = {name for name in names if not PRIVATE.match(name)}
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
