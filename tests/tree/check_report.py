"""Opens pages of the report in headless Chromium: what their script shows, and a picture that is not kept.

usage: check_report.py COMMAND DATA-DIRECTORY
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

BROWSER = shutil.which("chromium") or sys.exit("there is no chromium: install the group browser of packages.txt")


def browse(page, *options):
    run = subprocess.run([BROWSER, "--headless", "--no-sandbox", "--disable-gpu", f"--user-data-dir={page.parent}/profile",
                          "--virtual-time-budget=5000", *options, page.as_uri() + "#BS|BUILDING|LW|2"],
                         capture_output=True, timeout=240, cwd=page.parent)
    if run.returncode != 0:
        print("skipped: chromium does not run here:", run.stderr.decode(errors="replace")[-500:])
        sys.exit(77)
    return run.stdout.decode("utf-8")


def main():
    command, data = sys.argv[1:]
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as directory:
        page = pathlib.Path(directory) / "report.html"
        for language, words in {"en": ("Wind loads", "road bridge", "own value BS",
                                       'LW|2" style="--psi:50%" title="differs from EC"'),
                                "de": ("Windlasten", "Straßenbrücke", "eigener Wert BS")}.items():
            subprocess.run([command, "report", page, "--data", data, "--code", "EC,BS", "--for", "building,road",
                            "--lang", language], check=True, timeout=60)
            assert "http" not in page.read_text(encoding="utf-8").replace("http://www.w3.org", ""), "needs a server"
            dom = browse(page, "--dump-dom").split("<main>")[1]
            shown = dom.split("</aside>")[0]
            for word in (*words, "0.60", "0.50", "NA to BS EN 1990, Table NA.A1.1, wind", 'data-mark="i"', "≠",
                         "--psi:50%", "AND_MINMAX", "GAMMA_C"):
                assert word in shown, f"{language}: no {word}"
            assert dom.count("<tbody>") >= 6 and dom.count("<tr") > 80, "tables are missing"
        browse(page, "--screenshot=report.png", "--window-size=1400,1000")
        assert (page.parent / "report.png").stat().st_size > 30_000, "the picture is empty"
    print("the pages show tables, marks and the steps to a number")


main()
