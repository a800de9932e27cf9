"""The completion for fish."""
import operand_kinds

HEAD = """\
# fish completion for ledra(1), made from "ledra --help"

# The words so far without the program, the options and their values.
function __ledra_words
    set -l waiting no
    for word in (commandline -opc)[2..]
        if test $waiting = yes
            set waiting no
        else if string match -q -- '-*' $word
            contains -- $word VALUED; and set waiting yes
        else
            echo $word
        end
    end
end

# __ledra_at NUMBER WORD…: whether these words, and NUMBER operands after them, stand before the cursor; a NUMBER that
# ends in "+" means that many or more.
function __ledra_at --argument-names number
    set -l words (__ledra_words)
    for word in $argv[2..]
        test "$word" = "$words[1]"; or return 1
        set -e words[1]
    end
    if string match -q '*+' -- $number
        test (count $words) -ge (string trim -rc + -- $number)
    else
        test (count $words) -eq $number
    end
end

function __ledra_in
    set -l words (__ledra_words)
    test "$words[1]" = $argv[1]
end

# Asking for what follows would make the data folder where there is none.
function __ledra_home
    set -l home $HOME/.local/share/Ledra
    set -q XDG_DATA_HOME; and set home $XDG_DATA_HOME/Ledra
    test -d $home; and echo $home
end
function __ledra_records
    test -n "$(__ledra_home)"; and ledra list 2>/dev/null | string replace -r '  +' \\t
end
function __ledra_profiles
    test -n "$(__ledra_home)"; and ledra profile list 2>/dev/null | string replace -r '^[* ] *' '' | string replace -r '  .*' ''
end
function __ledra_plugins
    path basename (__ledra_home)/Plugins/*.ledraplugin 2>/dev/null | string replace .ledraplugin ''
end
function __ledra_settings
    ledra settings list 2>/dev/null | string replace -r ' +' \\t
end
function __ledra_fields
    test -n "$(__ledra_home)"; and ledra $argv[1] show 2>/dev/null | string replace -r ' .*|$' =
end

complete -c ledra -f
"""


def _quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def _candidates(kinds):
    """The arguments of "complete" that offer these kinds, and whether files are among them."""
    texts = []
    for kind in kinds:
        name, _, detail = kind.partition(":")
        if name == "words":
            texts.append(detail.replace(",", " "))
        elif name == "folders":
            texts.append("(__fish_complete_directories)")
        elif name == "fields":
            texts.append(f"(__ledra_fields {detail})")
        elif name != "files":
            texts.append(f"(__ledra_{name})")
    offered = f" -a {_quoted(' '.join(texts))}" if texts else ""
    return offered + (" -F" if "files" in kinds else "")


def _option(option, condition):
    line = f"complete -c ledra{condition} -l {option.name}"
    if option.short:
        line += f" -s {option.short}"
    if option.value:
        line += " -r" + (_candidates(operand_kinds.of_option(option)) or " -f")
    return line + f" -d {_quoted(option.help)}"


def _form(command, form):
    lines = []
    words = f"{command.name} {form.verb}".strip()
    for position, placeholder in enumerate(form.operands, 1):
        candidates = _candidates(operand_kinds.of_operand(placeholder, command.name, position))
        more = "+" if operand_kinds.repeats(form) and position == len(form.operands) else ""
        if candidates:
            lines.append(f"complete -c ledra -n '__ledra_at {position - 1}{more} {words}'{candidates}")
    return lines


def page(program):
    valued = set()
    lines = [_option(option, "") for option in program.common]
    for command in program.commands:
        lines.append(f"complete -c ledra -n '__ledra_at 0' -a {command.name} -d {_quoted(command.summary)}")
        verbs = " ".join(form.verb for form in command.forms if form.verb)
        if verbs:
            lines.append(f"complete -c ledra -n '__ledra_at 0 {command.name}' -a {_quoted(verbs)}")
        for form in command.forms:
            lines += _form(command, form)
        lines += [_option(option, f" -n '__ledra_in {command.name}'") for option in command.options]
        for option in command.options + program.common:
            if option.value:
                valued |= {"--" + option.name} | ({"-" + option.short} if option.short else set())
    lines.append("complete -c ledra -n '__ledra_at 0' -F")
    return HEAD.replace("VALUED", " ".join(sorted(valued))) + "\n".join(lines) + "\n"
