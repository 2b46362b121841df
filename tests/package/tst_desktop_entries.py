#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs what desktops read, and lets their own tools judge it."""
import glob
import os
import re
import subprocess
import unittest
import xml.etree.ElementTree

prefix = os.path.join(os.environ["TMPDIR"], "prefix")
share = os.path.join(prefix, "share")
programs = {"kestdesk", "cadkest", "editkest", "postkest"}


def run(*command):
    """What the command prints; fails when the command does."""
    environment = {**os.environ, "XDG_DATA_DIRS": f"{share}:/usr/share", "XDG_DATA_HOME": prefix}
    answer = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            env=environment, text=True, check=False)
    if answer.returncode != 0:
        raise AssertionError(f"{' '.join(command)}: {answer.returncode}\n{answer.stdout}")
    return answer.stdout


def setUpModule():
    run("cmake", "--install", os.environ["BUILD_DIRECTORY"], "--prefix", prefix)


def entries(program):
    with open(f"{share}/applications/{program}.desktop", encoding="utf-8") as file:
        return dict(re.findall(r"^([\w\[\]]+)=(.*)$", file.read(), re.M))


class DesktopEntries(unittest.TestCase):

    def test_are_valid(self):
        for program in programs:
            self.assertEqual(run("desktop-file-validate", f"{share}/applications/{program}.desktop"), "")

    def test_start_programs_that_are_installed(self):
        for program in programs:
            self.assertEqual(entries(program)["Exec"].split()[0], program)
            self.assertTrue(os.access(f"{prefix}/bin/{program}", os.X_OK))

    def test_are_also_in_german(self):
        for program in programs:
            rows = entries(program)
            for key in ("GenericName", "Comment", "Keywords"):
                self.assertNotEqual(rows[f"{key}[de]"], rows[key])

    def test_have_icons(self):
        icons = f"{share}/icons/hicolor/scalable"
        names = [f"{icons}/apps/{entries(program)['Icon']}.svg" for program in programs]
        for name in [*names, f"{icons}/mimetypes/text-x-nec-deck.svg"]:
            picture = xml.etree.ElementTree.parse(name).getroot()
            self.assertEqual(picture.tag, "{http://www.w3.org/2000/svg}svg")
            with open(name, encoding="utf-8") as file:
                self.assertNotIn("currentColor", file.read(), "desktops have no such colour")


class Models(unittest.TestCase):

    def test_are_known_by_their_names(self):
        run("update-mime-database", f"{share}/mime")
        with open(f"{share}/mime/globs2", encoding="utf-8") as file:
            self.assertIn("50:text/x-nec-deck:*.nec\n", file.readlines())
        with open(f"{share}/mime/subclasses", encoding="utf-8") as file:
            self.assertIn("text/x-nec-deck text/plain\n", file.readlines())

    def test_are_opened_by_the_applications(self):
        for program in programs - {"postkest"}:
            self.assertIn("text/x-nec-deck", entries(program)["MimeType"].split(";"))


class Descriptions(unittest.TestCase):

    def test_are_valid(self):
        descriptions = glob.glob(f"{share}/metainfo/*.xml")
        self.assertEqual(len(descriptions), len(programs))
        for description in descriptions:
            run("appstreamcli", "validate", "--no-net", "--pedantic", description)

    def test_belong_to_desktop_entries(self):
        run("appstreamcli", "validate-tree", "--no-net", prefix)
        for program in programs:
            root = xml.etree.ElementTree.parse(f"{share}/metainfo/org.example.{program}.metainfo.xml").getroot()
            self.assertTrue(os.path.exists(f"{share}/applications/{root.findtext('launchable')}"))


if __name__ == "__main__":
    unittest.main()
