"""Runs the examples of the class interface on the shipped data, and asks what the README shows.

usage: check_examples.py DATA-DIRECTORY HOST LOAD-CASES SAVE-SETTINGS COMMAND [EMULATOR]
"""

import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile


def run(*command, expect=0, env=None):
    answer = subprocess.run([*sys.argv[6:], *map(str, command)], capture_output=True, timeout=120, env=env)
    output = answer.stdout.decode("utf-8") + answer.stderr.decode("utf-8")
    if answer.returncode != expect:
        sys.exit(f"{command}: exit {answer.returncode}\n{output}")
    return output


def questions(path):
    """The questions of a page in Markdown, each with the answer below it: "$ zelstandard ..."."""
    for block in re.findall(r"^```console\n(.*?)^```", path.read_text(encoding="utf-8"), flags=re.M | re.S):
        for part in re.split(r"^\$ zelstandard ", block, flags=re.M)[1:]:
            question, _, answer = part.partition("\n")
            yield question, answer.strip("\n")


def revisions(data):
    """A changed value against a revision of git, and what is said where there is no git."""
    with tempfile.TemporaryDirectory() as directory:
        tree = pathlib.Path(directory) / "tree with blanks"
        shutil.copytree(data, tree / "data")

        def git(*words):
            subprocess.run(["git", "-c", "user.name=a", "-c", "user.email=a@b", *words], cwd=tree, check=True, timeout=60)

        git("init", "--quiet")
        git("add", ".")
        git("commit", "--quiet", "-m", "first")
        file = tree / "data" / "ActionTypes.xml"
        text = file.read_text(encoding="utf-8")
        start = text.index('ACTIONTYPE NAME="SNOW"')
        file.write_text(text[:start] + re.sub(r"(<PSI0[^>]*>)0\.50", r"\g<1>0.55", text[start:], count=1), encoding="utf-8")
        answer = run(sys.argv[5], "diff", "HEAD:", "--data", tree / "data", "--exit-code", expect=1)
        assert "0.50 -> 0.55" in answer and "take it from EC" in answer, answer
        run(sys.argv[5], "diff", "HEAD:", "HEAD:", "--data", tree / "data", "--exit-code")
        assert "git has nothing at" in run(sys.argv[5], "diff", "HEAD~1:", "--data", tree / "data", expect=2)
        answer = run(sys.argv[5], "diff", "HEAD:", "--data", tree / "data", expect=2, env={"PATH": directory})
        assert "git is not on the path" in answer, answer


def main():
    data = pathlib.Path(sys.argv[1])
    host, load_cases, save_settings = sys.argv[2:5]

    english, german = run(host, data), run(host, data, "de")
    assert "Fundamental combination" in english and "Grundkombination" in german
    factors = re.compile(r"\d+\.\d+")
    assert len(factors.findall(english)) > 5
    assert factors.findall(english) == factors.findall(german), "the language changes no number"
    assert "no texts in 'xx'" in run(host, data, "xx", expect=1)

    listed = run(load_cases, data / "ActionTypes.xml", data / "StateAttributes.xml")
    building, bridge = listed.split("railway bridge")
    assert "Load model 71, track 2" in bridge and "Load model 71" not in building
    assert "Crane" in building and "Crane" not in bridge
    assert "holds no action types" in run(load_cases, data / "none", data / "none", expect=1)

    asked = list(questions(data.parent / "README.md"))
    assert len(asked) >= 4, "the README shows no answers"
    for question, answer in asked:
        found = run(sys.argv[5], *shlex.split(question), "--data", data).replace("\r\n", "\n").strip("\n")
        assert found == answer, f"README.md: zelstandard {question} answers\n{found}"

    with tempfile.TemporaryDirectory() as directory:
        copy = pathlib.Path(directory) / "Standard.xml"
        shutil.copy(data / "Profiles" / "Standard.xml", copy)
        run(save_settings, copy, "DIN-EN")
        saved, shipped = copy.read_text(encoding="utf-8"), (
            data / "Profiles" / "Standard.xml").read_text(encoding="utf-8")
        assert "<STANDARD_MODE>DIN-EN</STANDARD_MODE>" in saved
        for element in ("<ANNEX", "<STATEINSTRUCTION ", "<STRESSBLOCK", "<!--", "SOURCE="):
            assert saved.count(element) == shipped.count(element), element
    if len(sys.argv) == 6 and shutil.which("git"):
        revisions(data)
    else:
        print("without git: no revisions compared")
    print("the examples ran")


main()
