"""Checks that includes run one way through the folders, and that few places know the system.

usage: check_includes.py SOURCE-DIRECTORY
"""

import pathlib
import re
import sys

# A folder may include itself and the folders below it.
BELOW = {
    "platform": set(),
    "vocabulary": {"platform"},
    "datafiles": {"platform", "vocabulary"},
    "context": {"platform", "vocabulary", "datafiles"},
    "actions": {"platform", "vocabulary", "datafiles", "context"},
    "material": {"platform", "vocabulary", "datafiles", "context"},
    "attributes": {"platform", "vocabulary", "datafiles", "context", "actions"},
    "instructions": {"platform", "vocabulary", "datafiles", "context", "actions", "attributes"},
    "flat": {"platform", "vocabulary", "datafiles", "context", "actions"},
}
# Headers above the folders.
TOP = {"Export.h": "all", "flat.h": {"flat"}, "zelstandard.h": set()}
ONLY_IN = {"pugixml": ("suite/xml/", "command/provenance/"), "sodium.h": ("suite/crypt/",),
           "CLI/": ("command/main.cpp", "command/verbs/", "command/batch/"), "nlohmann/": ("command/",)}
# The command: the batch stands on the verbs, these on the rest, which stands on the library alone.
COMMAND = {"vocabulary": set(), "answer": {"vocabulary"}, "provenance": {"vocabulary"}, "names": {"vocabulary"},
           "combination": set(), "process": set(),
           "check": {"vocabulary", "answer", "provenance", "names"}, "report": {"vocabulary", "answer", "provenance", "names"},
           "verbs": {"vocabulary", "answer", "provenance", "names", "combination", "process", "check", "report"},
           "batch": {"vocabulary", "answer", "provenance", "names", "verbs"}}
SYSTEM = re.compile(r"^\s*#\s*if.*\b(_WIN32|__linux__|__unix__|__MINGW32__|_MSC_VER)\b", re.M)
KNOWS_SYSTEM = ("src/zelstandard/Export.h", "src/zelstandard/platform/WindowsFiles.h", "suite/files/",
                "command/process/")


def faults(root):
    for path in sorted(p for top in ("src", "suite", "command") for p in (root / top).rglob("*.[hc]*")):
        name = path.relative_to(root).as_posix()
        text = path.read_text(encoding="utf-8")
        if SYSTEM.search(text) and not name.startswith(KNOWS_SYSTEM):
            yield f"{name}: asks which operating system this is; only {', '.join(KNOWS_SYSTEM)} may"
        for number, line in enumerate(text.splitlines(), 1):
            include = re.match(r'\s*#\s*include\s*[<"]([^>"]+)[>"]', line)
            if not include:
                continue
            target = include.group(1)
            where = f"{name}:{number}"
            for library, place in ONLY_IN.items():
                if library in target and not name.startswith(place):
                    yield f"{where}: only {' and '.join(place)} may include {library}"
            if target.startswith("command/"):
                own, folder = name.split("/")[1], target.split("/")[1]
                if "." not in own and folder != own and folder not in COMMAND[own]:
                    yield f"{where}: {own} may not include {folder}"
            if not target.startswith("zelstandard/"):
                continue
            folder = target.split("/")[1]
            if name.startswith("command/"):
                continue
            if name.startswith("suite/"):
                if folder not in ("platform", "Export.h"):
                    yield f"{where}: the suite may include platform alone, not {target}"
                continue
            own = name.split("/")[2]
            if "." in own:
                continue  # a header above the folders
            if folder in TOP:
                if TOP[folder] != "all" and own not in TOP[folder]:
                    yield f"{where}: {own} may not include {target}"
            elif folder != own and folder not in BELOW[own]:
                yield f"{where}: {own} may not include {folder}; it stands above or beside it"


found = list(faults(pathlib.Path(sys.argv[1])))
print("\n".join(found) or "includes run one way")
sys.exit(1 if found else 0)
