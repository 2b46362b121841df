"""Writes a program's manual page from its help."""
import re


def escaped(text):
    """Text for roff: hyphens stay hyphens that can be copied, and no line begins a request."""
    text = text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq").replace("^", "\\(ha")
    text = text.replace("~", "\\(ti").replace("`", "\\(ga")
    return "\\&" + text if text.startswith(".") else text


def marked(term):
    """Part of a command line: options in bold, what stands for something else in italics."""
    def mark(match):
        word = match.group(0)
        return f"\\f{'B' if word.startswith('-') else 'I'}{escaped(word.strip('<>'))}\\fR"
    return re.sub(r"<[^>]+>|-*\w[\w.-]*", mark, term)


def typed(text):
    """The first word as it is typed, the rest marked."""
    word, _, rest = text.partition(" ")
    return f"\\fB{escaped(word)}\\fR {marked(rest)}".rstrip()


def section(title, lines):
    return [f".SH {title}", *lines] if lines else []


def tagged(rows, mark=marked):
    lines = []
    for row in rows:
        lines += [".TP", mark(row.term), escaped(row.text)]
    return lines


def paragraphs(texts):
    lines = []
    for text in texts:
        lines += [".PP", escaped(text)]
    return lines[1:]


def commands(program, groups):
    lines = []
    for group in groups:
        lines.append(f".SS {escaped(f'{program} {group.name}')}")
        for command in group.commands:
            lines += [".TP", typed(command.synopsis), escaped(command.text)]
        for note in group.notes:
            lines += [".PP", escaped(note)]
    return lines


def manual_page(help_, summary, version, date, others):
    """The page as roff. The others are the programs that it refers to."""
    exit_texts = [text for text in help_.paragraphs if text.startswith("Exit code")]
    texts = [text for text in help_.paragraphs if text not in exit_texts]
    synopsis = [line for text in help_.usages for line in (typed(text), ".br")][:-1]
    for group in help_.groups:
        synopsis += [".br", f".B {escaped(help_.name)} {escaped(group.name)}", "\\fICOMMAND\\fR"]
    window_options = [".SS Options of the window system", *tagged(help_.window_options)]
    references = [f".BR {escaped(name)} (1)," for name in others if name != help_.name]
    lines = [f".\\\" Made from the help of {help_.name}.",
             f".TH {help_.name.upper()} 1 {date} \"KestCommon {version}\" \"Kest simulation suite\"",
             *section("NAME", [f"{escaped(help_.name)} \\- {escaped(summary)}"]),
             *section("SYNOPSIS", synopsis),
             *section("DESCRIPTION", paragraphs(texts or [summary[0].upper() + summary[1:] + "."])),
             *section("OPTIONS", tagged(help_.options) + (window_options if help_.window_options else [])),
             *section("ARGUMENTS", tagged(help_.arguments)),
             *section("COMMANDS", commands(help_.name, help_.groups)),
             *section("ENVIRONMENT", tagged(help_.variables, typed)),
             *section("EXIT STATUS", paragraphs(exit_texts)),
             *section("SEE ALSO", references[:-1] + [references[-1].rstrip(",")] if references else [])]
    return "\n".join(lines) + "\n"
