"""Adds up the test results of one preset and prints them in one line.

usage: count_tests.py PRESET DIRECTORY

Reads the JUnit file of ctest (one entry a program) and the files of GoogleTest (one a program, with
its cases). A program with cases counts with them, any other counts as one. Under the preset windows
the cases in files named *_posix_test.cpp, which are not built there, count as skipped.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree


def main():
    preset, directory = sys.argv[1], pathlib.Path(sys.argv[2])
    passed = failed = 0
    skipped = []
    for program in ElementTree.parse(directory / "ctest.junit").getroot().iter("testcase"):
        name = program.get("name")
        program_failed = program.get("status") == "fail"
        cases = directory / (name + ".xml")
        if not cases.exists():
            failed += program_failed
            passed += not program_failed
            continue
        failed_before = failed
        for case in ElementTree.parse(cases).getroot().iter("testcase"):
            skip = case.find("skipped")
            if case.find("failure") is not None:
                failed += 1
            elif skip is not None:
                skipped.append(f"{case.get('classname')}.{case.get('name')}: {skip.get('message')}")
            else:
                passed += 1
        if program_failed and failed == failed_before:
            failed += 1  # it crashed, or a sanitizer had something to say at its end
    if preset == "windows":
        tests = pathlib.Path(__file__).parent.parent / "tests"
        for source in sorted(tests.rglob("*_posix_test.cpp")):
            for suite, case in re.findall(r"^TEST(?:_F|_P)?\((\w+), (\w+)\)",
                                          source.read_text(encoding="utf-8"), re.M):
                skipped.append(f"{suite}.{case}: needs POSIX ({source.relative_to(tests)})")
    for line in skipped:
        print("skipped", " ".join(line.split()))
    count = f"{preset}: {passed} passed, {failed} failed"
    print(count + (f", {len(skipped)} skipped" if skipped else ""))
    return 1 if failed or not passed else 0


sys.exit(main())
