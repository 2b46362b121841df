"""Reads what a program prints for --help, for its manual page and its completions."""
import dataclasses
import os
import re
import subprocess


@dataclasses.dataclass
class Row:
    """A line of a list: an option, an argument, a variable, a command of a group."""
    term: str
    text: str = ""

    @property
    def names(self):
        """The spellings of an option: "-h" and "--help" of "-h, --help"."""
        return re.findall(r"(?:^|, )(-[\w-]+)", self.term)

    @property
    def value(self):
        """What stands for an option's value, empty when it takes none."""
        match = re.search(r"[ =]<([^>]+)>$", self.term)
        return match.group(1) if match else ""

    @property
    def words(self):
        """The words that the option takes, where its text lists them behind a colon."""
        match = re.search(r": ([^.:]+)\.", self.text)
        if not match or self.value != "name":
            return []
        words = re.split(r", | or ", re.sub(r" \([^)]*\)", "", match.group(1)))
        return words if len(words) > 1 and all(re.fullmatch(r"[\w-]+", word) for word in words) else []


@dataclasses.dataclass
class Command:
    """A command of a group, such as "list" of "kestdesk runs"."""
    synopsis: str
    text: str

    @property
    def name(self):
        return self.synopsis.split()[0]

    @property
    def options(self):
        """Its options: name, and what stands for the value."""
        return re.findall(r"\[(--[\w-]+) ?([^]]*)\]", self.synopsis)

    @property
    def arguments(self):
        """What stands for its arguments, such as "NUMBER" and "NUMBER..."."""
        without_options = re.sub(r"\[--[^]]*\]", "", self.synopsis)
        return [word.strip("[]") for word in without_options.split()[1:]]


@dataclasses.dataclass
class Group:
    name: str
    commands: list
    notes: list


@dataclasses.dataclass
class ProgramHelp:
    name: str
    usages: list = dataclasses.field(default_factory=list)
    paragraphs: list = dataclasses.field(default_factory=list)
    options: list = dataclasses.field(default_factory=list)  # of --help
    window_options: list = dataclasses.field(default_factory=list)  # only in --help-all
    arguments: list = dataclasses.field(default_factory=list)
    variables: list = dataclasses.field(default_factory=list)
    groups: list = dataclasses.field(default_factory=list)

    @property
    def file_patterns(self):
        """Which files the program takes, such as "*.nec": its arguments name them."""
        found = re.findall(r"\((\*\.\w+)\)", " ".join(row.text for row in self.arguments))
        return found or ["*.nec"]


def printed(program, option):
    """The program's answer, or None when it does not know the option."""
    environment = {"PATH": os.environ.get("PATH", ""), "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                   "HOME": os.environ.get("HOME", "/"), "COLUMNS": "80"}
    answer = subprocess.run([os.path.basename(program), option], executable=program, env=environment,
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60,
                            check=False)
    return answer.stdout.decode() if answer.returncode == 0 else None


def list_rows(lines):
    """Rows of "  TERM   text", whose texts may go on in lines that are indented further."""
    rows = []
    for line in lines:
        row = re.match(r"  (\S.*?)(?:   *(\S.*))?$", line)
        if row and not line.startswith("   "):
            rows.append(Row(row.group(1), row.group(2) or ""))
        elif rows:
            rows[-1].text = f"{rows[-1].text} {line.strip()}".strip()
    return rows


def read_group(name, lines):
    """Commands have their texts in a column of their own or in the next line; the rest is a note."""
    commands, notes = [], []
    for index, line in enumerate(lines):
        following = lines[index + 1] if index + 1 < len(lines) else ""
        row = re.match(r"  (\S.*?)   *(\S.*)$", line)
        if line.startswith("     ") and commands:
            commands[-1].text += " " + line.strip()
        elif row:
            commands.append(Command(row.group(1), row.group(2)))
        elif following.startswith("     "):
            commands.append(Command(line.strip(), ""))
        else:
            notes.append(line.strip())
    for command in commands:
        command.text = command.text.strip()
    return Group(name, commands, [" ".join(notes)] if notes else [])


def take_usage(result, block):
    """The block that begins with "Usage:": a group of commands, or the program's own usage."""
    first = block[0][len("Usage:"):].strip()
    group = re.fullmatch(re.escape(result.name) + r" (\w+) COMMAND", first)
    if group:
        result.groups.append(read_group(group.group(1), block[1:]))
        return
    result.usages.append(first)
    for line in block[1:]:
        if line.startswith("       "):
            result.usages.append(line.strip())
        else:
            result.paragraphs.append(line.strip())


def parse(name, text):
    result = ProgramHelp(name)
    for block in (part.splitlines() for part in re.split(r"\n\s*\n", text.strip("\n"))):
        if block[0].startswith("Usage:"):
            take_usage(result, block)
        elif block[0] in ("Options:", "Arguments:", "Environment:"):
            target = {"O": result.options, "A": result.arguments, "E": result.variables}[block[0][0]]
            target.extend(list_rows(block[1:]))
        elif block[0].startswith("  -"):
            result.options.extend(list_rows(block))
        else:
            result.paragraphs.append(" ".join(line.strip() for line in block))
    return result


def without_repetition(rows):
    """Each option once, for completions: components list those of other components, too."""
    seen, result = set(), []
    for row in rows:
        if not seen.issuperset(row.names):
            result.append(row)
        seen.update(row.names)
    return result


def read_help(program):
    """The help of the program with that path; fails when it prints none."""
    name = os.path.basename(program)
    text = printed(program, "--help")
    if not text:
        raise RuntimeError(f"{program} --help prints no help")
    result = parse(name, text)
    if not result.usages or not result.options:
        raise RuntimeError(f"{program} --help: no usage or no options were found in\n{text}")
    everything = printed(program, "--help-all")
    if everything:
        known = {row.term for row in result.options}
        result.window_options = [row for row in parse(name, everything).options if row.term not in known]
    return result
