#!/usr/bin/env python3
"""Programs of others that use the installed library, each made from nothing: by find_package, by pkg-config, by
add_subdirectory.

usage: install_test.py BUILD [TEST...]      BUILD is a folder in which the shared library was built
"""

import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]


def run(*command, **options):
    """The command's output. What it said is in the failure when it fails."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options)
    if done.returncode != 0:
        raise AssertionError(f"{shlex.join(map(str, command))}\n{done.stdout}")
    return done.stdout


class Installed(unittest.TestCase):
    built = None

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-install-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.prefix = cls.folder / "prefix"
        run("cmake", "--install", cls.built, "--prefix", cls.prefix)
        [library] = (path for path in cls.prefix.glob("lib/**/libdralo.*") if path.suffix in (".a", ".so"))
        cls.library = library

    def configure(self, source, *options):
        folder = self.folder / self.id().rpartition(".")[2]
        run("cmake", "-G", "Ninja", "-S", HERE / source, "-B", folder, "-DCMAKE_BUILD_TYPE=Release", *options)
        return folder

    def assert_works(self, program):
        environment = os.environ | {"LD_LIBRARY_PATH": str(self.library.parent)}
        self.assertEqual(run(program, env=environment), "the library works\n")

    def test_is_found_by_cmake(self):
        folder = self.configure("find_package", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        run("cmake", "--build", folder)
        self.assert_works(folder / "shop")

    def test_says_which_database_it_was_not_built_for(self):
        source = self.folder / "oracle"
        source.mkdir()
        (source / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(shop NONE)\nfind_package(dralo REQUIRED COMPONENTS sqlite oracle)\n")
        with self.assertRaisesRegex(AssertionError, "oracle"):
            self.configure(source, f"-DCMAKE_PREFIX_PATH={self.prefix}")

    def test_is_not_found_for_another_major_version(self):
        source = self.folder / "next"
        source.mkdir()
        (source / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(shop NONE)\nfind_package(dralo 99 REQUIRED)\n")
        with self.assertRaisesRegex(AssertionError, r"compatible\s+with requested version"):
            self.configure(source, f"-DCMAKE_PREFIX_PATH={self.prefix}")

    def test_is_found_by_pkg_config(self):
        environment = os.environ | {"PKG_CONFIG_PATH": str(self.library.parent / "pkgconfig")}
        flags = shlex.split(run("pkg-config", "--cflags", "--libs", "dralo", env=environment))
        program = self.folder / "shop"
        run(os.environ.get("CXX", "c++"), HERE / "shop.cpp", "-o", program, *flags)
        self.assert_works(program)

    def test_asks_for_the_headers_of_no_other_library_when_it_is_shared(self):
        if self.library.suffix != ".so":
            self.skipTest("a static library is linked with all that it needs")
        environment = os.environ | {"PKG_CONFIG_LIBDIR": str(self.library.parent / "pkgconfig")}
        self.assertIn("-ldralo", run("pkg-config", "--cflags", "--libs", "dralo", env=environment))

    def test_brings_what_sites_copy(self):
        copied = self.prefix / "share/dralo"
        images = {f"gfx/{path.name}" for path in (ROOT / "assets/gfx").glob("*.gif")}
        self.assertEqual({str(path.relative_to(copied)) for path in copied.rglob("*.*")}, images | {"dralo.css", "dralo.js"})

    def test_shows_no_folder_of_its_sources(self):
        for path in (self.prefix / "include").rglob("*.h"):
            self.assertEqual(path.parent.name, "dralo")
            for line in path.read_text().splitlines():
                if line.startswith("#include \""):
                    self.assertRegex(line, r'^#include "dralo/\w+\.h"$', str(path))
        self.assertNotIn(str(ROOT), "".join(path.read_text() for path in self.prefix.rglob("*.cmake")))

    def test_shows_no_other_symbols_than_its_own(self):
        names = run("nm", "-D", "-C", "--defined-only", self.library).splitlines()
        foreign = [line for line in names if " dralo::" not in line and " for dralo::" not in line and "std::" not in line]
        self.assertEqual(foreign, [])

    def test_brings_dralo_serve_where_it_was_built(self):
        was_built = "DRALO_SERVE:BOOL=ON" in (self.built / "CMakeCache.txt").read_text()
        program = self.prefix / "bin/dralo-serve"
        self.assertEqual(program.exists(), was_built)
        if was_built:
            self.assertRegex(run(program, "--version"), r"^dralo-serve \d")

    def test_can_be_a_part_of_another_project(self):
        self.configure("add_subdirectory", f"-DDRALO_SOURCE={ROOT}", "-DCMAKE_UNITY_BUILD=ON")


if __name__ == "__main__":
    Installed.built = pathlib.Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
