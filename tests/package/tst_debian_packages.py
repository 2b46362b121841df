#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the Debian packages of the build tree's files, lets lintian judge them, unpacks them into a folder
of their own, and works there with what they bring: no package is installed."""
import csv
import glob
import os
import re
import shutil
import subprocess
import unittest

build = os.environ["BUILD_DIRECTORY"]
consumer = os.environ["CONSUMER_DIRECTORY"]
compiler = os.environ["COMPILER"]
version = os.environ["VERSION"]
qt_major = os.environ["QT_MAJOR"]
work = os.path.join(os.environ["TMPDIR"], "packages")
root = os.path.join(work, "root")
model = "usr/lib/kest/suite/models/dipole.nec"

# The libraries for programs with Qt 5 and with Qt 6 are different ones under the same file names.
library, other_library = "libkest-common1", "libkest-common-qt6-1"
development, other_development = "libkest-common-dev", "libkest-common-qt6-dev"
if qt_major == "6":
    library, other_library = other_library, library
    development, other_development = other_development, development
names = {library, development, "kestdesk", "postkest", "kest-suite"}

# The build tree's prefix is not /usr, so its libraries are not in a folder of one architecture only; the
# other tag is for uploads to Debian.
tolerated = "pkg-config-unavailable-for-cross-compilation,initial-upload-closes-no-bugs"


def run(*command, **options):
    """What the command prints; fails when the command does."""
    answer = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False, **options)
    if answer.returncode != 0:
        raise AssertionError(f"{' '.join(command)}: {answer.returncode}\n{answer.stdout}")
    return answer.stdout


def setUpModule():
    run("cpack", "--config", f"{build}/CPackConfig.cmake", "-B", work)
    for file in packages().values():
        run("dpkg-deb", "-x", file, root)


def packages():
    """The file of each package."""
    return {os.path.basename(file).partition("_")[0]: file for file in glob.glob(f"{work}/*.deb")}


def field(package, name):
    return run("dpkg-deb", "-f", packages()[package], name).strip()


def depended_on(package):
    """The names of the packages that one needs, without versions; of alternatives the first."""
    return {entry.split()[0] for entry in field(package, "Depends").split(",")}


def qt(module):
    """The package of a module of the Qt that was built with."""
    name = f"libqt{qt_major}{module}{qt_major}"
    return {"libqt5core5": "libqt5core5a"}.get(name, name)


def is_machine_code(path):
    with open(path, "rb") as file:
        return file.read(4) == b"\x7fELF"


def programs_and_libraries():
    """The libraries that each file of machine code links, by its path in the packages."""
    result = {}
    for folder, _, files in os.walk(root):
        for path in (os.path.join(folder, name) for name in files):
            if not os.path.islink(path) and is_machine_code(path):
                result[os.path.relpath(path, root)] = re.findall(r"NEEDED.*\[(.*)\]", run("readelf", "-d", path))
    return result


class Packages(unittest.TestCase):

    def test_are_all_made_with_the_version(self):
        self.assertEqual(set(packages()), names)
        for package in names:
            self.assertEqual(field(package, "Version"), f"{version}-1")

    def test_pass_lintian(self):
        report = run("lintian", "--allow-root", "--tag-display-limit", "0", "--fail-on", "error,warning",
                     "--suppress-tags", tolerated, *packages().values())
        self.assertNotIn("E:", report)

    def test_depend_on_what_they_need(self):
        self.assertLessEqual({qt("widgets"), "libc6"}, depended_on(library))
        self.assertLessEqual({library, {"5": "qtbase5-dev", "6": "qt6-base-dev"}[qt_major]}, depended_on(development))
        self.assertLessEqual({library, "libzip4", qt("svg")}, depended_on("kestdesk"))
        self.assertLessEqual({library, qt("charts")}, depended_on("postkest"))
        self.assertLessEqual({"nec2c", qt("core")}, depended_on("kest-suite"))

    def test_exclude_those_of_the_other_qt(self):
        self.assertEqual(field(library, "Conflicts"), other_library)
        self.assertEqual(field(development, "Conflicts"), other_development)

    def test_let_programs_run_with_later_versions(self):
        rows = run("dpkg-deb", "--info", packages()[library], "shlibs").splitlines()
        major = version.partition(".")[0]
        self.assertEqual(sorted(rows), [f"libkest_{name} {major} {library} (>= {version}-1)"
                                        for name in ("binfiles", "common", "foundation")])

    def test_hold_no_file_twice(self):
        owners = {}
        for package, file in packages().items():
            for line in run("dpkg-deb", "-c", file).splitlines():
                path = line.split(maxsplit=5)[5].split(" -> ")[0]
                if not path.endswith("/"):
                    self.assertNotIn(path, owners, package)
                    owners[path] = package
        self.assertGreater(len(owners), 100)


class Licences(unittest.TestCase):

    def test_charts_are_in_postkest_alone(self):
        linked = programs_and_libraries()
        self.assertIn("usr/bin/kestdesk", linked)
        self.assertGreater(len(linked), 12)
        with_charts = {path for path, libraries in linked.items() if any("Charts" in name for name in libraries)}
        self.assertEqual(with_charts, {"usr/lib/kest/suite/bin/postkest"})
        self.assertEqual({name for name in names if any("charts" in other for other in depended_on(name))},
                         {"postkest"})

    def test_each_package_states_its_licence(self):
        for package in names:
            with open(f"{root}/usr/share/doc/{package}/copyright", encoding="utf-8") as file:
                text = file.read()
            self.assertIn("License: MIT", text)
            self.assertEqual("/usr/share/common-licenses/GPL-3" in text, package == "postkest", package)


class Unpacked(unittest.TestCase):

    def test_programs_start_by_their_names(self):
        for program in ("kestdesk", "cadkest", "editkest", "kestmark", "postkest", "runkest", "prekest"):
            self.assertEqual(run(f"{root}/usr/bin/{program}", "--version").splitlines()[0], f"{program} {version}")

    def test_the_dipole_is_computed(self):
        folder = os.path.join(work, "models")
        os.makedirs(folder)
        shutil.copy(os.path.join(root, model), folder)
        run(f"{root}/usr/bin/kestdesk", "--non-interactive", "dipole.nec", cwd=folder)
        with open(os.path.join(folder, "dipole.csv"), encoding="utf-8") as file:
            rows = [[float(value) for value in row[:3]] for row in list(csv.reader(file))[1:]]
        resonance = min(rows, key=lambda row: abs(row[2]))
        self.assertAlmostEqual(resonance[1], 72, delta=4)  # ohms, of a half-wave dipole

    def test_an_application_is_built_and_runs(self):
        folder = os.path.join(work, "consumer")
        run("cmake", "-S", consumer, "-B", folder, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
            f"-DCMAKE_PREFIX_PATH={root}/usr")
        run("cmake", "--build", folder)
        self.assertIn("hello from the child", run(os.path.join(folder, "consumer")))


if __name__ == "__main__":
    unittest.main()
