#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the commands that the pages show, on the sample installation.

    tst_commands.py SOURCES BUILD PROGRAM_FOLDER...

Each command of a page has a row in one of the tables below; a row without a command is an error, too.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import page_commands  # noqa: E402

longest_command = 100  # seconds

# From a folder of its own: CTest writes a log of each call into the folder that it is called for, in place
# of the log of the call that runs this test.
listing = ("mkdir listing; echo 'subdirs(\"BUILD\")' > listing/CTestTestfile.cmake; "
           "ctest --test-dir listing -N")

# What is run in place of a command, a line each, with the exit codes that are right; for a command that
# can be run as it stands, its exit codes alone. The placeholders: MODEL, SOURCES, BUILD.
GOOD = {0}
RUN = {
    "kestdesk --non-interactive [--component runkest|prekest|optkest|amrkest] [--parallel] [--remote] "
    "[--farm-out] [--jobs N] [--json] MODEL...": [
        ("kestdesk --non-interactive --component prekest MODEL", GOOD),
        ("kestdesk --non-interactive --component prekest --jobs 2 --json MODEL my.nec", GOOD)],
    "kestdesk --non-interactive [--component NAME] MODEL...": [
        ("kestdesk --non-interactive MODEL", GOOD),
        ("kestdesk --non-interactive --component prekest MODEL my.nec", GOOD)],
    "kestdesk options list": GOOD,
    "kestdesk options get Kest.ProcessPriority": GOOD,
    "kestdesk options set Kest.ProcessPriority=3 RunParallel=true": GOOD,
    "kestdesk options set Kest.ProcessPriority=LowProcessPriority RunParallel=true": GOOD,
    "kestdesk options set --wait 60 RunParallel=true": GOOD,
    "kestdesk options values Kest.ProcessPriority": GOOD,
    "kestdesk options restore": GOOD,
    "kestdesk machines show [--json]": [
        ("kestdesk machines show", {1}),  # the file of a new installation lists no host
        ("kestdesk machines use-local; kestdesk machines show", GOOD),
        ("kestdesk machines show --json", GOOD)],
    "kestdesk machines check [--timeout SECONDS]": [
        ("kestdesk machines use-local; kestdesk machines check --timeout 20", GOOD)],
    "kestdesk machines edit": [("kestdesk machines use-local; EDITOR=true kestdesk machines edit", GOOD)],
    "kestdesk machines use-local [--replace]": [
        ("kestdesk machines use-local", GOOD),
        ("echo node1:8 > user/machines.kest; kestdesk machines use-local", {1}),
        ("kestdesk machines use-local --replace && grep -q '^#.*node1:8' user/machines.kest", GOOD)],
    "kestdesk runs list": GOOD,
    "kestdesk runs list [--json] [--model NAME] [--state WORD] [--last N]": [
        ("kestdesk runs list --json --model 'dip*' --state valid --last 1", GOOD)],
    "kestdesk runs show [NUMBER]": [("kestdesk runs show", GOOD), ("kestdesk runs show 1", GOOD),
                                    ("kestdesk runs show 99", {1})],
    "kestdesk runs show [--json] [--messages] [--output] [NUMBER]": [
        ("kestdesk runs show --json --messages 1", GOOD), ("kestdesk runs show --output last", GOOD)],
    "kestdesk runs again NUMBER": [("kestdesk runs again 1", GOOD)],
    "kestdesk runs again [--json] [--resume] [--without HOST] NUMBER": [("kestdesk runs again --json 1", GOOD)],
    "kestdesk runs compare NUMBER NUMBER": [("kestdesk runs compare 1 2", GOOD)],
    "kestdesk runs compare [--json] NUMBER NUMBER": [("kestdesk runs compare --json 1 2", GOOD)],
    "kestdesk runs export NUMBER FILE.zip": [("kestdesk runs export 1 run.zip && test -s run.zip", GOOD)],
    "kestdesk runs export [--megabytes N] NUMBER FILE.zip": [
        ("kestdesk runs export --megabytes 1 1 run.zip && test -s run.zip", GOOD)],
    "kestdesk runs clean": GOOD,
    "kestdesk runs clean [--days N] [--megabytes N] [--all] [NUMBER...]": [
        ("kestdesk runs clean --days 1 --megabytes 1", GOOD), ("kestdesk runs clean 1", GOOD),
        ("kestdesk runs clean --all", GOOD)],
    "kestdesk --non-interactive --parallel antenna.nec": [
        ("kestdesk machines use-local; cp MODEL antenna.nec; "
         "kestdesk --non-interactive --parallel antenna.nec", GOOD)],
    "kestmark check [--remarks] [--json] [FILE|-]": [
        ("prekest MODEL | kestmark check", GOOD), ("prekest MODEL | kestmark check --json -", GOOD),
        ("prekest MODEL > a.log; kestmark check --remarks a.log", GOOD)],
    "runkest dipole.nec | kestmark check": GOOD,
    "runkest dipole.nec > dipole.log; kestmark check --remarks dipole.log": GOOD,
    "cadkest --non-interactive MODEL": [("cadkest --non-interactive MODEL", GOOD)],
    "editkest --non-interactive MODEL...": [("editkest --non-interactive MODEL my.nec", GOOD)],
    "postkest --non-interactive RESULT.csv... [--output FILE] [--size WIDTHxHEIGHT]": [
        ("runkest MODEL && postkest --non-interactive dipole.csv --output a.svg --size 640x480 && "
         "test -s a.svg", GOOD)],
    "ctest --preset dev -R '^tst_runkest$'": [
        (listing + " -R '^tst_runkest$' | grep -q 'Total Tests: 1$'", GOOD)],
    "ctest --preset dev -L unit": [
        (listing + " -L unit | grep -q 'Total Tests: [1-9]'", GOOD)],
    "build/dev/tests/process/tst_common_LineBuffer cutsLongLines": [
        ("BUILD/tests/process/tst_common_LineBuffer cutsLongLines", GOOD)],
}

# Commands that are not run, with the reason.
whole = "builds or tests the whole project, as this test is a part of"
long = "takes minutes or hours"
cross = "needs the libraries for Windows, which take a while to build"
window = "opens a window and waits for its user; tst_welcome_panel and others start the window"
NOT_RUN = {
    "./run": whole,
    "./run my.nec": whole,
    "./check": whole,
    "./check --full": whole,
    "cmake --preset release && cmake --build --preset release": whole,
    "cmake --preset dev && cmake --build --preset dev": whole,
    "cmake --install build/release --prefix /where/you/like": "tst_package installs",
    "cmake -S minimal -B build -DCMAKE_PREFIX_PATH=/where/the/library/is": "tst_examples builds it",
    "cmake --build build": "tst_examples builds it",
    "ctest --preset dev": whole,
    "ctest --preset full": whole,
    "ctest --preset asan": whole,
    "kestdesk [--component runkest|prekest|optkest|amrkest] [MODEL...]": window,
    "kestdesk runs again --resume NUMBER": "needs a run that was stopped; the tests of runs have one",
    "kestdesk runs again --without HOST NUMBER": "needs a run over hosts; the tests of runs have one",
    "clang-format -i FILE...": "./check runs it on all sources, and nothing else here needs it",
    "scripts/faults": long,
    "scripts/memcheck": long,
    "scripts/check-strange": long,
    "scripts/fuzz 60": long,
    "scripts/soak": long,
    "scripts/make-packages": "tst_debian_packages makes the packages",
    "scripts/try-packages": long,
    "scripts/translations": "the test of the translations runs its checks; the sources stay as they are",
    "scripts/translations --drop": "the test of the translations runs its checks; the sources stay as they are",
    "scripts/translations --check": "the test of the translations runs it",
    "cmake --preset windows": cross,
    "cmake --build --preset windows": cross,
    "cmake --build --preset windows --target kest_tests": cross,
    "ctest --preset windows -R tst_EnvironmentVariable": cross,
    "scripts/lint tidy": long,
    "scripts/lint clazy": long,
    "scripts/docs": "the test docs runs its checks; the site needs doxygen",
    "benchmarks/run-all": long,
    "benchmarks/run-all bench_runner": long,
    "runkest was ended by SIGKILL (signal 9): usually the system ran out of memory, or an administrator":
        "is what a program prints",
}

sources, build, *program_folders = [os.path.realpath(word) for word in sys.argv[1:]]


class Commands(unittest.TestCase):
    """Each command is run in a folder of its own, with two recorded runs."""

    @classmethod
    def setUpClass(cls):
        cls.shown = page_commands.commands_of(sources)
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prepared = os.path.join(folder.name, "prepared")
        os.makedirs(os.path.join(cls.prepared, "user"))
        for name in ("dipole.nec", "my.nec"):
            shutil.copy(os.path.join(build, "suite", "models", "dipole.nec"),
                        os.path.join(cls.prepared, name))
        for _ in range(2):
            run = cls.run_in(cls.prepared, "kestdesk --non-interactive --component prekest dipole.nec")
            assert run.returncode == 0, run.stderr

    @classmethod
    def run_in(cls, folder, command):
        for placeholder, text in (("MODEL", "dipole.nec"), ("SOURCES", sources), ("BUILD", build)):
            command = command.replace(placeholder, text)
        environment = dict(
            os.environ, KEST_HOME=os.path.join(build, "suite"), KEST_USER_HOME=os.path.join(folder, "user"),
            QT_QPA_PLATFORM="offscreen",
            PATH=os.pathsep.join(program_folders + [os.environ["PATH"]]))
        return subprocess.run(["bash", "-o", "pipefail", "-c", command], cwd=folder, env=environment,
                              text=True, stdin=subprocess.DEVNULL, capture_output=True,
                              timeout=longest_command, check=False)

    def test_each_command_has_a_row(self):
        for command, pages in self.shown.items():
            with self.subTest(command):
                self.assertEqual((command in RUN) + (command in NOT_RUN), 1,
                                 f"{', '.join(pages)}: no test runs \"{command}\"")

    def test_each_row_has_a_command(self):
        for command in [*RUN, *NOT_RUN]:
            with self.subTest(command):
                self.assertIn(command, self.shown)

    def test_commands_do_what_they_should(self):
        for command, what in RUN.items():
            # Later lines of a row go on where the ones before have ended.
            folder = tempfile.TemporaryDirectory()
            self.addCleanup(folder.cleanup)
            shutil.copytree(self.prepared, folder.name, dirs_exist_ok=True)
            for actual, codes in [(command, what)] if isinstance(what, set) else what:
                with self.subTest(actual):
                    run = self.run_in(folder.name, actual)
                    self.assertIn(run.returncode, codes, f"{actual}\n{run.stdout[-500:]}\n{run.stderr}")


class Pages(unittest.TestCase):
    """What is a command on a page."""

    def test_commands_are_found(self):
        text = ("kestdesk no\n\n```\nkestdesk a   b  # c\n./run\nother\n```\n```cpp\nkestdesk no\n```\n"
                "    kestmark check\n\n```sh\nkestdesk x\n         y\n```\n- kestdesk no\n")
        self.assertEqual(list(page_commands.commands_in(text)),
                         ["kestdesk a b", "./run", "kestmark check", "kestdesk x y"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
