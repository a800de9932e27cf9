#!/usr/bin/env python3
"""Makes the manual page and the completions from the program, and tries them: the page by the formatter's own
warnings, the completions in the shells that are installed.

usage: command_pages.py MAKE_PAGES PROGRAM VERSION
"""
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

BASH = """
source /usr/share/bash-completion/bash_completion; source "$1"; shift
COMP_LINE=$*; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_POINT=${#COMP_LINE}
_ledra 2>/dev/null; printf '%s\\n' "${COMPREPLY[@]}"
"""
FISH = 'source $argv[1]; complete --do-complete "$argv[2..]"'
BASH_LIBRARY = "/usr/share/bash-completion/bash_completion"

# What stands on the line, something that must be offered, something that must not.
CASES = [
    (["ledra", "pro"], "profile", "plugin"),
    (["ledra", "profile", ""], "rename", "Default"),
    (["ledra", "profile", "use", "D"], "Default", "list"),
    (["ledra", "profile", "set", "Default", "address.c"], "address.city=", "address.city"),
    (["ledra", "show", "20"], "2026-001", "sent"),
    (["ledra", "status", "2026-001", ""], "paid", "2026-001"),
    (["ledra", "--json", "status", "2026-001", "p"], "paid", "profile"),
    (["ledra", "export", "2026-001", "--format", ""], "xrechnung", "2026-001"),
    (["ledra", "export", "-o", "x.pdf", "20"], "2026-001", "html"),
    (["ledra", "export", "2026-001", "--allow"], "--allow-missing", "--format"),
    (["ledra", "list", "--status", ""], "draft", "invoice"),
    (["ledra", "settings", "get", "appI"], "appIcon", "appearance"),
    (["ledra", "settings", "list", ""], None, "appIcon"),
    (["ledra", "plugin", "run", "x", "import"], "importInvoices", "exportInvoices"),
    (["ledra", "view", "rec"], "received.xml", "2026-001"),
]


class Failure(Exception):
    pass


def run(arguments, **more):
    return subprocess.run(arguments, capture_output=True, text=True, encoding="utf-8", **more)


def offered_by(shell, pages, line):
    if shell == "bash":
        result = run(["bash", "--norc", "-c", BASH, "bash", str(pages / "ledra.bash"), *line])
    else:
        result = run(["fish", "--no-config", "-c", FISH, str(pages / "ledra.fish"), *line])
    if result.returncode or result.stderr:
        raise Failure(f"{shell} fails on {line}: {result.stderr[:400]}")
    return [row.split("\t")[0].strip() for row in result.stdout.splitlines() if row.strip()]


def try_completions(shell, pages):
    for line, wanted, unwanted in CASES:
        offered = offered_by(shell, pages, line)
        if wanted is not None and wanted not in offered:
            raise Failure(f"{shell} does not offer {wanted!r} for {line}, but {offered}")
        if unwanted in offered:
            raise Failure(f"{shell} offers {unwanted!r} for {line}")


def try_manual(page, commands):
    formatted = run(["man", "--warnings", "-l", str(page)], env={**os.environ, "MANWIDTH": "100", "LC_ALL": "C.UTF-8"})
    if formatted.returncode or formatted.stderr:
        raise Failure(f"man warns: {formatted.stderr}")
    for command in commands:
        if f"\n   ledra {command}\n" not in formatted.stdout:
            raise Failure(f"the manual page has no section on {command!r}")


def names_of_commands(program):
    lines = run([program, "--help"]).stdout.split("Commands:\n")[1].split("\n\n")[0].splitlines()
    return [line.split()[0] for line in lines]


def check(make_pages, program, version, place):
    os.environ.update(XDG_DATA_HOME=f"{place}/data", XDG_CONFIG_HOME=f"{place}/config",
                      PATH=f"{Path(program).resolve().parent}:{os.environ['PATH']}")
    os.chdir(place)
    Path("received.xml").write_text("<x/>")
    made = run([program, "new", "invoice", "--set", "date=2026-03-30"])
    if made.returncode:
        raise Failure(made.stderr)
    pages = Path(place) / "pages"
    generated = run([sys.executable, make_pages, program, version, str(pages)])
    if generated.returncode:
        raise Failure(generated.stderr)
    tried = []
    if shutil.which("man"):
        try_manual(pages / "ledra.1", names_of_commands(program))
        tried.append("man")
    for shell in ("bash", "fish"):
        if shutil.which(shell) and (shell != "bash" or os.path.exists(BASH_LIBRARY)):
            try_completions(shell, pages)
            tried.append(shell)
    if shutil.which("zsh"):
        checked = run(["zsh", "-n", str(pages / "_ledra")])
        if checked.returncode or checked.stderr:
            raise Failure(checked.stderr)
        tried.append("zsh (syntax only)")
    return tried


def main():
    with tempfile.TemporaryDirectory() as place:
        try:
            make_pages, program, version = sys.argv[1:]
            paths = [str(Path(path).resolve()) for path in (make_pages, program)]
            print("tried:", ", ".join(check(*paths, version, place)))
        except Failure as failure:
            sys.exit(str(failure))


if __name__ == "__main__":
    main()
