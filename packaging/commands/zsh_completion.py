"""The completion for zsh."""
import operand_kinds

HEAD = """\
#compdef ledra
# zsh completion for ledra(1), made from "ledra --help"

# Asking for what follows would make the data folder where there is none.
_ledra_there() { [[ -d ${XDG_DATA_HOME:-$HOME/.local/share}/Ledra ]] }

_ledra_records() {
  local -a found; _ledra_there && found=(${${(f)"$(ledra list 2>/dev/null)"}%%  *})
  compadd "$@" -a found
}
_ledra_profiles() {
  local -a found; _ledra_there && found=(${${${(f)"$(ledra profile list 2>/dev/null)"}#???}%%  *})
  compadd "$@" -a found
}
_ledra_plugins() {
  local -a found; found=(${XDG_DATA_HOME:-$HOME/.local/share}/Ledra/Plugins/*.ledraplugin(N:t:r))
  compadd "$@" -a found
}
_ledra_settings() {
  local -a found; found=(${${(f)"$(ledra settings list 2>/dev/null)"}%% *})
  compadd "$@" -a found
}
_ledra_fields() {
  local -a found; _ledra_there && found=(${${(f)"$(ledra $1 show 2>/dev/null)"}%% *})
  compadd -S = -- $found
}

_ledra() {
  local curcontext=$curcontext
  local -a common commands
"""

TAIL = """\
  if (( CURRENT == 2 )) && [[ $words[2] != -* ]]; then
    _describe -t commands command commands
    _files
    return
  fi
  local command=$words[2]
  shift words
  (( CURRENT-- ))
  case $command in
"""

ACTIONS = {"files": "_files", "folders": "_files -/"}


def _escaped(text):
    """For a description in a specification of _arguments, inside single quotes."""
    for mark in ("\\", "[", "]", ":"):
        text = text.replace(mark, "\\" + mark)
    return text.replace("'", "'\\''")


def _action(kinds):
    # A blank before an action keeps _arguments from putting options of its own between the function and its arguments.
    actions = []
    for kind in kinds:
        name, _, detail = kind.partition(":")
        if name == "words":
            actions.append("(" + detail.replace(",", " ") + ")")
        elif name == "fields":
            actions.append(f" _ledra_fields {detail}")
        else:
            actions.append(ACTIONS.get(name, "_ledra_" + name))
    if len(actions) > 1:
        return " _alternative " + " ".join(f'"{number}\\:\\:{action}"' for number, action in enumerate(actions))
    return actions[0] if actions else " "


def _option(option):
    value = ":" + _escaped(option.value) + ":" + _action(operand_kinds.of_option(option)) if option.value else ""
    names = "{-%s,--%s}" % (option.short, option.name) if option.short else "--" + option.name
    again = "\\*" if "again" in option.help else ""
    return f"{again}{names}'[{_escaped(option.help)}]{value}'"


def _operands(command, form, first):
    texts = []
    for position, placeholder in enumerate(form.operands, 1):
        number = str(first + position - 1)
        if operand_kinds.repeats(form) and position == len(form.operands):
            number = "*"
        action = _action(operand_kinds.of_operand(placeholder, command.name, position))
        texts.append(f"'{number}:{_escaped(placeholder)}:{action}'")
    return texts


def _call(command, operands):
    words = [*map(_option, command.options), *operands]
    return "_arguments -s $common" + "".join(f" \\\n        {word}" for word in words)


def _command(command):
    if not command.forms[0].verb:
        return f"    {command.name})\n      {_call(command, _operands(command, command.forms[0], 1))} ;;\n"
    verbs = " ".join(form.verb for form in command.forms)
    text = f"    {command.name})\n      case $words[2] in\n"
    for form in command.forms:
        if form.operands:
            operands = ["'1: :'", *_operands(command, form, 2)]
            text += f"      {form.verb}) (( CURRENT > 2 )) && {{ {_call(command, operands)}; return }} ;;\n"
    verb = "'1:verb:(" + verbs + ")'"
    return text + f"      esac\n      {_call(command, [verb])} ;;\n"


def page(program):
    text = HEAD + "  commands=(\n"
    text += "".join(f"    '{command.name}:{_escaped(command.summary)}'\n" for command in program.commands)
    text += "  )\n  common=(\n"
    text += "".join(f"    {_option(option)}\n" for option in program.common)
    return text + "  )\n" + TAIL + "".join(map(_command, program.commands)) + "  esac\n}\n\n_ledra \"$@\"\n"
