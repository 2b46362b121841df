#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the manual pages and the completions for shells with what the programs print for --help-all."""
import glob
import os
import re
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.environ["SCRIPTS"])
import completions  # noqa: E402
import manual_page  # noqa: E402
import program_help  # noqa: E402

made = os.environ["HELP_DIRECTORY"]
hand_written = {"kestdesk": os.environ["KESTDESK_COMPLETION"]}
programs = {os.path.basename(path): path for path in os.environ["PROGRAMS"].split(",")}


def run(*command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True, check=True)


def shown_text(program):
    """The help, all of it where there is more."""
    return program_help.printed(programs[program], "--help-all") or program_help.printed(programs[program], "--help")


def shown_options(program):
    """The options that the help shows, read without the code that is tested."""
    options = set()
    for line in shown_text(program).splitlines():
        match = re.match(r"  (-[\w-]+)(?:, (-[\w-]+))?", line)
        options.update(filter(None, match.groups()) if match else ())
    return options


def shown_commands(program):
    """Group, command and options of what kestdesk calls by words, read without the code that is tested."""
    commands, group = [], None
    for line in shown_text(program).splitlines():
        usage = re.match(rf"Usage: {program} (\w+) COMMAND", line)
        group = usage.group(1) if usage else group
        match = re.fullmatch(r"  ([a-z-]+)((?: [\[A-Z].*?)?)(?:   *\S.*)?", line)
        if group and match:
            commands.append((group, match.group(1), re.findall(r"--[\w-]+", match.group(2))))
    return commands


def bash_completions(program, *words):
    path = hand_written.get(program, f"{made}/{program}.bash")
    script = (f'source "{path}"; compopt() {{ :; }}; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
              f'_{program}; printf "%s\\n" "${{COMPREPLY[@]}}"')
    return set(run("bash", "--norc", "-c", script, "bash", programs[program], *words).stdout.split())


def zsh_arguments(program, *words):
    """What the completion hands to zsh's functions: a word in a line each."""
    script = ('_arguments() { print -rl -- "$@" }; _describe() { print -rl -- ${(P)2} }; words=("$@"); '
              f'CURRENT=$#; complete_now() {{ source "{made}/_{program}" }}; complete_now')
    return run("zsh", "-f", "-c", script, "zsh", program, *words).stdout.splitlines()


def zsh_options(program, *words):
    found = (re.match(r"(-[\w-]+)", word) for word in zsh_arguments(program, *words))
    return {match.group(1) for match in found if match}


def fish_completions(program, line):
    path = f"{made}/{program}.fish"
    script = f"complete -e {program}; source {path}; complete -C '{program} {line}'"
    return {answer.split("\t")[0] for answer in run("fish", "--no-config", "-c", script).stdout.splitlines()}


class ManualPages(unittest.TestCase):

    def test_say_all_that_the_help_says(self):
        for program in programs:
            with self.subTest(program):
                page = run("man", "--local-file", "--encoding=utf8", f"{made}/{program}.1").stdout
                words = set(re.findall(r"[-\w]+", re.sub(r"‐\n\s*", "", page).replace("‐", "-")))
                missing = [word for word in re.findall(r"[-\w]+", re.sub(r"\S*/", "", shown_text(program)))
                           if word not in words and word not in ("Usage", "Options", "Arguments", "Environment")]
                self.assertEqual(missing, [])

    def test_have_no_mistakes(self):
        for program in programs:
            with self.subTest(program):
                warnings = run("groff", "-man", "-ww", "-z", "-Tutf8", f"{made}/{program}.1").stderr
                self.assertEqual(warnings, "")

    def test_keep_characters_that_mean_something_to_roff(self):
        page = manual_page.manual_page(
            program_help.parse("tool", "Usage: tool [options]\n.begin 'a' \\n ~x^ --now\n\nOptions:\n  --on  On."),
            "a tool", "1.0", "2026-01-01", ["tool", "other"])
        path = os.path.join(os.environ["TMPDIR"], "tool.1")
        with open(path, "w", encoding="utf-8") as file:
            file.write(page)
        shown = run("man", "--local-file", path).stdout
        self.assertIn(".begin 'a' \\n ~x^ --now", shown)


class Completions(unittest.TestCase):

    def test_bash_knows_each_option(self):
        for program in programs:
            for option in shown_options(program):
                if option.startswith("--"):
                    with self.subTest(program, option=option):
                        self.assertIn(option, bash_completions(program, option))

    def test_bash_offers_nothing_else(self):
        for program in programs:
            with self.subTest(program):
                offered = bash_completions(program, "-")
                self.assertGreater(len(offered), 2)
                self.assertLessEqual(offered, shown_options(program))

    def test_zsh_knows_the_options(self):
        for program in programs:
            with self.subTest(program):
                self.assertEqual(zsh_options(program, "-"), shown_options(program))

    def test_fish_knows_the_options(self):
        for program in programs:
            with self.subTest(program):
                expected = {option for option in shown_options(program) if option.startswith("--")}
                offered = {option for option in fish_completions(program, "--") if option.startswith("--")}
                self.assertEqual(offered, expected)
                short = fish_completions(program, "-")
                self.assertLessEqual(shown_options(program), short)

    def test_commands_and_their_options_are_known(self):
        commands = shown_commands("kestdesk")
        self.assertIn(("runs", "list", ["--json", "--model", "--state", "--last"]), commands)
        self.assertGreater(len(commands), 14)
        for group, command, options in commands:
            with self.subTest(f"kestdesk {group} {command}"):
                self.assertIn(command, bash_completions("kestdesk", group, ""))
                self.assertIn(command, [line.split(":")[0] for line in zsh_arguments("kestdesk", group, "")])
                self.assertIn(command, fish_completions("kestdesk", f"{group} "))
                self.assertEqual(zsh_options("kestdesk", group, command, "-"), set(options))
                for option in options:
                    self.assertIn(option, bash_completions("kestdesk", group, command, option))
                    self.assertIn(option, fish_completions("kestdesk", f"{group} {command} --"))

    def test_words_and_files_are_offered(self):
        folder = os.path.join(os.environ["TMPDIR"], "files")
        os.makedirs(os.path.join(folder, "models"))
        for name in ("dipole.nec", "dipole.out"):
            with open(os.path.join(folder, name), "w", encoding="utf-8"):
                pass
        os.chdir(folder)
        self.assertEqual(bash_completions("cadkest", ""), {"dipole.nec", "models"})
        self.assertEqual(bash_completions("cadkest", "--palette", "="), {"light", "dark"})
        self.assertEqual(bash_completions("cadkest", "--output", "dipole.o"), {"dipole.out"})
        self.assertEqual(bash_completions("cadkest", "--size", ""), set())
        self.assertIn("dipole.nec", fish_completions("runkest", ""))
        self.assertEqual(fish_completions("kestdesk", "--component "), {"amrkest", "optkest", "prekest", "runkest"})
        self.assertIn("--component=[", "\n".join(zsh_arguments("kestdesk", "-")))
        self.assertIn(":name:(runkest prekest optkest amrkest)", "\n".join(zsh_arguments("kestdesk", "-")))


class Reading(unittest.TestCase):

    def test_a_program_without_help_is_refused(self):
        program = os.path.join(os.environ["TMPDIR"], "program")
        for line in ("exit 1", "echo I am no help", "true"):
            with open(program, "w", encoding="utf-8") as file:
                file.write(f"#!/bin/sh\n{line}\n")
            os.chmod(program, 0o755)
            with self.assertRaises(RuntimeError):
                program_help.read_help(program)

    def test_words_of_an_option_are_those_behind_a_colon(self):
        row = program_help.Row("--palette <name>", "Colours: light (default) or dark.")
        self.assertEqual((row.names, row.value, row.words), (["--palette"], "name", ["light", "dark"]))
        self.assertEqual(program_help.Row("--output <file>", "The file: .png, or .svg.").words, [])

    def test_quotes_survive(self):
        self.assertEqual(run("sh", "-c", "printf %s " + completions.quoted("it's \"$HOME\"")).stdout, "it's \"$HOME\"")

    def test_every_page_belongs_to_a_program(self):
        self.assertEqual({os.path.basename(path)[:-2] for path in glob.glob(f"{made}/*.1")}, set(programs))


if __name__ == "__main__":
    unittest.main()
