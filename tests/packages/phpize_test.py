#!/usr/bin/env python3
"""The extension as PHP's own tools build it, from an archive of the sources: phpize, configure, make, make install.

usage: phpize_test.py [TEST...]
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path.append(str(ROOT / "tests/support"))

from php_programs import php_program  # noqa: E402

PHP_CONFIG = os.environ.get("PHP_CONFIG", "php-config")
PHPIZE = PHP_CONFIG.replace("php-config", "phpize")
# Says of the real one all but its version.
OTHER_PHP = """#!/bin/sh
case $1 in
  --vernum) echo {number} ;;
  --version) echo {version} ;;
  *) exec {php_config} "$@" ;;
esac
"""


def asked(*command):
    return subprocess.run(command, cwd=ROOT, capture_output=True, text=True, check=True).stdout.strip()


def page_by(php, *options):
    """What tests/packages/page.php writes."""
    return subprocess.run([php, *options, HERE / "page.php"], capture_output=True, text=True, check=True).stdout


class Built(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-phpize-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.source = cls.folder / "source"
        cls.source.mkdir()
        # With what is changed but not committed yet.
        tree = asked("git", "stash", "create") or "HEAD"
        archive = subprocess.run(["git", "archive", tree], cwd=ROOT, stdout=subprocess.PIPE, check=True).stdout
        subprocess.run(["tar", "-x"], cwd=cls.source, input=archive, check=True)
        cls.run_in(cls.source, PHPIZE)

    @staticmethod
    def run_in(folder, *command):
        done = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if done.returncode != 0:
            raise AssertionError(f"{command}\n{done.stdout}")

    def build_folder(self):
        """One beside the sources for each test, so that none sees what another has configured."""
        folder = self.folder / self.id().rpartition(".")[2]
        folder.mkdir()
        return folder

    def configure(self, *options, **environment):
        return subprocess.run([self.source / "configure", *options], cwd=self.build_folder(), env=os.environ | environment,
                              capture_output=True, text=True)

    def assert_refuses(self, run, *texts):
        """In one line, which has all of the texts."""
        self.assertNotEqual(run.returncode, 0, run.stdout)
        # PHP 8.4's own part complains when there is no terminal.
        [line] = [line for line in run.stderr.splitlines() if line and not line.startswith("shtool:")]
        for text in texts:
            self.assertIn(text, line)

    def libraries_without(self, *names):
        """A folder for pkg-config with every library of the machine but these."""
        folder = self.folder / f"without-{'-'.join(names)}"
        folder.mkdir()
        for place in asked("pkg-config", "--variable=pc_path", "pkg-config").split(":"):
            for path in pathlib.Path(place).glob("*.pc"):
                if path.stem not in names and not (folder / path.name).exists():
                    (folder / path.name).symlink_to(path)
        return {"PKG_CONFIG_LIBDIR": str(folder)}

    def other_php(self, version, number):
        script = self.folder / f"php-config-{version}"
        script.write_text(OTHER_PHP.format(version=version, number=number, php_config=shutil.which(PHP_CONFIG)))
        script.chmod(0o755)
        return f"--with-php-config={script}"

    def test_is_installed_and_serves_a_page(self):
        self.run_in(self.source, "./configure", f"--with-php-config={shutil.which(PHP_CONFIG)}")
        self.run_in(self.source, "make", f"-j{len(os.sched_getaffinity(0))}")
        self.run_in(self.source, "make", "install", f"INSTALL_ROOT={self.folder}/installed")
        installed = self.folder / "installed"
        [extension] = installed.rglob("dralo.so")
        self.assertEqual(str(extension.parent), f"{installed}{asked(PHP_CONFIG, '--extension-dir')}")
        page = page_by(php_program("php"), "-n", "-d", f"extension={extension}")
        self.assertIn("Records (1..2) of 2", page)
        self.assertLess(page.index("salt"), page.index("tea"))
        self.assert_is_complete(extension, page)
        self.assert_brings_what_sites_copy(installed)

    def assert_is_complete(self, extension, page):
        [version] = re.findall(r"^project\(dralo VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)
        self.assertIn(f"\nversion {version}\n", page)
        names = asked("nm", "-D", "--defined-only", str(extension)).split()
        self.assertEqual(names[2::3], ["get_module"])
        for database in ("postgresql", "mariadb", "odbc"):
            self.assertTrue(list((self.source / f"src/database/{database}").glob("*.lo")), f"{database} is left out")

    def assert_brings_what_sites_copy(self, installed):
        [theme] = installed.rglob("dralo.css")
        self.assertEqual(theme.parent.parts[-2:], ("share", "dralo"))
        names = {str(path.relative_to(theme.parent)) for path in theme.parent.rglob("*.*")}
        images = {f"gfx/{path.name}" for path in (ROOT / "assets/gfx").glob("*.gif")}
        self.assertEqual(names, images | {"dralo.css", "dralo.js", "dralo.stub.php"})

    def test_leaves_out_a_database_whose_headers_are_missing(self):
        run = self.configure(**self.libraries_without("libpq"))
        self.assertEqual(run.returncode, 0, run.stderr)
        makefile = (self.folder / self.id().rpartition(".")[2] / "Makefile").read_text()
        self.assertNotIn("src/database/postgresql", makefile)
        self.assertNotIn("DRALO_HAS_POSTGRESQL", makefile)
        self.assertIn("src/database/mariadb", makefile)
        self.assertIn("DRALO_HAS_MARIADB", makefile)

    def test_leaves_out_a_database_that_nobody_wants(self):
        run = self.configure("--without-dralo-odbc")
        self.assertEqual(run.returncode, 0, run.stderr)
        makefile = (self.folder / self.id().rpartition(".")[2] / "Makefile").read_text()
        self.assertNotIn("src/database/odbc", makefile)
        self.assertNotIn("-lodbc", makefile)

    def test_refuses_a_database_that_was_asked_for_and_cannot_be_had(self):
        run = self.configure("--with-dralo-mariadb", **self.libraries_without("libmariadb"))
        self.assert_refuses(run, "--with-dralo-mariadb", "libmariadb", "install", "--without-dralo-mariadb")

    def test_refuses_to_do_without_a_library(self):
        self.assert_refuses(self.configure(**self.libraries_without("libpcre2-8")), "libpcre2-8", "install libpcre2-dev")

    def test_refuses_an_older_php(self):
        self.assert_refuses(self.configure(self.other_php("8.1.33", 80133)), "PHP 8.2 to 8.4", "PHP 8.1.33", "--with-php-config")

    def test_refuses_a_newer_php(self):
        self.assert_refuses(self.configure(self.other_php("8.5.0", 80500)), "PHP 8.2 to 8.4", "PHP 8.5.0", "--with-php-config")

    def test_refuses_an_option_that_there_is_not(self):
        run = self.configure("--enable-option-checking=fatal", "--with-dralo-oracle")
        self.assert_refuses(run, "--with-dralo-oracle")


if __name__ == "__main__":
    unittest.main()
