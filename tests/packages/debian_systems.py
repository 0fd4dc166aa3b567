"""What the tests in systems of their own have in common: a bare Debian, and one with all that building the packages needs."""

import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

from debian_root import DebianRoot

ROOT = pathlib.Path(__file__).resolve().parents[2]
[VERSION] = re.findall(r"^project\(dralo VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)


class DebianSystems(unittest.TestCase):
    """`bare` is of the release `suite`; `folder` is for what a test makes."""

    suite = None
    kept = None
    options = os.environ.get("DEB_BUILD_OPTIONS", "")

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-debian-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.bare = cls.root_of("bare", lambda folder: DebianRoot.make(folder, cls.suite))

    @classmethod
    def root_of(cls, purpose, make):
        folder = (cls.kept or cls.folder) / f"{cls.suite}-{purpose}"
        if folder.exists():
            root = DebianRoot(folder)
            root.run("apt-get", "update", "-q")
        else:
            root = make(folder)
        if folder.parent == cls.folder:
            cls.addClassCleanup(root.remove)
        return root


class DebianBuilders(DebianSystems):
    """`builder` has what building the packages begins with."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.builder = cls.root_of("build", cls.make_builder)

    @classmethod
    def make_builder(cls, folder):
        root = cls.bare.copy(folder)
        root.install("build-essential", "ccache", "git", "lintian", "php-all-dev", "python3")
        return root


def run():
    """SUITE [FOLDER] [TEST...] of the command line: FOLDER begins with "/" and keeps the systems."""
    if os.geteuid() != 0:
        sys.exit(f"{sys.argv[0]}: a system in a folder is entered by chroot, which only root may do")
    DebianSystems.suite, *others = sys.argv[1:]
    if others and others[0].startswith("/"):
        DebianSystems.kept = pathlib.Path(others.pop(0))
    unittest.main(argv=sys.argv[:1] + others)
