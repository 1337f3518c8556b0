"""Writes the bash completion of the command, made of the command's own help.

usage: completion.py COMMAND DATA-DIRECTORY FILE
"""

import csv
import io
import pathlib
import re
import subprocess
import sys

TEMPLATE = """\
# bash completion of zelstandard, made of its help.
_zelstandard()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} verb= i
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        case " %(verbs)s " in *" ${COMP_WORDS[i]} "*) verb=${COMP_WORDS[i]}; break ;; esac
    done
    case $before in
%(values)s
    --data) COMPREPLY=($(compgen -d -- "$word")); return ;;
    esac
    if [[ $word == -* ]]; then
        case $verb in
%(options)s
        *) COMPREPLY=($(compgen -W "%(common)s" -- "$word")) ;;
        esac
        return
    fi
    case $verb in
    "") COMPREPLY=($(compgen -W "%(verbs)s" -- "$word")) ;;
    factors|explain|combine) COMPREPLY=($(compgen -W "%(actions)s" -- "$word")) ;;
    rules) COMPREPLY=($(compgen -W "%(rules)s" -- "$word")) ;;
    list) COMPREPLY=($(compgen -W "%(kinds)s" -- "$word")) ;;
    esac
}
complete -o bashdefault -o default -F _zelstandard zelstandard
"""


def ask(*words):
    return subprocess.run([*sys.argv[1:2], *words], capture_output=True, text=True, check=True, timeout=60).stdout


def words_of(kind):
    listed = csv.DictReader(io.StringIO(ask("list", kind, "--data", sys.argv[2], "--format", "csv")))
    return [row["word"] for row in listed]


def options_of(text):
    return sorted(set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", re.sub(r"Example:.*", "", text, flags=re.S))))


def row(pattern, words):
    return f'    {pattern}) COMPREPLY=($(compgen -W "{" ".join(words)}" -- "$word")); return ;;'


def main():
    help_text = ask("--help")
    common = options_of(help_text)
    verbs = re.findall(r"^  ([a-z]+) ", help_text.split("Subcommands:")[1], flags=re.M)
    values = [row("--code", [*words_of("codes"), "all"]), row("--for", [*words_of("structures"), "all"]),
              row("--rule", words_of("rules")), row("--lang", ["en", "de"]),
              row("--format", ["text", "json", "csv", "sarif"]), row("--color", ["auto", "always", "never"])]
    options = [f'        {verb}) COMPREPLY=($(compgen -W "{" ".join(sorted({*common, *options_of(ask(verb, "--help"))}))}"'
               ' -- "$word")) ;;' for verb in verbs]
    pathlib.Path(sys.argv[3]).write_text(TEMPLATE % {
        "verbs": " ".join(verbs), "values": "\n".join(values), "options": "\n".join(options),
        "common": " ".join(common), "actions": " ".join(words_of("actions")), "rules": " ".join(words_of("rules")),
        "kinds": "codes actions structures factors rules attributes materials words"}, encoding="utf-8", newline="\n")


main()
