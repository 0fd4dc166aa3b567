#!/usr/bin/env python3
"""What tools/date_changes and tools/release make of the sources, and when they refuse."""

import hashlib
import os
import pathlib
import re
import shutil
import tarfile
import tempfile
import unittest

from own_repository import COMMITTED_AT, Repository

VERSION = re.search(r"^project\(dralo VERSION ([\d.]+)", (pathlib.Path(__file__).resolve().parents[2] / "CMakeLists.txt").read_text(),
                    re.MULTILINE)[1]


# All that the tools read.
NEEDED = (".gitignore", "CMakeLists.txt", "LICENSE", "debian/changelog", "tests/browser/package-lock.json", "tools")


class Release(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-release-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.original = Repository.of_these_files(cls.folder / "original", *NEEDED)
        (cls.original.folder / "CHANGELOG.md").write_text("# Changes\n\n## Unreleased\n\n- Something new.\n")
        cls.original.commit()

    def repository(self, dated=True):
        repository = self.original.clone(self.folder / f"{self.id().rpartition('.')[2]}")
        if dated:
            self.assertEqual(repository.run("date_changes", "2026-01-31").returncode, 0)
            repository.commit()
        return repository

    def assert_refused(self, answer, tool, why):
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertRegex(answer.stderr, rf"^{tool}: [^\n]*{why}[^\n]*\n$")

    def assert_made(self, answer):
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))

    def test_the_changes_get_their_version_and_day(self):
        repository = self.repository()
        self.assertEqual((repository.folder / "CHANGELOG.md").read_text(),
                         f"# Changes\n\n## Unreleased\n\n## {VERSION} - 2026-01-31\n\n- Something new.\n")
        self.assert_refused(repository.run("date_changes"), "date_changes", "already; raise the version")

    def test_the_changes_are_dated_only_when_there_are_any(self):
        repository = self.repository()
        cmake = repository.folder / "CMakeLists.txt"
        cmake.write_text(cmake.read_text().replace(f"VERSION {VERSION}", "VERSION 9.0.0"))
        self.assert_refused(repository.run("date_changes"), "date_changes", "nothing is unreleased")

    def test_a_day_is_a_day(self):
        self.assert_refused(self.repository(dated=False).run("date_changes", "2026-02-30"), "date_changes", "2026-02-30")

    def test_files_that_are_not_committed_are_refused(self):
        repository = self.repository()
        (repository.folder / "new.txt").write_text("new")
        self.assert_refused(repository.run("release", "--sources"), "release", "new.txt among them")
        self.assertFalse((repository.folder / "build").exists())

    def test_changes_without_the_version_are_refused(self):
        answer = self.repository(dated=False).run("release", "--sources")
        self.assert_refused(answer, "release", f"CHANGELOG.md has no part for {VERSION}")

    def test_the_tag_of_another_commit_is_refused(self):
        repository = self.repository()
        repository.git("tag", "-a", "-m", "too early", f"v{VERSION}", "HEAD~1")
        self.assert_refused(repository.run("release", "--sources"), "release", f"another commit has the tag v{VERSION}")

    def test_the_tag_of_this_commit_is_none_of_its_business(self):
        repository = self.repository()
        repository.git("tag", "-a", "-m", "in time", f"v{VERSION}")
        self.assert_made(repository.run("release", "--sources"))
        self.assertEqual(repository.git("tag").split(), [f"v{VERSION}"])

    def test_the_sums_are_those_of_the_files(self):
        repository = self.repository()
        answer = repository.run("release", "--sources")
        self.assert_made(answer)
        dist = repository.folder / "build/dist"
        said = dict(reversed(line.split("  ")) for line in answer.stdout.splitlines())
        self.assertEqual((dist / "SHA256SUMS").read_text(), answer.stdout)
        self.assertEqual(said, {path.name: hashlib.sha256(path.read_bytes()).hexdigest()
                                for path in dist.iterdir() if path.name != "SHA256SUMS"})

    def test_packages_are_published_too(self):
        repository = self.repository_with_packages('tr a-z A-Z <debian/control >../dralo_1_all.deb; touch ../dralo_1.changes')
        self.assert_made(repository.run("release", env=self.environment))
        dist = repository.folder / "build/dist"
        self.assertEqual((dist / "dralo_1_all.deb").read_text(), "PACKAGE: DRALO\n")
        self.assertEqual({path.name for path in dist.iterdir()},
                         {f"dralo-{VERSION}.tar.xz", f"dralo-{VERSION}.spdx.json", "dralo_1_all.deb", "SHA256SUMS"})
        self.assertRegex((dist / "SHA256SUMS").read_text(), r"(?m)^[0-9a-f]{64}  dralo_1_all\.deb$")
        self.assertEqual(repository.git("status", "--porcelain"), "")

    def test_packages_that_cannot_be_built_are_an_error(self):
        repository = self.repository_with_packages("echo no compiler; exit 1")
        self.assert_refused(repository.run("release", env=self.environment), "release", "dpkg-buildpackage failed; see build/packages.log")
        self.assertEqual((repository.folder / "build/packages.log").read_text(), "no compiler\n")
        self.assertFalse((repository.folder / "build/dist/SHA256SUMS").exists())

    def test_packages_of_another_version_are_refused(self):
        repository = self.repository_with_packages("exit 0", version="0.9.9")
        self.assert_refused(repository.run("release", env=self.environment), "release", f"debian/changelog has no entry for {VERSION}")

    def repository_with_packages(self, build, version=VERSION):
        """One in which `build` stands for dpkg-buildpackage."""
        repository = self.repository()
        debian = repository.folder / "debian"
        debian.mkdir(exist_ok=True)
        (debian / "changelog").write_text(f"dralo ({version}-1) unstable; urgency=medium\n")
        (debian / "prepare").write_text("#!/bin/sh\necho 'Package: dralo' >debian/control\n")
        (debian / "prepare").chmod(0o755)
        repository.commit()
        programs = self.folder / f"programs of {repository.folder.name}"
        programs.mkdir()
        (programs / "dpkg-buildpackage").write_text(f"#!/bin/sh\n{build}\n")
        (programs / "dpkg-buildpackage").chmod(0o755)
        self.environment = os.environ | {"PATH": f"{programs}:{os.environ['PATH']}"}
        return repository


class Archive(unittest.TestCase):
    """Of all the sources."""

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-release-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.repository = Repository.of_these_files(cls.folder / "original")
        if cls.repository.run("date_changes").returncode == 0:
            cls.repository.commit()
        cls.answer = cls.repository.run("release", "--sources")
        cls.dist = cls.repository.folder / "build/dist"

    def test_a_second_run_elsewhere_makes_the_same_bytes(self):
        self.assertEqual((self.answer.returncode, self.answer.stderr), (0, ""))
        second = self.repository.clone(self.folder / "another place")
        answer = second.run("release", "--sources", umask=0o077, env=os.environ | {"TZ": "Asia/Tokyo", "LC_ALL": "C"})
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        made, again = ({path.name: path.read_bytes() for path in folder.iterdir()} for folder in (self.dist, second.folder / "build/dist"))
        self.assertEqual(set(made), {f"dralo-{VERSION}.tar.xz", f"dralo-{VERSION}.spdx.json", "SHA256SUMS"})
        self.assertEqual(set(again), set(made))
        self.assertEqual([name for name in made if made[name] != again[name]], [])

    def test_has_every_source_as_it_was_committed(self):
        with tarfile.open(self.dist / f"dralo-{VERSION}.tar.xz") as archive:
            members = {member.name.partition("/")[2]: member for member in archive if member.isfile()}
            self.assertEqual(set(members), set(self.repository.git("ls-files").splitlines()))
            for name, member in members.items():
                source = self.repository.folder / name
                self.assertEqual(archive.extractfile(member).read(), source.read_bytes(), name)
                self.assertEqual(member.mode & 0o111 != 0, os.access(source, os.X_OK), name)
        self.assertEqual({member.mtime for member in members.values()}, {COMMITTED_AT})


if __name__ == "__main__":
    unittest.main()
