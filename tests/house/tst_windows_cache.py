#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Two builds of the libraries for Windows in one cache folder: the second waits for the first."""
import fcntl
import os
import subprocess
import tempfile
import unittest

root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
taking = "source scripts/windows/sources.sh; read_cache_options --cache \"$1\"; lock_cache; echo taken"
patience = 30  # seconds


def start(folder):
    return subprocess.Popen(["bash", "-c", taking, "bash", folder], cwd=root, stdout=subprocess.PIPE, text=True)


class WindowsCache(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_a_free_folder_is_taken_at_once(self):
        output, _ = start(self.folder).communicate(timeout=patience)
        self.assertEqual(output, "taken\n")

    def test_a_second_build_says_so_and_waits(self):
        with open(os.path.join(self.folder, "lock"), "w", encoding="utf-8") as first:
            fcntl.flock(first, fcntl.LOCK_EX)
            second = start(self.folder)
            self.assertEqual(second.stdout.readline(),
                             f"Another build uses {os.path.realpath(self.folder)}: waiting until it has ended\n")
            with self.assertRaises(subprocess.TimeoutExpired):
                second.wait(timeout=0.5)
        output, _ = second.communicate(timeout=patience)
        self.assertEqual(output, "taken\n")

    def test_each_build_takes_the_lock_before_it_looks_at_the_folder(self):
        for script in ("build-qt", "build-libraries"):
            with open(os.path.join(root, "scripts", "windows", script), encoding="utf-8") as file:
                text = file.read()
            self.assertIn("\nlock_cache\n", text)
            self.assertLess(text.index("\nlock_cache\n"), text.index("kest-stamp"), script)


if __name__ == "__main__":
    unittest.main()
