#!/usr/bin/env python3
"""Programs of others with the static library and with the sources in their own, by each of several compilers. Each makes the
library, and programs of every other one are linked with it.

usage: consumers_test.py COMPILER...      such as g++ clang++
"""

import os
import pathlib
import shlex
import shutil
import sys
import tempfile
import unittest

from install_test import HERE, ROOT, run

QUICK = ["-DCMAKE_UNITY_BUILD=ON", "-DCMAKE_UNITY_BUILD_BATCH_SIZE=10"]
LIBRARY_ALONE = ["-DDRALO_PHP=OFF", "-DDRALO_TESTS=OFF", "-DDRALO_EXAMPLES=OFF", "-DDRALO_SERVE=OFF"]


class Consumers(unittest.TestCase):
    compilers = ()

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-consumers-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)

    def build(self, source, name, compiler, *options):
        folder = self.folder / name
        run("cmake", "-G", "Ninja", "-S", source, "-B", folder, f"-DCMAKE_CXX_COMPILER={compiler}", *options)
        run("cmake", "--build", folder)
        return folder

    def assert_works(self, program):
        self.assertEqual(run(program), "the library works\n")
        self.assertNotIn("libdralo", run("ldd", program))

    def installed_by(self, compiler):
        """The prefix with the static library."""
        prefix = self.folder / f"prefix-{compiler}"
        built = self.build(ROOT, f"library-{compiler}", compiler, *LIBRARY_ALONE, *QUICK)
        run("cmake", "--install", built, "--prefix", prefix)
        return prefix

    def test_link_the_static_library(self):
        for maker in self.compilers:
            prefix = self.installed_by(maker)
            [library] = prefix.glob("lib/**/libdralo.a")
            environment = os.environ | {"PKG_CONFIG_PATH": str(library.parent / "pkgconfig")}
            flags = shlex.split(run("pkg-config", "--cflags", "--libs", "dralo", env=environment))
            for user in self.compilers:
                with self.subTest(library_by=maker, program_by=user):
                    found = self.build(HERE / "find_package", f"found-{maker}-{user}", user, f"-DCMAKE_PREFIX_PATH={prefix}")
                    self.assert_works(found / "shop")
                    asked = self.folder / f"asked-{maker}-{user}"
                    run(user, HERE / "shop.cpp", "-o", asked, *flags)
                    self.assert_works(asked)

    def test_have_the_sources_in_their_own(self):
        for compiler in self.compilers:
            with self.subTest(compiler=compiler):
                built = self.build(HERE / "add_subdirectory", f"part-{compiler}", compiler, f"-DDRALO_SOURCE={ROOT}", *QUICK)
                self.assert_works(built / "shop")


if __name__ == "__main__":
    Consumers.compilers = sys.argv[1:] or sys.exit(__doc__)
    unittest.main(argv=sys.argv[:1], verbosity=2)
