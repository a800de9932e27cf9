"""What may stand in the place of a placeholder of the help, as words that the three completions share.

A kind is "records", "profiles", "plugins", "settings", "files", "folders", "fields:COMMAND" (KEY= of what that command
shows) or "words:a,b". A placeholder may have several kinds, and none where only the user knows what comes.
"""
import re

FIXED = {
    "P": ["profiles"],
    "R": ["records"],
    "ID": ["records"],
    "QUOTE-ID": ["records"],
    "KEY": ["settings"],
    "FILE": ["files"],
    "PATH": ["files"],
    "FOLDER": ["folders"],
    "OPERATION": ["words:exportInvoice,exportInvoices,importInvoices,updateInvoices"],
}
WITH_FIELDS = ("profile", "styling")


def _alternative(word, command):
    if re.fullmatch(r"FILE\.[a-z]+", word):
        return ["files"]
    if word == "KEY=VALUE":
        return ["fields:" + command] if command in WITH_FIELDS else []
    return FIXED.get(word, [])


def of_operand(placeholder, command, position):
    """The kinds of an operand, the first of which has the position 1 (after the verb, where there is one)."""
    words = placeholder.replace("…", "").split("|")
    if command == "plugin" and position == 1 and words == ["ID"]:
        return ["plugins"]
    choices = [word for word in words if re.fullmatch(r"[a-z]+", word)]
    kinds = ["words:" + ",".join(choices)] if choices else []
    for word in words:
        kinds += [kind for kind in _alternative(word, command) if kind not in kinds]
    return [kind for kind in kinds if kind != "folders" or "files" not in kinds]  # files come with their folders


def of_option(option):
    """The kinds of an option's value. Where the help lists the values, they are taken from there."""
    listed = re.search(r"Only these: ([\w, ]+)\.|Of ([\w,]+);", option.help)
    if listed:
        return ["words:" + ",".join(re.split(r", | or |,", listed.group(1) or listed.group(2)))]
    if option.name == "profile":
        return ["profiles"]
    return of_operand(option.value, "", 1)


def repeats(form):
    """Whether the last operand may be given again and again."""
    return bool(form.operands) and "…" in form.operands[-1]
