"""The commands and options of the manual page, in the macros of man(7)."""


def _escaped(text):
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq").replace("…", "...")
    return "\\&" + text if text.startswith((".", "'")) else text


def _usage(words):
    """A usage with what is typed as it stands in bold, and what is put in its place in italics."""
    texts = []
    for word in words.split():
        bare = word.strip("[]…")
        is_literal = bare == bare.lower() or bare.startswith("-")
        texts.append(f"\\f{'B' if is_literal else 'I'}{_escaped(word)}\\fR")
    return " ".join(texts)


def _option(option):
    names = ([f"\\fB\\-{option.short}\\fR"] if option.short else []) + [f"\\fB\\-\\-{_escaped(option.name)}\\fR"]
    value = f" \\fI{_escaped(option.value)}\\fR" if option.value else ""
    return f".TP\n{', '.join(names)}{value}\n{_escaped(option.help)}\n"


def _command(command):
    text = f".SS ledra {_escaped(command.name)}\n{_escaped(command.summary)}\n.PP\n.nf\n"
    for form in command.forms:
        text += f"\\fBledra {_escaped(command.name)}\\fR {_usage(form.text)}".rstrip() + "\n"
    text += ".fi\n"
    if command.remark:
        text += f".PP\n{_escaped(command.remark)}\n"
    return text + "".join(map(_option, command.options))


def page(program, template, version, day):
    values = {
        "@VERSION@": version,
        "@DATE@": day,
        "@COMMANDS@\n": "".join(map(_command, program.commands)),
        "@OPTIONS@\n": "".join(map(_option, program.common)),
    }
    for mark, value in values.items():
        if mark not in template:
            raise ValueError(f"the template has no {mark!r}")
        template = template.replace(mark, value)
    return template
