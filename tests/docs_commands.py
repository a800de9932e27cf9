#!/usr/bin/env python3
"""Runs the commands that the pages for users show, and compares what they print with what the pages say.

usage: docs_commands.py PROGRAM EXAMPLES PAGE.md…

A page's ```console blocks are one session in a fresh home: lines that begin with "$ " are commands (a "\\" at the end
goes on in the next line, <<'END' until that word), the others what they print on both outputs. "…" stands for any text within a line, a line of
only "…" for any lines. A command may fail only where "$ echo $?" follows. A command shown in any other kind of block
would not be run, so a page that has one is refused.
"""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

MARK = "\x1e"  # stands in no output: it parts the commands' outputs and codes
BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
SECONDS = 120


class Step:
    def __init__(self, command):
        self.command = command
        self.expected = []


def steps_of(page, text):
    steps = []
    for kind, block in BLOCK.findall(text):
        if kind != "console":
            if re.search(r"^\$? ?ledra ", block, re.MULTILINE):
                raise ValueError(f"{page}: a command stands in a block of {kind or 'no kind'}; it would not be run")
            continue
        continues = False
        for line in block.splitlines():
            if continues:
                steps[-1].command += "\n" + line
            elif line.startswith("$ "):
                steps.append(Step(line[2:]))
            else:
                steps[-1].expected.append(line)
                continue
            continues = line.endswith("\\") or ("<<'END'" in steps[-1].command and line != "END")
    if not steps:
        raise ValueError(f"{page}: shows no commands")
    return steps


def script_of(steps):
    lines = ["exec 2>&1"]
    for step in steps:
        lines += [step.command, f"code=$?; printf '{MARK}%s{MARK}' $code; (exit $code)"]
    return "\n".join(lines) + "\n"


def pattern_of(lines):
    parts = []
    for line in lines:
        if line == "…":
            parts.append(r"(?:.*\n)*?")
        else:
            parts.append(".*?".join(map(re.escape, line.split("…"))) + r"\n")
    return "".join(parts)


def run(program, examples, steps):
    """The output and the exit code of each step."""
    with tempfile.TemporaryDirectory() as place:
        work = Path(place) / "work"
        work.mkdir()
        (work / "examples").symlink_to(Path(examples).resolve())
        (Path(place) / "run").mkdir(mode=0o700)
        variables = {"HOME": place, "XDG_DATA_HOME": f"{place}/.local/share", "XDG_CONFIG_HOME": f"{place}/.config",
                     "XDG_RUNTIME_DIR": f"{place}/run", "LC_ALL": "C.UTF-8", "TZ": "Europe/Berlin",
                     "PATH": f"{Path(program).resolve().parent}:{os.environ['PATH']}"}
        variables |= {name: os.environ[name] for name in ["ASAN_OPTIONS"] if name in os.environ}
        result = subprocess.run(["bash", "--norc", "-c", script_of(steps)], cwd=work, env=variables,
                                stdin=subprocess.DEVNULL, capture_output=True, text=True, encoding="utf-8",
                                timeout=SECONDS)
        parts = result.stdout.replace(place, "/home/you").split(MARK)
    return list(zip(parts[0::2], map(int, parts[1::2])))


def problems_of(program, examples, page):
    steps = steps_of(page, Path(page).read_text(encoding="utf-8"))
    outcomes = run(program, examples, steps)
    if len(outcomes) != len(steps):
        yield f"{page}: the session ended after {len(outcomes)} of {len(steps)} commands"
    for index, (step, (output, code)) in enumerate(zip(steps, outcomes)):
        if not re.fullmatch(pattern_of(step.expected), output):
            yield f"{page}: $ {step.command}\n--- the page says\n" + "\n".join(step.expected) + f"\n--- printed\n{output}"
        is_failure_shown = index + 1 < len(steps) and steps[index + 1].command == "echo $?"
        if code and not is_failure_shown:
            yield f"{page}: $ {step.command}\n--- ends with {code}, which the page does not say"


def check_the_check(program, examples):
    """A page with wrong outputs must be found wrong, or a blind comparison would pass everything."""
    with tempfile.TemporaryDirectory() as place:
        for text in ("```console\n$ echo one\ntwo\n```\n", "```console\n$ false\n```\n"):
            page = Path(place) / "wrong.md"
            page.write_text(text, encoding="utf-8")
            if not list(problems_of(program, examples, page)):
                sys.exit(f"the check is blind to {text!r}")


def main():
    program, examples, *pages = sys.argv[1:]
    if not pages:
        sys.exit("usage: docs_commands.py PROGRAM EXAMPLES PAGE.md…")
    check_the_check(program, examples)
    problems = [problem for page in pages for problem in problems_of(program, examples, page)]
    print("\n\n".join(problems) or f"{len(pages)} pages are right")
    sys.exit(bool(problems))


if __name__ == "__main__":
    main()
