#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Breaks each rule of the house in a small tree, and sees scripts/house name it."""
import contextlib
import importlib.machinery
import importlib.util
import io
import os
import sys
import tempfile
import unittest
from unittest import mock

script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "scripts", "house")
sys.dont_write_bytecode = True
loader = importlib.machinery.SourceFileLoader("house", script)
house = importlib.util.module_from_spec(importlib.util.spec_from_loader("house", loader))
loader.exec_module(house)

page = """# For developers

<!-- FLOORS -->
<!-- end -->

See [the start](apps/base/Start.h), `Start`, `apps/base` and `common_Runner`.
"""

# One file on each floor, each including what is below it.
sources = {
    "platform/Processes.h": "#pragma once\n",
    "foundation/include/common_Pointer.h": "#pragma once\n",
    "suite/text/PlainText.h": "#pragma once\n",
    "suite/model/Model.h": "#pragma once\n\n#include <PlainText.h>\n",
    "include/common_Runner.h": "#pragma once\n\n#include <common_Pointer.h>\n\nclass common_Runner;\n",
    "include/common_Dialog.h": "#pragma once\n",
    "include/common_settings.h": "#pragma once\n",
    "src/process/common_Runner.cpp": "#include <common_Runner.h>\n",
    "src/process/widgets/common_Dialog.cpp": "#include <common_Dialog.h>\n\n#include <common_Runner.h>\n",
    "src/process/common_Buffer.h": "#pragma once\n",
    "src/settings/common_settings.cpp": "#include <common_settings.h>\n",
    "apps/base/Start.h": "#pragma once\n\n#include <common_Runner.h>\n\nclass Start;\n",
    "apps/kestdesk/Desk.h": "#pragma once\n\n#include <Start.h>\n",
    "apps/cadkest/View.h": "#pragma once\n\n#include <Model.h>\n",
    "samples/suite/prekest/Check.h": "#pragma once\n\n#include <Model.h>\n#include <Processes.h>\n",
}


class House(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.write("DEVELOPERS.md", page)
        for path, text in sources.items():
            self.write(path, text)
        os.mkdir(os.path.join(self.folder.name, "docs"))

    def write(self, path, text):
        path = os.path.join(self.folder.name, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def call(self, *options):
        """Exit code, output and errors of the script."""
        output, errors = io.StringIO(), io.StringIO()
        with contextlib.redirect_stdout(output), contextlib.redirect_stderr(errors):
            code = house.main(["--tree", self.folder.name, *options])
        return code, output.getvalue(), errors.getvalue()

    def draw(self):
        self.assertEqual(self.call(), (0, "", ""))

    def errors(self):
        """What is wrong, once the picture is as the sources are."""
        self.draw()
        code, _, errors = self.call("--check")
        self.assertEqual(code, 1 if errors else 0)
        return errors

    def test_a_tree_that_keeps_the_rules_passes(self):
        self.assertEqual(self.errors(), "")

    def test_a_file_above_is_named_with_the_line(self):
        self.write("platform/Processes.h", "#pragma once\n\n#include <PlainText.h>\n")
        self.assertEqual(self.errors(), "platform/Processes.h:3: includes suite/text/PlainText.h: "
                                        "platform may not use suite\n")

    def test_suite_may_not_use_the_platform(self):
        self.write("suite/text/PlainText.h", "#pragma once\n\n#include <Processes.h>\n")
        self.assertIn("suite may not use platform", self.errors())

    def test_the_system_is_included_in_a_file_a_platform(self):
        for path in ("suite/text/PlainText_unix.cpp", "samples/suite/prekest/Check.cpp"):
            self.write(path, "#include <QtMath>\n\n#include <cmath>\n\n#include <unistd.h>\n")
        self.assertEqual(self.errors(), "")
        self.write("suite/text/PlainText.cpp", '#include "PlainText.h"\n\n#include <unistd.h>\n')
        self.assertEqual(self.errors(), "suite/text/PlainText.cpp:3: includes unistd.h: "
                                        "that belongs into a file of its platform\n")

    def test_the_library_may_not_use_the_suite(self):
        self.write("src/process/common_Buffer.h", "#pragma once\n\n#include <PlainText.h>\n")
        self.assertIn("library may not use suite", self.errors())

    def test_samples_may_not_use_the_library(self):
        self.write("samples/suite/prekest/Check.h", "#pragma once\n\n#include <common_Runner.h>\n")
        self.assertIn("samples/suite may not use library", self.errors())

    def test_applications_may_not_use_samples(self):
        self.write("apps/kestdesk/Desk.h", "#pragma once\n\n#include <Check.h>\n")
        self.assertIn("apps/kestdesk may not use samples/suite", self.errors())

    def test_applications_may_not_use_each_other(self):
        self.write("apps/kestdesk/Desk.h", "#pragma once\n\n#include <View.h>\n")
        self.assertIn("apps/kestdesk may not use apps/cadkest", self.errors())

    def test_applications_use_exported_headers_only(self):
        self.write("apps/kestdesk/Desk.h", "#pragma once\n\n#include <common_Buffer.h>\n")
        self.assertIn("apps/kestdesk/Desk.h:3: includes src/process/common_Buffer.h: "
                      "which is not exported", self.errors())

    def test_the_runner_may_not_use_widgets(self):
        self.write("src/process/common_Runner.cpp",
                   "#include <common_Runner.h>\n\n#include <common_Dialog.h>\n\n#include <QLabel>\n")
        errors = self.errors()
        self.assertIn("messages and runner may not use widgets", errors)
        self.assertIn("src/process/common_Runner.cpp:5: includes QLabel", errors)

    def test_settings_may_not_use_processes(self):
        self.write("src/settings/common_settings.cpp",
                   "#include <common_settings.h>\n\n#include <common_Runner.h>\n\n#include <QProcess>\n")
        errors = self.errors()
        self.assertIn("settings may not use messages and runner", errors)
        self.assertIn("includes QProcess: settings may not use it", errors)

    def test_a_folder_on_no_floor_is_an_error(self):
        self.write("apps/newkest/New.h", "#pragma once\n")
        self.assertIn("apps/newkest: is on no floor", self.errors())

    def test_a_circle_of_folders_is_an_error(self):
        self.write("suite/text/PlainText.h", "#pragma once\n\n#include <Model.h>\n")
        self.assertIn("these folders include each other: suite/model, suite/text\n"
                      "    suite/model/Model.h:3: suite/text/PlainText.h\n"
                      "    suite/text/PlainText.h:3: suite/model/Model.h\n", self.errors())

    def test_the_nearest_file_of_a_name_is_meant(self):
        self.write("apps/cadkest/Desk.h", "#pragma once\n")
        self.write("apps/kestdesk/window/Window.h", "#pragma once\n\n#include <Desk.h>\n")
        self.assertEqual(self.errors(), "")

    def test_a_name_that_may_be_two_files_is_an_error(self):
        self.write("apps/cadkest/Desk.h", "#pragma once\n")
        self.write("apps/base/Start.h", "#pragma once\n\n#include <Desk.h>\n\nclass Start;\n")
        self.assertIn("apps/base/Start.h: Desk.h may be ", self.errors())

    def test_limits_of_folders_and_files_hold(self):
        for number in range(40):
            self.write(f"suite/hosts/Host{number}.h", "#pragma once\n")
        self.write("suite/text/PlainText.h", "#pragma once\n" + 399 * "\n")
        self.assertEqual(self.errors(), "")
        self.write("suite/hosts/Host40.h", "#pragma once\n")
        self.write("suite/text/PlainText.h", "#pragma once\n" + 400 * "\n")
        self.assertEqual(self.errors(), "suite/hosts: 41 files, more than 40\n"
                                        "suite/text/PlainText.h: 401 lines, more than 400\n")

    def test_sources_begin_with_their_licence_where_the_project_has_one(self):
        line = "// SPDX-License-Identifier: MIT\n"
        for path, text in sources.items():
            self.write(path, line + text)
        self.write("examples/minimal/main.cpp", "int main() {}\n")
        self.write("suite/text/PlainText.h", line + "\n" * 400)
        self.write("LICENSE", "Everything is permitted.\n")
        self.assertEqual(self.errors(), "")
        self.write("suite/text/PlainText.h", "#pragma once\n")
        self.assertEqual(self.errors(),
                         "suite/text/PlainText.h: does not begin with // SPDX-License-Identifier: MIT\n")

    def test_exceptions_are_listed(self):
        self.write("tests/text/tst_long.cpp", 500 * "\n")
        with mock.patch.object(house, "exceptions", {"tests/text/*": "one table"}):
            self.assertEqual(self.errors(), "")
            self.assertIn("beyond the limits: tests/text/*: one table\n", self.call("--check")[1])

    def test_what_is_being_split_is_reported_until_it_is(self):
        self.write("suite/text/PlainText.h", "#pragma once\n" + 400 * "\n")
        with mock.patch.object(house, "being_split", ["suite/text/PlainText.h"]):
            self.assertEqual(self.errors(), "")
            self.assertIn("401 lines, more than 400; is being split\n", self.call("--check")[1])
            self.write("suite/text/PlainText.h", "#pragma once\n")
            self.assertIn("PlainText.h: is within the limits now", self.call("--check")[1])

    def test_a_circle_that_is_being_opened_is_reported(self):
        self.write("suite/text/PlainText.h", "#pragma once\n\n#include <Model.h>\n")
        with mock.patch.object(house, "being_opened", [{"suite/model", "suite/text"}]):
            self.assertEqual(self.errors(), "")
            self.assertIn("include each other, which is being mended", self.call("--check")[1])
        with mock.patch.object(house, "being_opened", [{"suite/model", "suite/hosts"}]):
            self.assertIn("these folders include each other", self.errors())

    def test_includes_stand_in_order(self):
        self.write("samples/suite/prekest/Check.h",
                   "#pragma once\n\n#include <QString>\n\n#include <Model.h>\n\n#include <vector>\n")
        self.assertEqual(self.errors(), "samples/suite/prekest/Check.h:5: Model.h stands behind "
                                        "Qt's headers\n")

    def test_includes_stand_in_blocks(self):
        self.write("samples/suite/prekest/Check.h",
                   "#pragma once\n\n#include <Model.h>\n#include <QString>\n\n#include <vector>\n")
        self.assertIn("samples/suite/prekest/Check.h:4: no blank line", self.errors())

    def test_no_class_is_declared_that_is_another_name_in_qt_6(self):
        declarations = "class QVariant;\nclass QStringList;\ntemplate <typename T> class QVector;\n"
        self.write("apps/cadkest/View.h", f"#pragma once\n\n{declarations}// class QByteArrayList;\n")
        self.assertEqual(self.errors(), "".join(
            f"apps/cadkest/View.h: declares {name}, which is no class in Qt 6: include <{name}>\n"
            for name in ("QStringList", "QVector")))

    def test_an_old_picture_is_an_error(self):
        self.draw()
        self.write("apps/kestdesk/window/Window.h", "#pragma once\n")
        self.assertEqual(self.call("--check")[2],
                         "docs/house.svg is not what the sources say: call scripts/house\n")

    def test_a_missing_picture_is_an_error(self):
        self.draw()
        os.remove(os.path.join(self.folder.name, "docs", "house.svg"))
        self.assertIn("docs/house.svg is not what the sources say", self.call("--check")[2])

    def test_a_changed_table_is_an_error(self):
        self.draw()
        with open(os.path.join(self.folder.name, "DEVELOPERS.md"), encoding="utf-8") as file:
            text = file.read()
        self.write("DEVELOPERS.md", text.replace("three dimensions", "two dimensions"))
        self.assertEqual(self.call("--check")[2],
                         "DEVELOPERS.md has another table of floors: call scripts/house\n")

    def test_the_check_changes_nothing(self):
        self.call("--check")
        self.assertEqual(os.listdir(os.path.join(self.folder.name, "docs")), [])

    def test_the_page_names_only_what_exists(self):
        self.write("DEVELOPERS.md", page + "`common_Walker`, `apps/basement`, `Start.cpp`, "
                                           "`startAll()`, [here](docs/none.md)\n")
        lines = self.errors().splitlines()
        number = self.errors().split(":")[1]
        self.assertEqual(lines, [
            f"DEVELOPERS.md:{number}: there is no class or file common_Walker",
            f"DEVELOPERS.md:{number}: there is no file or folder apps/basement",
            f"DEVELOPERS.md:{number}: there is no file or folder Start.cpp",
            f"DEVELOPERS.md:{number}: startAll is nowhere in the project",
            f"DEVELOPERS.md:{number}: there is no docs/none.md"])

    def test_paths_of_commands_on_the_page_must_exist(self):
        self.write("DEVELOPERS.md", page + "```\nscripts/none --all   # something\n```\n")
        self.assertIn("there is no file or folder scripts/none", self.errors())


if __name__ == "__main__":
    unittest.main()
