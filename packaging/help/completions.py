"""Writes a program's completions for shells from its help."""
import re

from program_help import without_repetition

# What completes the words of a group of commands, each a shell command that prints the words.
WORDS = {
    "NAME": "options list 2>/dev/null | cut -d = -f 1",
    "NAME=VALUE": "options list 2>/dev/null | cut -d = -f 1",
    "NUMBER": "runs list 2>/dev/null | awk 'NR > 1 { print $1 }'",
}
FILE_VALUES = {"file": "-f", "folder": "-d"}  # and how bash completes them


def quoted(text):
    """A word for any of the shells."""
    return "'" + text.replace("'", "'\\''") + "'"


def long_options(rows):
    """The names that are offered: the long one where there is one."""
    for row in without_repetition(rows):
        yield row, next((name for name in row.names if name.startswith("--")), row.names[0])


# ---- bash

BASH = """# Completion of {name} for bash.
_{name}() {{
    local word=${{COMP_WORDS[COMP_CWORD]}} before=${{COMP_WORDS[COMP_CWORD-1]}}
    COMPREPLY=()
    # Bash takes --option=VALUE for three words.
    if [ "$word" = '=' ]; then
        word=
    elif [ "$before" = '=' ]; then
        before=${{COMP_WORDS[COMP_CWORD-2]}}
    fi
    case $before in
{values}        --) ;;
        *)
            if [[ $word == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W '{options}' -- "$word")
{window_options}                return
            fi ;;
    esac
    mapfile -t COMPREPLY < <({files}compgen -d -- "$word")
}}
complete -o filenames -F _{name} {name}
"""

BASH_WINDOW_OPTIONS = """                if [ ${{#COMPREPLY[@]}} -eq 0 ]; then
                    mapfile -t COMPREPLY < <(compgen -W '{names}' -- "$word")
                fi
"""


def bash_values(rows):
    """Cases for options that take a value."""
    for row in without_repetition(rows):
        pattern = " | ".join(row.names)
        if row.words:
            action = f"mapfile -t COMPREPLY < <(compgen -W '{' '.join(row.words)}' -- \"$word\"); return"
        elif row.value in FILE_VALUES:
            action = f"mapfile -t COMPREPLY < <(compgen {FILE_VALUES[row.value]} -- \"$word\"); return"
        elif row.value:
            action = "return"
        else:
            continue
        yield f"        {pattern}) {action} ;;\n"


def bash(help_):
    window_names = " ".join(name for _, name in long_options(help_.window_options))
    return BASH.format(
        name=help_.name,
        values="".join(bash_values(help_.options + help_.window_options)),
        options=" ".join(name for _, name in long_options(help_.options)),
        window_options=BASH_WINDOW_OPTIONS.format(names=window_names) if window_names else "",
        files="".join(f"compgen -f -X '!{pattern}' -- \"$word\"; " for pattern in help_.file_patterns))


# ---- zsh

def zsh_text(text):
    """A text in brackets, or before a colon, of _arguments."""
    return re.sub(r"([\[\]:\\])", r"\\\1", text)


def zsh_value(row):
    if row.words:
        return f":{row.value}:({' '.join(row.words)})"
    if row.value in FILE_VALUES:
        return f":{row.value}:_files" + (" -/" if row.value == "folder" else "")
    return f":{zsh_text(row.value)}:" if row.value else ""


def zsh_arguments(help_):
    """The words of _arguments, without commands."""
    for row, _ in long_options(help_.options + help_.window_options):
        for name in row.names:
            sign = "=" if row.value and name.startswith("--") else ""
            yield quoted(f"{name}{sign}[{zsh_text(row.text)}]{zsh_value(row)}")
    yield quoted("*:file:_files -g \"" + "|".join(help_.file_patterns) + "\"")


def zsh_command(program, command):
    words = [quoted(name + (f":{value}:" if value else "")) for name, value in command.options]
    for place, argument in enumerate(command.arguments, 1):
        name, is_repeated = argument.removesuffix("..."), argument.endswith("...")
        action = f"($({program} {WORDS[name]}))" if name in WORDS else "_files"
        words.append(quoted(f"{'*' if is_repeated else place}:{name}:{action}"))
    return f"                {command.name}) _arguments {' '.join(words)} ;;\n" if words else ""


def zsh_group(program, group):
    described = " ".join(quoted(f"{command.name}:{zsh_text(command.text)}") for command in group.commands)
    cases = "".join(zsh_command(program, command) for command in group.commands)
    return (f"        {group.name})\n"
            f"            subcommands=({described})\n"
            f"            if (( CURRENT == 3 )); then\n"
            f"                _describe command subcommands\n"
            f"                return\n"
            f"            fi\n"
            f"            shift 2 words\n"
            f"            (( CURRENT -= 2 ))\n"
            f"            case $words[1] in\n{cases}            esac\n"
            f"            return ;;\n")


def zsh(help_):
    lines = [f"#compdef {help_.name}", f"# Completion of {help_.name} for zsh."]
    if help_.groups:
        lines += ["local -a subcommands", "if (( CURRENT > 2 )); then", "    case $words[2] in",
                  "".join(zsh_group(help_.name, group) for group in help_.groups) + "    esac",
                  "elif [[ $words[2] != -* ]]; then",
                  f"    subcommands=({' '.join(group.name for group in help_.groups)})",
                  "    _describe command subcommands", "fi"]
    lines.append("_arguments " + " \\\n    ".join(zsh_arguments(help_)))
    return "\n".join(lines) + "\n"


# ---- fish

def fish_quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def fish_option(name):
    if name.startswith("--"):
        return f"-l {name[2:]}"
    return f"-s {name[1:]}" if len(name) == 2 else f"-o {name[1:]}"


def fish_value(row):
    if row.words:
        return " -x -a " + fish_quoted(" ".join(row.words))
    if row.value in FILE_VALUES:
        return " -r -F"
    return " -x" if row.value else ""


def fish_files(help_, condition):
    """Directories are among what __fish_complete_suffix offers."""
    for pattern in help_.file_patterns:
        yield f"complete -c {help_.name}{condition} -k -a '(__fish_complete_suffix {pattern[1:]})'"


def fish_group(program, group):
    """Lines for the commands of a group, their options and their words."""
    start = f"complete -c {program} -f -n "
    names = " ".join(command.name for command in group.commands)
    in_group = f"__fish_seen_subcommand_from {group.name}"
    for command in group.commands:
        condition = fish_quoted(f"{in_group}; and not __fish_seen_subcommand_from {names}")
        yield f"{start}{condition} -a {command.name} -d {fish_quoted(command.text)}"
        condition = fish_quoted(f"{in_group}; and __fish_seen_subcommand_from {command.name}")
        for name, value in command.options:
            yield f"{start}{condition} {fish_option(name)}{' -x' if value else ''}"
        for argument in sorted({argument.removesuffix("...") for argument in command.arguments}):
            if argument in WORDS:
                yield f"{start}{condition} -a " + fish_quoted(f"({program} {WORDS[argument]})")
            else:
                yield f"complete -c {program} -F -n {condition}"


def fish(help_):
    program = help_.name
    group_names = " ".join(group.name for group in help_.groups)
    condition = " -n " + fish_quoted(f"not __fish_seen_subcommand_from {group_names}") if group_names else ""
    lines = [f"# Completion of {program} for fish.", f"complete -c {program} -f", *fish_files(help_, condition)]
    for row in without_repetition(help_.options + help_.window_options):
        names = " ".join(fish_option(name) for name in row.names)
        lines.append(f"complete -c {program}{condition} {names}{fish_value(row)} -d {fish_quoted(row.text)}")
    if group_names:
        lines.append(f"complete -c {program} -n __fish_is_first_arg -a {fish_quoted(group_names)}")
    for group in help_.groups:
        lines += fish_group(program, group)
    return "\n".join(lines) + "\n"
