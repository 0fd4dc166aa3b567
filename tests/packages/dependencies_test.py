#!/usr/bin/env python3
"""vcpkg.json and conanfile.txt name the libraries that CMake looks for.

usage: dependencies_test.py VERSION [TEST...]      VERSION is the one that CMake has read
"""

import json
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# As CMake finds it: the option that leaves it out, the port of vcpkg, the package of Conan.
LIBRARIES = {
    "SQLite3": (None, "sqlite3", "sqlite3"),
    "ICU": (None, "icu", "icu"),
    "libpcre2-8": (None, "pcre2", "pcre2"),
    "ODBC": ("odbc", "unixodbc", "odbc"),
    "libpq": ("postgresql", "libpq", "libpq"),
    "libmariadb": ("mariadb", "libmariadb", "mariadb-connector-c"),
}


# For dralo-serve, not for the library.
OF_PROGRAMS = {"cpp-httplib"}


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


class Dependencies(unittest.TestCase):
    version = None

    def setUp(self):
        self.vcpkg = json.loads(read("vcpkg.json"))
        self.conan = dict(re.findall(r"^([a-z0-9-]+)/\[>=([\d.]+)\]$", read("conanfile.txt"), re.MULTILINE))

    def test_are_those_that_cmake_looks_for(self):
        cmake = read("CMakeLists.txt")
        found = set(re.findall(r"^ *find_package\((\w+)", cmake, re.MULTILINE)) - {"PkgConfig"}
        modules = re.findall(r"^ *pkg_check_modules\(\w+ (?:QUIET|REQUIRED)(?: IMPORTED_TARGET)? ([\w.-]+)", cmake, re.MULTILINE)
        self.assertEqual((found | set(modules)) - OF_PROGRAMS, set(LIBRARIES))

    def test_of_vcpkg(self):
        self.assertEqual(self.vcpkg["version"], self.version)
        self.assertEqual(set(self.vcpkg["dependencies"]), {port for option, port, _ in LIBRARIES.values() if option is None})
        features = {name: set(feature["dependencies"]) for name, feature in self.vcpkg["features"].items()}
        self.assertEqual(features, {option: {port} for option, port, _ in LIBRARIES.values() if option})
        self.assertEqual(set(self.vcpkg["default-features"]), set(features))

    def test_of_vcpkg_are_left_out_by_options_of_cmake(self):
        for name in self.vcpkg["features"]:
            self.assertIn(f"option(DRALO_{name.upper()} ", read("CMakeLists.txt"))

    def test_of_conan(self):
        self.assertEqual(set(self.conan), {package for _, _, package in LIBRARIES.values()})
        self.assertIn("PkgConfigDeps", read("conanfile.txt"))

    def test_are_as_new_as_those_of_debian(self):
        debian = dict(re.findall(r"'([\w-]+)-dev>=(?:\d+:)?([\d.]+)'", read("tools/setup")))
        for package, library in (("icu", "libicu"), ("pcre2", "libpcre2"), ("sqlite3", "libsqlite3"), ("odbc", "unixodbc")):
            self.assertEqual(self.conan[package], debian[library])


if __name__ == "__main__":
    Dependencies.version = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
