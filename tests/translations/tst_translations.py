#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks the translations of a small tree, and sees scripts/translations name each mistake."""
import contextlib
import importlib.machinery
import importlib.util
import io
import os
import sys
import tempfile
import unittest

lupdate = sys.argv.pop(1)
script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "translations")
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("translations", script)
translations = importlib.util.module_from_spec(importlib.util.spec_from_loader("translations", loader))
loader.exec_module(translations)

source = """class Window : public QObject
{
    Q_OBJECT
    void show() { setTitle(tr("Open &file...")); setText(tr("\\"%1\\" of %2:\\n<a href=\\"x\\">all</a>")); }
};
"""
file_name = "apps/desk/translations/desk_de.ts"
file = """<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Window</name>
    <message>
        <source>Open &amp;file...</source>
        <translation>&amp;Datei öffnen …</translation>
    </message>
    <message>
        <source>&quot;%1&quot; of %2:
&lt;a href=&quot;x&quot;&gt;all&lt;/a&gt;</source>
        <translation>„%1“ von %2:
&lt;a href=&quot;x&quot;&gt;alle&lt;/a&gt;</translation>
    </message>
</context>
</TS>
"""


class Translations(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = folder.name
        self.write("apps/desk/window/Window.cpp", source)
        self.write(file_name, file)

    def write(self, path, text):
        path = os.path.join(self.tree, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as out:
            out.write(text)

    def read(self):
        with open(os.path.join(self.tree, file_name), encoding="utf-8") as translated:
            return translated.read()

    def call(self, *words):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = translations.main([*words, "--lupdate", lupdate, "--tree", self.tree])
        return code, output.getvalue()

    def break_file(self, old, new):
        self.assertIn(old, file)
        self.write(file_name, file.replace(old, new))

    def assert_problem(self, problem):
        code, output = self.call("--check")
        self.assertEqual(code, 1, output)
        self.assertIn(file_name + ': Window: "', output)
        self.assertIn('" ' + problem + "\n", output)

    def test_a_complete_translation_passes(self):
        self.assertEqual(self.call("--check"), (0, ""))

    def test_checking_changes_nothing(self):
        self.write("apps/desk/window/Window.cpp", source.replace("Open &file", "Load &file"))
        self.call("--check")
        self.assertEqual(self.read(), file)

    def test_finds_a_new_text(self):
        self.write("apps/desk/window/Window.cpp", source.replace("Open &file", "Load &file"))
        self.assert_problem("is missing")
        self.assert_problem("is in no source")

    def test_adds_a_new_text_as_unfinished_and_keeps_the_old_one(self):
        self.write("apps/desk/window/Window.cpp", source.replace("Open &file", "Load some &file"))
        self.assertEqual(self.call(), (0, ""))
        self.assertIn("<source>Load some &amp;file...</source>", self.read())
        self.assertIn("&amp;Datei öffnen …", self.read())
        self.assert_problem("is not finished")

    def test_drops_what_no_source_has(self):
        self.write("apps/desk/window/Window.cpp", source.replace('tr("Open &file...")', '""'))
        self.call()
        self.assert_problem("is in no source")
        self.call("--drop")
        self.assertNotIn("Open", self.read())
        self.assertEqual(self.call("--check"), (0, ""))

    def test_finds_mistakes(self):
        for old, new, problem in [
            ("&amp;Datei öffnen …", "", "is not translated"),
            ("„%1“ von %2:", "%2:", "has other placeholders"),
            ("„%1“ von %2:", "„%1“ von %1:", "has other placeholders"),
            ("„%1“ von %2:\n", "„%1“ von %2: ", "has other line ends"),
            ("&amp;Datei öffnen …", "Datei öffnen …", "has another number of accelerators"),
            ("&amp;Datei öffnen …", "&amp;Datei &amp;öffnen …", "has another number of accelerators"),
            ("&amp;Datei öffnen …", "&amp;&amp;Datei öffnen …", "has another number of accelerators"),
            ("&amp;Datei öffnen …", "&amp;Datei öffnen", 'ends with "" and not with "…"'),
            ("&amp;Datei öffnen …", " &amp;Datei öffnen …", "has other blanks at the beginning"),
            ("&amp;Datei öffnen …", "&amp;Datei\töffnen …", "has other tabulators"),
            ("„%1“", "&quot;%1&quot;", "has English quotation marks"),
            ("<translation>&", '<translation type="unfinished">&', "is not finished"),
        ]:
            with self.subTest(problem, new=new):
                self.break_file(old, new)
                self.assert_problem(problem)

    def test_names_a_missing_program(self):
        errors = io.StringIO()
        with contextlib.redirect_stderr(errors):
            code = translations.main(["--check", "--lupdate", "no-such-program", "--tree", self.tree])
        self.assertEqual(code, 2)
        self.assertIn("no-such-program is missing", errors.getvalue())


if __name__ == "__main__":
    unittest.main()
