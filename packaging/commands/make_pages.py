#!/usr/bin/env python3
"""Writes the manual page and the completions of bash, zsh and fish from what the program says of itself.

usage: make_pages.py PROGRAM VERSION FOLDER

The day of the manual page is that of SOURCE_DATE_EPOCH, so that a package can be built again to the same bytes.
"""
import os
import sys
import time
from pathlib import Path

import bash_completion
import command_table
import fish_completion
import manual
import zsh_completion


def main():
    if len(sys.argv) != 4:
        sys.exit("usage: make_pages.py PROGRAM VERSION FOLDER")
    path, version, folder = sys.argv[1], sys.argv[2], Path(sys.argv[3])
    program = command_table.read_program(path)
    seconds = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    day = time.strftime("%Y-%m-%d", time.gmtime(seconds))
    template = (Path(__file__).parent / "ledra.1.in").read_text(encoding="utf-8")
    folder.mkdir(parents=True, exist_ok=True)
    pages = {
        "ledra.1": manual.page(program, template, version, day),
        "ledra.bash": bash_completion.page(program),
        "_ledra": zsh_completion.page(program),
        "ledra.fish": fish_completion.page(program),
    }
    for name, text in pages.items():
        (folder / name).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
