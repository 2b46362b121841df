#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs ./run and ./check where packages are missing, on a terminal and without one, with programs that
only pretend to install."""
import os
import pty
import re
import select
import shutil
import subprocess
import time
import unittest

tree = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
place = os.path.join(os.environ["TMPDIR"], "tree")
programs = os.path.join(os.environ["TMPDIR"], "programs")
log = os.path.join(os.environ["TMPDIR"], "log")

# What is installed is a file in the folder "installed". The build ends at once, and fails.
fakes = {
    "dpkg-query": f"""[ -e "{place}/installed/${{@: -1}}" ] && echo -n installed""",
    "apt-get": f"""echo "$*" >>"{log}"; case "$*" in *install*) touch "{place}/installed/libzip-dev" ;; esac""",
    "cmake": f"""echo "cmake $*" >>"{log}"; exit 1""",
    "clang-format": "exit 0",
    "id": "echo 0",
}
seconds = 60


def setUpModule():
    os.makedirs(os.path.join(place, "scripts"))
    os.makedirs(programs)
    for name in ("run", "check", "scripts/packages.sh"):
        shutil.copy(os.path.join(tree, name), os.path.join(place, name))
    for folder in "platform foundation include src suite apps samples examples tests benchmarks fuzz".split():
        os.makedirs(os.path.join(place, folder))
    with open(os.path.join(place, "src", "one.cpp"), "w", encoding="utf-8"):
        pass
    for name, script in fakes.items():
        path = os.path.join(programs, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/bash\n{script}\n")
        os.chmod(path, 0o755)


def environment(**variables):
    return {"PATH": f"{programs}:/usr/bin:/bin", "HOME": os.environ["HOME"], **variables}


def output_of(terminal, process, until):
    """What arrives until the text does, or the end."""
    text, deadline = b"", time.monotonic() + seconds
    while until is None or until not in text:
        if not select.select([terminal], [], [], max(0, deadline - time.monotonic()))[0]:
            process.kill()
            raise AssertionError(f"nothing more than {text} in {seconds} s")
        try:
            piece = os.read(terminal, 4096)
        except OSError:  # the other end is closed
            break
        if not piece:
            break
        text += piece
    return text


def on_terminal(*command, answer=None, **variables):
    """Exit code and output; the answer is typed when the question is there."""
    here, there = pty.openpty()
    process = subprocess.Popen(command, cwd=place, env=environment(**variables), stdin=there, stdout=there,
                               stderr=there, start_new_session=True)
    os.close(there)
    text = b""
    if answer is not None:
        text = output_of(here, process, b"[Y/n] ")
        os.write(here, answer)
    text += output_of(here, process, None)
    process.wait()
    os.close(here)
    return process.returncode, text.decode()


def without_terminal(*command, **variables):
    answer = subprocess.run(command, cwd=place, env=environment(**variables), stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=seconds, check=False)
    return answer.returncode, answer.stdout


def installed():
    """What apt-get was asked to install, a line each time."""
    lines = logged().splitlines()
    return [line.split(" install ")[1] for line in lines if " install " in line]


def logged():
    if not os.path.exists(log):
        return ""
    with open(log, encoding="utf-8") as file:
        return file.read()


class Installing(unittest.TestCase):

    def setUp(self):
        """All is there but libzip-dev."""
        if os.path.exists(log):
            os.remove(log)
        shutil.rmtree(os.path.join(place, "installed"), ignore_errors=True)
        shutil.rmtree(os.path.join(place, "build"), ignore_errors=True)
        os.makedirs(os.path.join(place, "installed"))
        words = set()
        for name in ("check", "scripts/packages.sh"):
            with open(os.path.join(place, name), encoding="utf-8") as file:
                words.update(re.findall(r"[a-z][a-z0-9.+-]+", file.read()))
        for word in words - {"libzip-dev"}:
            with open(os.path.join(place, "installed", word), "w", encoding="utf-8"):
                pass

    def test_goes_on_after_a_yes(self):
        for answer in (b"\n", b"y\n", b"Yes\n"):
            for program in ("./run", "./check"):
                with self.subTest(program, answer=answer):
                    self.setUp()
                    _, text = on_terminal(program, answer=answer)
                    self.assertIn("These packages are missing: libzip-dev", text)
                    self.assertEqual(installed(), ["libzip-dev"])
                    self.assertIn("cmake", logged(), text)

    def test_ends_after_a_no(self):
        for answer in (b"n\n", b"No\n", b"\x04"):
            for program in ("./run", "./check"):
                with self.subTest(program, answer=answer):
                    code, text = on_terminal(program, answer=answer)
                    self.assertEqual(code, 1)
                    self.assertIn("apt-get install libzip-dev", text)
                    self.assertEqual(logged(), "")

    def test_asks_again_after_another_word(self):
        code, text = on_terminal("./run", answer=b"perhaps\nn\n")
        self.assertEqual((code, text.count("[Y/n]"), logged()), (1, 2, ""))

    def test_does_not_ask_when_all_is_there(self):
        with open(os.path.join(place, "installed", "libzip-dev"), "w", encoding="utf-8"):
            pass
        for program in ("./run", "./check"):
            _, text = on_terminal(program)
            self.assertNotIn("[Y/n]", text)
        self.assertEqual(installed(), [])
        self.assertIn("cmake", logged())

    def test_does_not_ask_with_yes(self):
        for command in (["./run", "--yes"], ["./check", "--yes"], ["./check", "--full", "--yes"]):
            with self.subTest(command):
                self.setUp()
                _, text = on_terminal(*command)
                self.assertNotIn("[Y/n]", text)
                self.assertEqual(installed(), ["libzip-dev"])

    def test_does_not_ask_without_a_terminal(self):
        for program in ("./run", "./check"):
            with self.subTest(program):
                self.setUp()
                without_terminal(program)
                self.assertEqual(installed(), ["libzip-dev"])

    def test_does_not_ask_in_continuous_integration(self):
        _, text = on_terminal("./check", CI="true")
        self.assertNotIn("[Y/n]", text)
        self.assertEqual(installed(), ["libzip-dev"])

    def test_unknown_words_are_refused(self):
        code, text = without_terminal("./check", "--ful")
        self.assertEqual((code, logged()), (2, ""))
        self.assertIn("--ful", text)


if __name__ == "__main__":
    unittest.main()
