"""Reads the program's commands from its own help, so that the manual and the completions cannot say anything else.

Whatever is not understood is an error: a new form of help text must not silently drop out of the manual.
"""
import re
import subprocess
from dataclasses import dataclass, field

COLUMN = 28  # at least as wide is the left column of every help text
OPTION = re.compile(r"^(?:-(\w), )?--([a-z-]+)(?: (\S+))?$")


@dataclass
class Option:
    short: str
    name: str
    value: str  # what the value is called; empty for a switch
    help: str


@dataclass
class Form:
    """One way to call a command: its verb, if it has verbs, and what follows."""
    verb: str
    operands: list  # the placeholders, without the brackets of those that may be left out
    text: str  # as the usage line has it


@dataclass
class Command:
    name: str
    summary: str
    remark: str
    forms: list
    options: list = field(default_factory=list)


@dataclass
class Program:
    commands: list
    common: list  # the options that every command takes


class HelpNotUnderstood(Exception):
    pass


def _rows(lines):
    """The two columns of a table in a help text."""
    for line in lines:
        parts = re.match(r"^  (\S.*?)(?:\s{2,}|$)(.*)$", line)
        if not parts or not parts.group(2):
            raise HelpNotUnderstood(f"no table row: {line!r}")
        yield parts.group(1), parts.group(2)


def _section(text, title):
    found = re.search(rf"^{title}:\n((?:  .*\n)+)", text, re.MULTILINE)
    if not found:
        raise HelpNotUnderstood(f"no section {title!r} in {text!r}")
    return found.group(1).splitlines()


def _option(left, text):
    parts = OPTION.match(left)
    if not parts:
        raise HelpNotUnderstood(f"no option: {left!r}")
    return Option(parts.group(1) or "", parts.group(2), parts.group(3) or "", text)


def _forms(arguments):
    """"list | show [P]" are forms with verbs; "ID draft|sent" is one form without."""
    if " | " not in arguments:
        return [Form("", [word.strip("[]") for word in arguments.split()], arguments)]
    forms = []
    for text in arguments.split(" | "):
        verb, *operands = text.split()
        if not re.fullmatch(r"[a-z-]+", verb):
            raise HelpNotUnderstood(f"no verb: {text!r}")
        forms.append(Form(verb, [word.strip("[]") for word in operands], text))
    return forms


def command_from(name, text):
    usage = re.search(rf"\nUsage: ledra {name} \[OPTIONS\] (.*)\n", text)
    if not usage:
        raise HelpNotUnderstood(f"no usage line for {name!r}")
    summary = text.split("\n", 1)[0]
    remark = text[usage.end():].split("\nOptions:\n")[0].strip()
    options = [_option(*row) for row in _rows(_section(text, "Options"))]
    return Command(name, summary, remark, _forms(usage.group(1)), options)


def read_program(path):
    def help_of(*arguments):
        return subprocess.run([path, *arguments, "--help"], check=True, capture_output=True, text=True,
                              encoding="utf-8").stdout

    commands = [command_from(name, help_of(name)) for name, _ in _rows(_section(help_of(), "Commands"))]
    # The options of all commands stand at the end of each list.
    shared = {option.name for option in commands[0].options}
    for command in commands:
        shared &= {option.name for option in command.options}
    common = [option for option in commands[0].options if option.name in shared]
    for command in commands:
        command.options = [option for option in command.options if option.name not in shared]
    return Program(commands, common)
