#!/usr/bin/env python3
"""tools/release makes the same bytes in two clones, the Debian packages included. Builds everything twice in a system of SUITE.

usage: same_bytes_test.py SUITE [FOLDER] [TEST...]      as debian_test.py
"""

import pathlib
import shutil
import sys

from debian_systems import ROOT, DebianBuilders, run

sys.path.append(str(ROOT / "tests/release"))

from own_repository import Repository  # noqa: E402


class Release(DebianBuilders):
    def release(self, repository):
        """What it publishes, by name."""
        inside = pathlib.PurePosixPath("/", repository.folder.relative_to(self.builder.folder))
        self.builder.run("env", "--chdir", str(inside), f"DEB_BUILD_OPTIONS={self.options}", "tools/release")
        return {path.name: path.read_bytes() for path in (repository.folder / "build/dist").iterdir()}

    def test_has_the_same_bytes_in_two_clones(self):
        clones = self.builder.inside("/root/clones")
        shutil.rmtree(clones, ignore_errors=True)
        self.addCleanup(shutil.rmtree, clones)
        first = Repository.of_these_files(clones / "first")
        self.builder.run("sh", "-ec", "cd /root/clones; cp -r first prepared; cd prepared; debian/prepare; apt-get build-dep -q -y ./")
        if first.run("date_changes").returncode == 0:
            first.commit()
        second = first.clone(clones / "another-place/second")
        made, again = self.release(first), self.release(second)
        packages = {name.partition("_")[0] for name in made if name.endswith(".deb")}
        self.assertLessEqual({"php-dralo", "dralo-common", "libdralo1", "libdralo-dev", "dralo-serve"}, packages)
        self.assertEqual(set(again), set(made))
        self.assertEqual([name for name in made if made[name] != again[name]], [])


if __name__ == "__main__":
    run()
