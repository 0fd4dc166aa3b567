#!/usr/bin/env python3
"""The Debian packages: built from an archive of the sources, installed, upgraded and removed in a bare system of SUITE.

usage: debian_test.py SUITE [FOLDER] [TEST...]      SUITE is bookworm or trixie. In FOLDER the bare system and the one with
                                                    all that building needs are kept and found again; it begins with "/".
DEB_BUILD_OPTIONS=noopt builds them in a fraction of the time, without optimisation.
"""

import re
import shutil
import subprocess
import sys
import urllib.request

from debian_systems import ROOT, VERSION, DebianBuilders, run

PAGE = "/root/page.php"
OLDER, NEWER = f"{VERSION}-1", f"{VERSION}-2"


def archive():
    """The sources as tar, with what is changed but not committed yet."""
    said = subprocess.run(["git", "stash", "create"], cwd=ROOT, capture_output=True, text=True, check=True)
    return subprocess.run(["git", "archive", f"--prefix=dralo-{VERSION}/", said.stdout.strip() or "HEAD"], cwd=ROOT,
                          stdout=subprocess.PIPE, check=True).stdout


class Packages(DebianBuilders):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.build()

    @classmethod
    def build(cls):
        work = cls.builder.inside("/root/work")
        shutil.rmtree(work, ignore_errors=True)
        work.mkdir()
        (work / "dralo.tar").write_bytes(archive())
        cls.builder.run("sh", "-ec", f"""
            cd /root/work; tar -xf dralo.tar; gzip -n dralo.tar; mv dralo.tar.gz dralo_{VERSION}.orig.tar.gz
            cd dralo-{VERSION}; debian/prepare; apt-get build-dep -q -y ./
            export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_DIR=/root/ccache
            DEB_BUILD_OPTIONS="parallel=$(nproc) noautodbgsym {cls.options}" DEB_CXXFLAGS_STRIP=-g dpkg-buildpackage -us -uc""")
        cls.debs = sorted(work.glob("*.deb"))
        [cls.php] = (found[1] for path in cls.debs if (found := re.match(r"php([\d.]+)-dralo_", path.name)))

    def machine(self):
        """A bare system in which all that the test does may stay behind."""
        root = self.bare.copy(self.folder / self.id().rpartition(".")[2])
        self.addCleanup(root.remove)
        for path in self.debs:
            shutil.copy(path, root.inside("/root"))
        shutil.copy(ROOT / "tests/packages/page.php", root.inside(PAGE))
        return root

    def deb(self, name, version=OLDER):
        [path] = (path for path in self.debs if path.name.startswith(f"{name}_"))
        return f"/root/{path.name.replace(OLDER, version)}"

    def make_newer(self, root, *names):
        for name in names:
            root.run("sh", "-ec", f"cd /root; dpkg-deb -R {self.deb(name)} package\n"
                                  f"sed -i 's/{OLDER}/{NEWER}/g' package/DEBIAN/control\n"
                                  f"dpkg-deb -b package {self.deb(name, NEWER)}; rm -r package")

    def assert_serves(self, root):
        page = root.run(f"php{self.php}", PAGE)
        self.assertIn("Records (1..2) of 2", page)
        self.assertIn(f"\nversion {VERSION}\n", page)
        self.assertNotIn("Warning", page)

    def files_of_dralo(self, root):
        return root.run("sh", "-c", "find / -xdev -path /proc -prune -o -iname '*dralo*' -not -path '/root/*' -print").split()

    def test_lintian_finds_no_error(self):
        said = self.builder.run("sh", "-c", "cd /root/work && lintian --allow-root --fail-on error *.changes")
        print(said, file=sys.stderr)

    def test_there_is_one_for_each_purpose(self):
        names = {path.name.partition("_")[0] for path in self.debs}
        self.assertEqual(names, {f"php{self.php}-dralo", "php-dralo", "dralo-common", "libdralo1", "libdralo-dev",
                                 "dralo-serve"})
        self.assertEqual(self.php, {"bookworm": "8.2", "trixie": "8.4"}[self.suite])

    def test_the_extension_is_installed_upgraded_and_removed(self):
        root = self.machine()
        extension = f"php{self.php}-dralo"
        root.install(f"php{self.php}-cli", f"php{self.php}-cgi")
        before = self.files_of_dralo(root)
        root.install(*map(self.deb, (extension, "php-dralo", "dralo-common")))
        self.assert_serves(root)
        for sapi in ("cli", "cgi"):
            self.assertTrue(root.inside(f"/etc/php/{self.php}/{sapi}/conf.d/20-dralo.ini").is_symlink(), sapi)
        for name in ("dralo.css", "dralo.js", "dralo.stub.php", "gfx/nextpg.gif"):
            self.assertTrue(root.inside(f"/usr/share/dralo/{name}").is_file(), name)

        self.make_newer(root, extension, "php-dralo", "dralo-common")
        root.install(*(self.deb(name, NEWER) for name in (extension, "php-dralo", "dralo-common")))
        self.assertIn(NEWER, root.run("dpkg-query", "-W", "-f", "${Version}", extension))
        self.assert_serves(root)

        root.run("apt-get", "remove", "-q", "-y", extension, "php-dralo")
        self.assertEqual(root.run(f"php{self.php}", "-r", "echo extension_loaded('dralo') ? 'loaded' : 'gone';"), "gone")
        root.run("dpkg", "--purge", extension, "dralo-common")
        self.assertEqual(self.files_of_dralo(root), before)

    def test_what_an_administrator_switches_off_stays_off(self):
        root = self.machine()
        extension = f"php{self.php}-dralo"
        root.install(f"php{self.php}-cli")
        root.install(self.deb(extension))
        root.run("phpdismod", "dralo")
        self.make_newer(root, extension)
        root.install(self.deb(extension, NEWER))
        self.assertEqual(root.run(f"php{self.php}", "-r", "echo extension_loaded('dralo') ? 'on' : 'off';"), "off")

    def test_programs_are_built_with_the_library(self):
        root = self.machine()
        root.install("g++", "cmake", "make", "pkgconf", self.deb("libdralo1"), self.deb("libdralo-dev"))
        self.assertNotEqual(root.attempt("dpkg", "-s", "libsqlite3-dev").returncode, 0, "more is installed than a program needs")
        shutil.copytree(ROOT / "tests/install", root.inside("/root/install"))
        root.run("sh", "-ec", """cd /root/install/find_package; cmake -B /root/found .; cmake --build /root/found
            cd /root/install; c++ shop.cpp -o /root/asked $(pkg-config --cflags --libs dralo)""")
        for program in ("/root/found/shop", "/root/asked"):
            self.assertEqual(root.run(program), "the library works\n")

    def test_a_database_is_served_and_the_program_removed(self):
        root = self.machine()
        before = self.files_of_dralo(root)
        root.install(self.deb("libdralo1"), self.deb("dralo-serve"))
        self.assertTrue(root.inside("/usr/share/man/man1/dralo-serve.1.gz").is_file())
        subprocess.run([ROOT / "site/data/make_shop.py", root.inside("/srv/shop.db")], stdout=subprocess.DEVNULL, check=True)
        server, output = root.start("nobody", ["dralo-serve", "/srv/shop.db", "--port", "0"])
        self.addCleanup(self.end, server, output)
        address = re.fullmatch(r"shop.db is at (http://\S+/) for reading; Ctrl-C stops it\n", output.readline())[1]
        with urllib.request.urlopen(f"{address}table/Customers", timeout=60) as page:
            self.assertIn("Records (1..25) of 400", page.read().decode())
        server.terminate()
        self.assertEqual(server.wait(60), 0)

        root.run("dpkg", "--purge", "dralo-serve", "libdralo1")
        self.assertEqual(self.files_of_dralo(root), before)

    @staticmethod
    def end(server, output):
        server.terminate()
        server.wait(60)
        output.close()


if __name__ == "__main__":
    run()
