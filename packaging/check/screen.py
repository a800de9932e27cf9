#!/usr/bin/env python3
"""Asks Ledra's windows, through the interface for screen readers, whether they show something.

usage: screen.py selected TEXT     an item of a list or a table is selected whose name begins with TEXT
       screen.py text TEXT         something visible has a name that begins with TEXT
"""
import sys

import pyatspi


def things(parent, depth=0):
    if depth > 40:
        return
    for child in parent:
        if child is not None:
            yield child
            yield from things(child, depth + 1)


def is_match(thing, kind, text):
    if not thing.name.startswith(text):
        return False
    state = pyatspi.STATE_SELECTED if kind == "selected" else pyatspi.STATE_SHOWING
    return thing.getState().contains(state)


def main():
    kind, text = sys.argv[1:]
    for application in pyatspi.Registry.getDesktop(0):
        if application is not None and application.name == "Ledra":
            if any(is_match(thing, kind, text) for thing in things(application)):
                return
    sys.exit(1)


if __name__ == "__main__":
    main()
