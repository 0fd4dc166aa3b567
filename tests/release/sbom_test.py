#!/usr/bin/env python3
"""The list of parts that tools/make_sbom prints: that it has the shape of SPDX 2.3, and the parts that the build and the tests have."""

import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from own_repository import ROOT, Repository

NEEDED = ("CMakeLists.txt", "LICENSE", "tests/browser/package-lock.json", "tools")
RELATIONS = {"DESCRIBES", "DEPENDENCY_OF", "OPTIONAL_DEPENDENCY_OF", "BUILD_DEPENDENCY_OF", "TEST_DEPENDENCY_OF"}


def make(repository, moment="0"):
    return repository.run("make_sbom", "LICENSE", env=os.environ | {"SOURCE_DATE_EPOCH": moment})


class Sbom(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-sbom-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.repository = Repository.of_these_files(cls.folder / "original", *NEEDED)
        cls.document = json.loads(make(cls.repository, "1767225600").stdout)
        cls.packages = {package["SPDXID"]: package for package in cls.document["packages"]}
        cls.relations = {relation["spdxElementId"]: relation for relation in cls.document["relationships"]}

    def test_the_document_says_what_it_is(self):
        document = self.document
        self.assertEqual([document[key] for key in ("spdxVersion", "dataLicense", "SPDXID")], ["SPDX-2.3", "CC0-1.0", "SPDXRef-DOCUMENT"])
        self.assertRegex(document["documentNamespace"], r"^urn:uuid:[0-9a-f-]{36}$")
        self.assertEqual(document["creationInfo"]["created"], "2026-01-01T00:00:00Z")
        for creator in document["creationInfo"]["creators"]:
            self.assertRegex(creator, r"^(Tool|Organization|Person): \S")

    def test_every_part_has_what_it_must_have(self):
        self.assertEqual(len(self.packages), len(self.document["packages"]))
        for name, package in self.packages.items():
            self.assertRegex(name, r"^SPDXRef-[A-Za-z0-9.-]+$")
            self.assertTrue(package["name"])
            self.assertEqual((package["downloadLocation"], package["filesAnalyzed"]), ("NOASSERTION", False))
            self.assertRegex(package["licenseDeclared"], r"^[A-Za-z0-9.+-]+$")
            for reference in package["externalRefs"]:
                self.assertEqual((reference["referenceCategory"], reference["referenceType"]), ("PACKAGE-MANAGER", "purl"))
                self.assertRegex(reference["referenceLocator"], r"^pkg:(deb/debian|npm|generic)/[A-Za-z0-9%.-]+(@[\w.-]+)?$")

    def test_every_part_has_one_relation_to_the_component(self):
        self.assertEqual(set(self.relations), set(self.packages) - {"SPDXRef-dralo"} | {"SPDXRef-DOCUMENT"})
        self.assertEqual(len(self.relations), len(self.document["relationships"]))
        self.assertEqual({relation["relationshipType"] for relation in self.relations.values()}, RELATIONS)
        self.assertEqual({relation["relatedSpdxElement"] for relation in self.relations.values()}, {"SPDXRef-dralo"})

    def test_the_component_is_the_archive(self):
        package = self.packages["SPDXRef-dralo"]
        digest = hashlib.sha256((ROOT / "LICENSE").read_bytes()).hexdigest()
        self.assertEqual(package["checksums"], [{"algorithm": "SHA256", "checksumValue": digest}])
        self.assertIn(f"VERSION {package['versionInfo']} ", (ROOT / "CMakeLists.txt").read_text())
        self.assertEqual(package["licenseDeclared"], "MIT")

    def test_what_a_build_installs_is_there(self):
        listed = subprocess.run([ROOT / "tools/setup", "list"], check=True, capture_output=True, text=True).stdout.split()
        self.assertGreater(len(listed), 5)
        of_build = {package["name"] for name, package in self.packages.items()
                    if name != "SPDXRef-dralo" and self.relations[name]["relationshipType"] != "TEST_DEPENDENCY_OF"}
        self.assertEqual(set(listed) - of_build, set())

    def test_libraries_are_needed_or_optional_as_the_build_says(self):
        relation = {name: self.relations[f"SPDXRef-deb-{name}"]["relationshipType"] for name in
                    ("libsqlite3-dev", "libpcre2-dev", "libicu-dev", "unixodbc-dev", "libpq-dev", "cmake", "valgrind")}
        self.assertEqual(list(relation.values()), ["DEPENDENCY_OF"] * 3 + ["OPTIONAL_DEPENDENCY_OF"] * 2 +
                         ["BUILD_DEPENDENCY_OF", "TEST_DEPENDENCY_OF"])
        self.assertEqual(self.packages["SPDXRef-deb-libicu-dev"]["comment"], "72 or newer")
        self.assertRegex(self.packages["SPDXRef-npm-playwright-core"]["versionInfo"], r"^\d+\.\d+\.\d+$")

    def test_a_library_that_the_list_does_not_know_is_an_error(self):
        repository = self.repository.clone(self.folder / "unknown")
        cmake = repository.folder / "CMakeLists.txt"
        cmake.write_text(cmake.read_text() + "find_package(Zlib REQUIRED)\n")
        answer = make(repository)
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertRegex(answer.stderr, r"looks for Zlib")

    def test_a_library_that_setup_does_not_install_is_an_error(self):
        repository = self.repository.clone(self.folder / "missing")
        setup = repository.folder / "tools/setup"
        setup.write_text(re.sub(r"'libicu-dev>=\d+'", "", setup.read_text()))
        answer = make(repository)
        self.assertEqual((answer.returncode, answer.stdout), (1, ""))
        self.assertRegex(answer.stderr, r"does not install libicu-dev")


if __name__ == "__main__":
    unittest.main()
