"""./demo as somebody runs it who has just cloned the project: where nothing is installed but the packages that every
system has, and those that "tools/setup build" lists, with all they depend on. What the build folder holds already is not
compiled again; the configuration, the link, the shop and the server are new.

usage: demo_test.py BUILD_FOLDER
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.request

PROJECT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(PROJECT / "tests/support"))

from bare_system import BareSystem  # noqa: E402
from database_servers import free_port  # noqa: E402
from installed_packages import InstalledPackages  # noqa: E402

# What the objects were compiled with, which the preset of ./demo leaves open.
KEPT_SETTINGS = re.compile(r"^(?:DRALO_WERROR|CMAKE_CXX_COMPILER_LAUNCHER|PHP_CONFIG):.*\n", re.MULTILINE)
LAUNCHER = re.compile(r"^CMAKE_CXX_COMPILER_LAUNCHER:\w+=(\S+)", re.MULTILINE)
COMPILED = ("src", "hosts", ".ninja_log", ".ninja_deps")


def all_but_objects(folder, names):
    """All but these and what they were compiled from: it may be configured anew by another test at this moment."""
    return [name for name in names if not name.endswith((".o", ".a", ".cxx")) and not os.path.isdir(os.path.join(folder, name))]


class Demo(unittest.TestCase):
    compiled = None

    def setUp(self):
        """In the build folder: what lies there can be linked to the files of most machines, and is copied in no time."""
        root = pathlib.Path(tempfile.mkdtemp(prefix="bare-", dir=self.compiled))
        listed = subprocess.run([PROJECT / "tools/setup", "list"], capture_output=True, text=True, check=True)
        installed = InstalledPackages()
        packages = installed.with_all_they_need(installed.bare() + listed.stdout.split())
        self.system = BareSystem(root, packages)
        self.addCleanup(self.system.remove)
        self.clone = self.system.inside(str(PROJECT))
        shutil.copytree(PROJECT, self.clone, symlinks=True, ignore=shutil.ignore_patterns(".git", "build", "node_modules"))
        self.copy_compiled(self.clone / "build/release")

    def copy_compiled(self, release):
        release.mkdir(parents=True)
        for name in COMPILED:
            if (self.compiled / name).is_dir():
                shutil.copytree(self.compiled / name, release / name, ignore=all_but_objects)
            else:
                shutil.copy2(self.compiled / name, release / name)
        settings = "".join(KEPT_SETTINGS.findall((self.compiled / "CMakeCache.txt").read_text()))
        (release / "CMakeCache.txt").write_text(settings)
        if launcher := LAUNCHER.search(settings):
            # A developer's own, such as ccache: it is part of the commands, and does nothing here.
            program = self.system.inside(os.path.join("/usr/bin", launcher[1]))
            program.write_text('#!/bin/sh\nexec "$@"\n')
            program.chmod(0o755)

    def start(self):
        port = free_port()
        demo = self.system.start(["./demo", str(port)], PROJECT)
        self.addCleanup(self.end, demo)
        said = ""
        for line in demo.stdout:
            said += line
            if f"http://127.0.0.1:{port}/" in line:
                return demo, port
        self.fail("./demo does not start with the packages of tools/setup build alone:\n" + said)

    def end(self, demo):
        demo.terminate()
        demo.stdout.read()
        demo.stdout.close()
        demo.wait(60)

    def test_needs_only_what_setup_lists(self):
        self.assertFalse(self.system.inside("/usr/bin/valgrind").exists(), "more is visible than is listed")
        _, port = self.start()
        with urllib.request.urlopen(f"http://127.0.0.1:{port}/customers.php", timeout=60) as page:
            self.assertIn(b'id="drl1row_1"', page.read())
        self.assertTrue((self.clone / "build/release/dralo.so").exists())


if __name__ == "__main__":
    Demo.compiled = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
