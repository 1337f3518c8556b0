"""Compares what the DLLs of Windows import and say of themselves with what they should.

usage: check_dll.py OBJDUMP VERSION DLL... [--refresh]

The exports of every DLL must belong to its own interfaces: two flat functions, decorated classes and
constants, no instances of std templates and nothing of another library. The imports of all are compared with imports-windows.txt.
"""

import pathlib
import re
import struct
import subprocess
import sys

from check_exports import exported_by_dll

HERE = pathlib.Path(__file__).parent
FLAT = {"ZelStandardInitialiseFile", "ZelStandardGetCombValues"}
# What the demangled names may begin with, below "typeinfo for" and "vtable for".
INTERFACES = {
    "zelstandard.dll": re.compile(r"(Standard|ZelStandard|zelofstream)::"),
    "zelsuite.dll": re.compile(r"(ZelXml\w*|ZelTextResource|ZelText|Tools|FileCrypt|zelsuite)::|LSReport\b"),
}


def private_headers(objdump, dll):
    return subprocess.run([objdump, "-p", dll], check=True, capture_output=True, text=True).stdout


def strangers(dll, names):
    flat = FLAT if dll == "zelstandard.dll" else set()
    for name in flat - names:
        yield f"{dll}: {name} is not exported undecorated"
    for name in names - flat:
        if not INTERFACES[dll].match(re.sub(r"^(typeinfo|vtable) for (.*)", r"\2::", re.sub("^(bool|void) ", "", name))):
            yield f"{dll}: {name} is exported and is none of its interfaces"


def version_faults(path, version):
    """The fixed part of the version resource begins with a signature and the two halves of the
    number; the texts are pairs of UTF-16 strings."""
    content = path.read_bytes()
    at = content.find(struct.pack("<II", 0xFEEF04BD, 0x00010000))
    if at < 0:
        return [f"{path.name}: no version resource"]
    high, low = struct.unpack_from("<II", content, at + 8)
    fixed = f"{high >> 16}.{high & 0xFFFF}.{low >> 16}"
    texts = content[at:at + 2000].decode("utf-16-le", errors="replace")
    found = dict(re.findall(r"(\w+)\0+([^\0]+)\0", texts))
    faults = [f"{path.name}: {key} is '{value}'"
              for key, value, wanted in [("the file's number", fixed, version),
                                         ("FileVersion", found.get("FileVersion"), version),
                                         ("ProductVersion", found.get("ProductVersion"), version),
                                         ("OriginalFilename", found.get("OriginalFilename"), path.name)]
              if value != wanted]
    if len(found.get("FileDescription", "")) < 10:
        faults.append(f"{path.name}: no description")
    return faults


def compare(listed, lines, refresh):
    if refresh:
        listed.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return []
    expected = listed.read_text(encoding="utf-8").splitlines() if listed.exists() else []
    faults = [f"{listed.name}: no longer there: {line}" for line in sorted(set(expected) - set(lines))]
    faults += [f"{listed.name}: new: {line}" for line in sorted(set(lines) - set(expected))]
    return faults


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--refresh"]
    refresh = len(arguments) + 1 < len(sys.argv)
    if len(arguments) < 3:
        sys.exit(__doc__)
    objdump, version, *paths = arguments
    faults, imports = [], []
    for path in map(pathlib.Path, paths):
        headers = private_headers(objdump, path)
        faults += strangers(path.name, set(exported_by_dll(path, objdump)))
        faults += version_faults(path, version)
        imports += sorted(f"{path.name}: {name}"
                          for name in set(re.findall(r"^\s*DLL Name: (\S+)$", headers, re.M)))
    faults += compare(HERE / "imports-windows.txt", imports, refresh)
    print("\n".join(faults) or "exports, imports and versions are as they should")
    if any(".txt: n" in fault for fault in faults):
        print("if this is wanted: python3", " ".join(sys.argv), "--refresh")
    return 1 if faults else 0


sys.exit(main())
