"""The completion for bash."""
import operand_kinds

HEAD = """\
# bash completion for ledra(1), made from "ledra --help"

_ledra_candidates() # KIND
{
    local home=${XDG_DATA_HOME:-$HOME/.local/share}/Ledra
    case $1 in
        words:*) tr ',' '\\n' <<<"${1#words:}" ;;
        settings) ledra settings list 2>/dev/null | sed 's/ .*//' ;;
    esac
    [ -d "$home" ] || return 0 # asking for the following would make the folder
    case $1 in
        records) ledra list 2>/dev/null | sed 's/  .*//' ;;
        profiles) ledra profile list 2>/dev/null | sed 's/^[* ] *//; s/  .*//' ;;
        plugins) ls "$home/Plugins" 2>/dev/null | sed -n 's/\\.ledraplugin$//p' ;;
        fields:*) ledra "${1#fields:}" show 2>/dev/null | sed 's/ .*/=/; /=$/!s/$/=/' ;;
    esac
}

_ledra_offer() # KIND…
{
    local kind line
    for kind; do
        case $kind in
            files) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -f -- "$current") ;;
            folders) compopt -o filenames; mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -d -- "$current") ;;
            fields:*) compopt -o nospace ;;&
            *)
                while IFS= read -r line; do
                    [[ $line == "$current"* ]] && COMPREPLY+=("$(printf %q "$line")")
                done < <(_ledra_candidates "$kind") ;;
        esac
    done
}
"""

TAIL = """\
_ledra()
{
    local current words position index word command='' operands=0 option name kinds=()
    _get_comp_words_by_ref -n =: -c current -w words -i position
    COMPREPLY=()
    # What stands before the word: the command, then operands; an option takes its value along.
    local waiting=''
    for ((index = 1; index < position; ++index)); do
        word=${words[index]}
        if [ -n "$waiting" ]; then
            waiting=''
        elif [[ $word == -* ]]; then
            for option in $(_ledra_options "$command"); do
                [[ $option == "$word="* ]] && waiting=${option#*=}
            done
        elif [ -z "$command" ]; then
            command=$word
        elif [ $operands = 0 ] && [[ " $(_ledra_verbs "$command") " == *" $word "* ]]; then
            command+=" $word"
        else
            operands=$((operands + 1))
        fi
    done
    if [ -n "$waiting" ]; then
        [ "$waiting" = none ] || _ledra_offer ${waiting//+/ }
    elif [[ $current == -* ]]; then
        for option in $(_ledra_options "$command"); do
            name=${option%%=*}
            [[ $name == "$current"* ]] && COMPREPLY+=("$name")
        done
    elif [ -z "$command" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_ledra_verbs '')" -- "$current")
        _ledra_offer files
    elif [ $operands = 0 ] && [ -n "$(_ledra_verbs "$command")" ]; then
        mapfile -t COMPREPLY < <(compgen -W "$(_ledra_verbs "$command")" -- "$current")
    else
        read -ra kinds <<<"$(_ledra_operands "$command")"
        word=${kinds[operands]:-}
        if [ -z "$word" ] && [ ${#kinds[@]} -gt 0 ] && [[ ${kinds[-1]} == *'*' ]]; then
            word=${kinds[-1]}
        fi
        word=${word%'*'}
        [ -z "$word" ] || [ "$word" = none ] || _ledra_offer ${word//+/ }
    fi
}

complete -F _ledra ledra
"""


def _joined(kinds):
    return "+".join(kinds) or "none"


def _case(function, remark, rows):
    lines = [f"{function}() # {remark}", "{", "    case $1 in"]
    lines += [f"        {name}) echo '{text}' ;;" for name, text in rows if text]
    return "\n".join(lines + ["    esac", "}", ""])


def _operands(command, form):
    texts = [_joined(operand_kinds.of_operand(placeholder, command.name, position))
             for position, placeholder in enumerate(form.operands, 1)]
    return " ".join(texts) + ("*" if operand_kinds.repeats(form) else "")


def _options(options):
    texts = []
    for option in options:
        value = "=" + _joined(operand_kinds.of_option(option)) if option.value else ""
        texts += ["--" + option.name + value] + (["-" + option.short + value] if option.short else [])
    return " ".join(texts)


def page(program):
    verbs = [("''", " ".join(command.name for command in program.commands))]
    verbs += [(command.name, " ".join(form.verb for form in command.forms if form.verb))
              for command in program.commands]
    operands = [(f"'{command.name} {form.verb}'" if form.verb else command.name, _operands(command, form))
                for command in program.commands for form in command.forms]
    options = [(f"{command.name}*" if command.forms[0].verb else command.name,
                _options(command.options + program.common)) for command in program.commands]
    options.append(("*", _options(program.common)))
    return "\n".join([HEAD,
                      _case("_ledra_verbs", "COMMAND: its verbs; without one, the commands", verbs),
                      _case("_ledra_operands", "COMMAND [VERB]: the kinds of its operands; * may be repeated", operands),
                      _case("_ledra_options", "COMMAND: its options, with the kind of their value", options),
                      TAIL])
