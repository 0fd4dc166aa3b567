#!/usr/bin/env python3
"""The three ways in that README.md tells, typed as they stand there on a bare system of SUITE, in a fresh copy of the sources.

usage: readme_test.py SUITE [FOLDER] [TEST...]      as debian_test.py
"""

import os
import re
import shutil
import sys

from debian_systems import ROOT, DebianSystems, run

sys.path.append(str(ROOT / "tests/release"))

from own_repository import Repository  # noqa: E402

ANSWER_YES = 'APT::Get::Assume-Yes "true";\n'
SOURCES = "/root/dralo"
QUICK_COMPILER = "/usr/local/bin/quick-c++"
WITHOUT_OPTIMISATION = '#!/bin/sh\nexec /usr/bin/c++ "$@" -O0\n'


def commands(path, heading):
    """The first shell commands below the heading and above the next one."""
    text = (ROOT / path).read_text(encoding="utf-8")
    [found] = re.findall(rf"^#+ {re.escape(heading)}\n(?:(?!#|```).*\n)*```sh\n((?:(?!```).*\n)*)", text, re.MULTILINE)
    return found


class WaysIn(DebianSystems):
    def follow(self, told):
        """The system in which somebody typed the commands, one after the other, until one failed."""
        root = self.bare.copy(self.folder / self.id().rpartition(".")[2])
        self.addCleanup(root.remove)
        root.install("sudo")
        root.inside("/etc/apt/apt.conf.d/91yes").write_text(ANSWER_YES)
        Repository.of_these_files(root.inside(SOURCES))
        environment = [f"MAKEFLAGS=-j{len(os.sched_getaffinity(0))}", f"DEB_BUILD_OPTIONS={self.options}"]
        if "noopt" in self.options:
            root.inside(QUICK_COMPILER).write_text(WITHOUT_OPTIMISATION)
            root.inside(QUICK_COMPILER).chmod(0o755)
            environment.append(f"CXX={QUICK_COMPILER}")
        # "-e" does not end a shell when a part before "&&" fails.
        lines = " || exit\n".join(told.splitlines())
        root.run("env", f"--chdir={SOURCES}", *environment, "sh", "-ec", lines)
        return root

    def assert_serves(self, root):
        page = root.run("php", f"{SOURCES}/tests/packages/page.php")
        self.assertIn("Records (1..2) of 2", page)
        self.assertNotIn("Warning", page)

    def test_debian_packages(self):
        self.assert_serves(self.follow(commands("README.md", "PHP on Debian 12 and 13: packages")))

    def test_phps_own_tools(self):
        whole = commands("docs/php.md", "With PHP's own tools")
        self.assertIn(commands("README.md", "PHP elsewhere: phpize, or PIE"), whole)
        self.assert_serves(self.follow(whole))

    def test_the_library(self):
        root = self.follow(commands("README.md", "C++ programs: the library"))
        shutil.copytree(ROOT / "tests/install", root.inside("/root/install"))
        root.run("sh", "-ec", """cd /root/install/find_package; cmake -G Ninja -B /root/found .; cmake --build /root/found
            cd /root/install; c++ shop.cpp -o /root/asked $(pkg-config --cflags --libs dralo)""")
        for program in ("/root/found/shop", "/root/asked"):
            self.assertEqual(root.run(program), "the library works\n")


if __name__ == "__main__":
    run()
