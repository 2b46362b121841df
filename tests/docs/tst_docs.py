#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks the pages of a small tree, and sees scripts/docs name each mistake."""
import contextlib
import importlib.machinery
import importlib.util
import io
import os
import sys
import tempfile
import unittest

script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "docs")
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("docs", script)
docs = importlib.util.module_from_spec(importlib.util.spec_from_loader("docs", loader))
loader.exec_module(docs)

files = {
    "README.md": "# House\n\nSee [the start](docs/start.md#the-first-start), [web](https://example.org).\n",
    "docs/start.md": "# Start\n\n## The first `start`\n\n```\n[no](link.md)\n```\n",
    "docs/environment.md": "| `KEST_HOME` | it |\n| `VISUAL`, `EDITOR` | editors |\n",
    "docs/settings-files.md": "# Files\n\n<!-- KEYS -->\n<!-- end -->\n\nEnd.\n",
    "samples/suite/data/default.ini": "; all\n[options]\nKest.Priority=2\nKest.Host=\n",
    "docs/help/launch-options.md": "# Options\n\n<!-- OPTIONS -->\n<!-- end -->\n",
    "include/common_LaunchOptionNames.h": 'constexpr const char* priority    = "Kest.Priority"; ///< 2\n'
                                          'constexpr const char* host = "Kest.Host";\n'
                                          'constexpr const char* fixed = "Kest.Fixed";\n',
    "src/settings/option/common_LaunchOptionTable.cpp":
        '{keys::priority, Integer, "Process priority", 2, kept},\n'
        '{keys::host, String, "", 0, kept},\n{keys::fixed, Boolean, "", true, fixed},\n',
    "apps/kestdesk/options/LaunchOptionTable.cpp":
        'constexpr const char* solver = "Kest Solver";\n'
        '{"Kest.Host", solver, QT_TR_NOOP("Remote"), QT_TR_NOOP("&Host"), ""},\n'
        '{"Kest.Priority", solver, "Run", "priorit&y", ""},\n{"Kest.Fixed", solver, "Run", "Fixed", ""},\n',
    "docs/gui-testing.md": "| object | is |\n|---|---|\n| `window` | it |\n"
                           "| `chart0`, `chart1` | charts |\n| `goButton` | goes |\n",
    "apps/base/Window.cpp": 'setObjectName(QStringLiteral("window"));\n'
                            'setObjectName(QStringLiteral("chart%1").arg(number));\nget("noName");\n',
    "apps/base/Buttons.cpp": 'button->setObjectName(QLatin1String(row.name));\n{"goButton", "&Go"},\n'
                             'setProperty("squishValue", 1);\n',
    "apps/base/Home.cpp": 'const auto home = qgetenv("KEST_HOME");\n'
                          'for (const char* const variable : {"VISUAL", "EDITOR"}) {\n}\n',
}


class Docs(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = folder.name
        for path, text in files.items():
            self.write(path, text)
        self.assertEqual(self.call("--write"), (0, ""))

    def write(self, path, text):
        path = os.path.join(self.tree, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def call(self, word):
        errors = io.StringIO()
        with contextlib.redirect_stderr(errors):
            code = docs.main([word, "--tree", self.tree])
        return code, errors.getvalue()

    def assert_error(self, text):
        self.assertEqual(self.call("--check"), (1, text + "\n"))

    def test_good_tree_passes(self):
        self.assertEqual(self.call("--check"), (0, ""))

    def test_missing_page_is_named(self):
        self.write("README.md", "[a](docs/none.md)\n")
        self.assert_error("README.md: there is no docs/none.md")

    def test_missing_heading_is_named(self):
        self.write("README.md", "[a](docs/start.md#last)\n")
        self.assert_error("README.md: there is no heading #last in docs/start.md")

    def test_missing_picture_is_named(self):
        self.write("docs/start.md", "![a](a.png)\n")
        self.write("README.md", "")
        self.assert_error("docs/start.md: there is no a.png")

    def test_new_variables_are_named(self):
        for number, (source, name) in enumerate([
                ('qEnvironmentVariableIsEmpty("NO_COLOR")', "NO_COLOR"),
                ('std::getenv("TERM")', "TERM"),
                ('constexpr Row row = {"KEST_NEW", "1"};', "KEST_NEW"),
                ('QStringLiteral("KEST_STATISTICS=%1")', "KEST_STATISTICS"),
                ('constexpr const char* variables[] = {"DISPLAY"};', "DISPLAY")]):
            with self.subTest(name):
                path = f"src/New{number}.cpp"
                self.write(path, source + "\n")
                self.assert_error(f"docs/environment.md: {name} is missing")
                os.remove(os.path.join(self.tree, path))

    def test_old_variables_are_named(self):
        self.write("docs/environment.md", files["docs/environment.md"] + "| `KEST_OLD` | was |\n")
        self.assert_error("docs/environment.md: no source has KEST_OLD")

    def test_new_object_names_are_named(self):
        for path, source, name in [
                ("apps/New.cpp", 'setObjectName(QLatin1String("panel"));', "panel"),
                ("src/New.cpp", 'setObjectName(name);\nadd("stopButton");', "stopButton"),
                ("src/Bar.cpp", 'createProgressBar("progressBar");', "progressBar")]:
            with self.subTest(name):
                self.write(path, source + "\n")
                self.assert_error(f"docs/gui-testing.md: {name} is missing")
                os.remove(os.path.join(self.tree, path))

    def test_old_object_names_are_named(self):
        self.write("docs/gui-testing.md", files["docs/gui-testing.md"] + "| `noName` | was |\n")
        self.assert_error("docs/gui-testing.md: no source has noName")

    def test_keys_are_written(self):
        with open(os.path.join(self.tree, "docs/settings-files.md"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "# Files\n\n<!-- KEYS -->\n"
                             "| group | key | initial value |\n|---|---|---|\n"
                             "| `options` | `Kest.Priority` | `2` |\n"
                             "| `options` | `Kest.Host` | empty |\n<!-- end -->\n\nEnd.\n")

    def test_options_are_written(self):
        with open(os.path.join(self.tree, "docs/help/launch-options.md"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "# Options\n\n<!-- OPTIONS -->\n"
                             "| in the window | name | at first |\n|---|---|---|\n"
                             "| Kest Solver, Remote: Host | `Kest.Host` | empty |\n"
                             "| Kest Solver, Run: Process priority | `Kest.Priority` | `2` |\n<!-- end -->\n")

    def test_other_tables_are_named(self):
        error = "{}: the table is not what the sources say; call scripts/docs --write"
        keys, options = "docs/settings-files.md", "docs/help/launch-options.md"
        self.write("samples/suite/data/default.ini", "[options]\nKest.Priority=3\nKest.Host=\n")
        self.assert_error(error.format(keys) + "\n" + error.format(options))
        self.write("samples/suite/data/default.ini", files["samples/suite/data/default.ini"])
        self.write("src/settings/option/common_LaunchOptionTable.cpp",
                   files["src/settings/option/common_LaunchOptionTable.cpp"].replace("Process", "The"))
        self.assert_error(error.format(options))

    def test_comments_may_only_miss_where_names_say_all(self):
        usual = ["Member operator=(const common_A &other) (function)",
                 "Member common_A(const common_A &other) (function)",
                 "Member common_A(common_A &&other) noexcept (function)",
                 "Member reference()=0 (function)", "Member getRefCount() const (function)"]
        for member in usual:
            self.assertEqual(docs.site_errors(f"a.h:1: warning: {member} of class A is not documented."), [])
        for line in ["a.h:1: warning: Member get() const (function) of class A is not documented.",
                     "a.h:1: warning: Member common_A(int number) (function) of class A is not documented.",
                     "a.h:1: warning: Compound A is not documented.",
                     "README.md:1: warning: unable to resolve reference to 'docs/a.md'"]:
            self.assertEqual(docs.site_errors(line), [line])


if __name__ == "__main__":
    unittest.main()
