#!/usr/bin/env python3
"""config.m4 builds what CMake builds: the same folders, databases, libraries and version. composer.json offers that.

usage: build_files_test.py VERSION [TEST...]      VERSION is the one that CMake has read
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# For C++ programs alone.
FACADE = "hosts/cpp/facade"


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def sources():
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--", "src", "hosts"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout
    return [path for path in listed.split("\0") if path.endswith(".cpp") and (ROOT / path).exists()]


def macro_calls(text, name):
    """The arguments of each call NAME([..], [..]) without their brackets; quoted ones hold no brackets here."""
    calls = re.findall(rf"^ *{name}\((.*?)\)$", text, re.MULTILINE | re.DOTALL)
    return [re.findall(r"\[([^\[\]]*)\]", call) for call in calls]


class ConfigM4(unittest.TestCase):
    def setUp(self):
        self.text = read("config.m4")
        [listed] = re.findall(r'dralo_folders="(hosts/php[^"]*)"', self.text)
        self.always = set(listed.replace("\\\n", " ").split())
        self.databases = {arguments[0]: arguments for arguments in macro_calls(self.text, "DRALO_DATABASE") if len(arguments) > 2}

    def test_compiles_every_source_but_those_of_other_programs(self):
        folders = {str(pathlib.PurePosixPath(path).parent) for path in sources()} - {FACADE}
        optional = {f"src/database/{arguments[1]}" for arguments in self.databases.values()}
        self.assertEqual(self.always | optional, folders)
        self.assertEqual(self.always & optional, set())

    def test_knows_the_folders_of_cmake(self):
        folders = {str(path.parent.relative_to(ROOT)) for path in (ROOT / "src").rglob("CMakeLists.txt")
                   if "dralo_folder(" in path.read_text() and list(path.parent.glob("*.cpp"))}
        self.assertEqual({folder for folder in self.always if folder.startswith("src/")},
                         {folder for folder in folders if pathlib.PurePosixPath(folder).name.upper() not in self.databases})

    def test_leaves_out_the_same_databases(self):
        optional = re.findall(r"if\(DRALO_(\w+)\)\s+add_subdirectory\((\w+)\)", read("src/database/CMakeLists.txt"))
        self.assertEqual({name: arguments[1] for name, arguments in self.databases.items()}, dict(optional))

    def test_tells_the_sources_which_databases_there_are(self):
        self.assertIn("-DDRALO_HAS_$1", self.text)
        defined = re.findall(r"PRIVATE DRALO_HAS_(\w+)\)", read("hosts/cpp/CMakeLists.txt"))
        self.assertEqual(set(self.databases), set(defined))

    def test_has_an_option_for_each_of_them(self):
        options = {arguments[0] for arguments in macro_calls(self.text, "PHP_ARG_WITH")}
        self.assertEqual(options, {f"dralo-{arguments[1]}" for arguments in self.databases.values()})

    def test_asks_for_the_same_client_libraries(self):
        cmake = dict(re.findall(r"pkg_check_modules\((\w+) QUIET ([^\s)]+)\)", read("CMakeLists.txt")))
        for name, module in (("POSTGRESQL", "LIBPQ"), ("MARIADB", "LIBMARIADB")):
            self.assertEqual(self.databases[name][2].replace(" ", ""), cmake[module])

    def test_asks_for_a_library_for_each_that_cmake_links(self):
        modules = " ".join(arguments[1] for arguments in macro_calls(self.text, "DRALO_NEEDS") if len(arguments) > 2)
        linked = "".join(path.read_text() for path in (ROOT / "src").rglob("CMakeLists.txt"))
        names = {"SQLite::SQLite3": "sqlite3", "ICU::i18n": "icu-i18n", "ICU::uc": "icu-uc", "PkgConfig::PCRE2": "libpcre2-8"}
        self.assertEqual(set(re.findall(r"\b\w+::\w+", linked)) - {"ODBC::ODBC"}, set(names))
        self.assertEqual({re.sub("[<>=].*", "", module) for module in re.sub(r" >= [\d.]+", "", modules).split()},
                         set(names.values()))

    def test_compiles_and_links_the_same_way(self):
        cmake = read("hosts/php/CMakeLists.txt")
        for flag in ("ZEND_ENABLE_STATIC_TSRMLS_CACHE=1", "exports.map", "-Wl,-z,now"):
            self.assertIn(flag, cmake)
            self.assertIn(flag, self.text)

    def test_reads_the_version_that_cmake_has(self):
        [command] = re.findall(r"dralo_version=\$\((.*)\)$", self.text, re.MULTILINE)
        command = command.replace("[[", "[").replace("]]", "]")
        said = subprocess.run(["sh", "-c", command], env={"abs_srcdir": str(ROOT), "PATH": "/usr/bin:/bin"},
                              capture_output=True, text=True, check=True)
        self.assertEqual(said.stdout, self.version + "\n")


class Cmake(unittest.TestCase):
    def configured_for(self, version):
        """The status and what it says, in one line."""
        with tempfile.TemporaryDirectory() as folder:
            php_config = pathlib.Path(folder, "php-config")
            php_config.write_text(f"#!/bin/sh\necho {version}\n")
            php_config.chmod(0o755)
            done = subprocess.run(["cmake", f"-DPHP_CONFIG={php_config}", "-P", ROOT / "cmake/PhpRelease.cmake"],
                                  capture_output=True, text=True)
        return done.returncode, " ".join(done.stderr.split())

    def test_takes_the_releases_of_php_that_config_m4_takes(self):
        least, most = (int(bound) for bound in re.search(r"-lt (\d+) \|\| test .* -ge (\d+);", read("config.m4")).groups())
        [said] = re.findall(r"Dralo is made for PHP [\d.]+ to [\d.]+", read("config.m4"))
        for number in (least, most - 1):
            self.assertEqual(self.configured_for(self.version(number)), (0, ""))
        for number in (least - 1, most):
            status, text = self.configured_for(self.version(number))
            self.assertNotEqual(status, 0)
            self.assertIn(f"{said}, and", text)
            self.assertIn(f"PHP {self.version(number)}: name another one by -DPHP_CONFIG", text)

    @staticmethod
    def version(number):
        return f"{number // 10000}.{number // 100 % 100}.{number % 100}"


class Composer(unittest.TestCase):
    def setUp(self):
        self.configure = read("config.m4")
        self.described = json.loads(read("composer.json"))

    def test_offers_the_options_of_configure(self):
        options = {option["name"] for option in self.described["php-ext"]["configure-options"]}
        self.assertEqual(options, {f"with-{arguments[0]}" for arguments in macro_calls(self.configure, "PHP_ARG_WITH")})

    def test_wants_the_same_php(self):
        least, most = re.search(r"-lt (\d+) \|\| test .* -ge (\d+);", self.configure).groups()
        versions = (f"{number // 10000}.{number // 100 % 100}" for number in (int(least), int(most)))
        self.assertEqual(self.described["require"]["php"], ">={} <{}".format(*versions))

    def test_names_the_module_that_is_built(self):
        self.assertIn(f"PHP_NEW_EXTENSION([{self.described['php-ext']['extension-name']}],", self.configure)


class Debian(unittest.TestCase):
    def test_has_the_version_that_cmake_has(self):
        [version] = re.findall(r"\Adralo \(([^)]*)-\d+\)", read("debian/changelog"))
        self.assertEqual(version, ConfigM4.version)

    def test_names_the_library_after_its_major_version(self):
        name = f"libdralo{ConfigM4.version.partition('.')[0]}"
        self.assertIn(f"\nPackage: {name}\n", read("debian/control.in"))
        self.assertTrue((ROOT / f"debian/{name}.install").exists())

    def test_loads_the_extension_as_early_as_pie_does(self):
        priority = json.loads(read("composer.json"))["php-ext"]["priority"]
        self.assertIn(f"\n; priority={priority}\n", read("debian/dralo.ini"))


class Archive(unittest.TestCase):
    def test_has_every_source(self):
        needed = [*sources(), "composer.json", "config.m4", "CMakeLists.txt", "hosts/php/exports.map", "hosts/php/install.mk",
                  "debian/control.in"]
        said = subprocess.run(["git", "check-attr", "-z", "export-ignore", "--", *needed], cwd=ROOT, capture_output=True,
                              text=True, check=True).stdout.split("\0")
        self.assertEqual({value for value in said[2::3]}, {"unspecified"})


if __name__ == "__main__":
    ConfigM4.version = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
