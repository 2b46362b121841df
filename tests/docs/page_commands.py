"""The commands that the pages of a tree show, in fenced and in indented blocks."""
import glob
import os
import re

programs = re.compile(
    r"(?:\./(?:run|check)|kest(?:desk|mark)|cadkest|postkest|editkest|runkest|prekest|optkest|amrkest|"
    r"cmake|ctest|clang-format|scripts/[\w-]+|benchmarks/[\w-]+|build/\S+)(?= |$)")


def pages_of(tree):
    names = ["README.md", "DEVELOPERS.md", "samples/suite/README.md"]
    return names + sorted(os.path.relpath(path, tree) for pattern in ("docs/*.md", "docs/help/*.md")
                          for path in glob.glob(os.path.join(tree, pattern)))


def code_lines(text):
    """The lines of blocks without a language or with that of the shell."""
    fence = None
    for line in text.splitlines():
        if line.startswith("```"):
            fence = None if fence is not None else line[3:].strip()
        elif fence in ("", "sh", "bash"):
            yield line
        elif fence is None and line.startswith("    "):
            yield line[4:]


def joined(lines):
    """A line that is indented continues the one before, and so does one behind a backslash."""
    result = []
    for line in lines:
        if result and (result[-1].endswith("\\") or (line.startswith("  ") and line.strip())):
            result[-1] = result[-1].rstrip("\\").rstrip() + " " + line.strip()
        else:
            result.append(line)
    return result


def commands_in(text):
    for line in joined(code_lines(text)):
        command = re.sub(r"\s+# .*$|\s+#$", "", line).strip()
        if programs.match(command):
            yield re.sub(r"\s+", " ", command)


def commands_of(tree):
    """The pages on which each command stands."""
    result = {}
    for page in pages_of(tree):
        with open(os.path.join(tree, page), encoding="utf-8") as file:
            for command in commands_in(file.read()):
                result.setdefault(command, []).append(page)
    return result
