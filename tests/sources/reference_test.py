#!/usr/bin/env python3
"""The reference of the C++ interface: that it has every public class, and that tools/reference notices what is not documented."""

import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Reference(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-reference-"))
        self.addCleanup(shutil.rmtree, self.folder)
        for name in ("CMakeLists.txt", "docs/Doxyfile", "docs/reference.md", "tools/reference"):
            (self.folder / name).parent.mkdir(exist_ok=True)
            shutil.copy(ROOT / name, self.folder / name)
        self.headers = shutil.copytree(ROOT / "include/dralo", self.folder / "include/dralo")

    def make(self):
        return subprocess.run([self.folder / "tools/reference"], capture_output=True, text=True, check=False)

    def test_has_every_public_class(self):
        answer = self.make()
        self.assertEqual((answer.returncode, answer.stderr), (0, ""))
        html = self.folder / "build/reference/html"
        listed = (html / "annotated.html").read_text()
        text = "".join(header.read_text() for header in self.headers.iterdir())
        classes = set(re.findall(r"^(?:class|struct) (?:DRALO_EXPORT )?(\w+)(?: final)?(?: :[^;{]*)? \{$", text, re.MULTILINE))
        self.assertLessEqual({"DbView", "Page", "Recordset", "DateTime"}, classes)
        self.assertEqual([name for name in classes if f">{name}<" not in listed], [])
        self.assertIn("Threads and lifetimes", (html / "index.html").read_text())

    def test_notices_a_function_without_a_word(self):
        header = self.headers / "environment.h"
        header.write_text(header.read_text().replace(" private:\n", "  void Undocumented();\n\n private:\n"))
        answer = self.make()
        self.assertNotEqual(answer.returncode, 0)
        self.assertRegex(answer.stderr, r"Undocumented\(\).*is not documented")

    def test_notices_a_class_without_a_word(self):
        header = self.headers / "site.h"
        header.write_text(header.read_text().replace("/// What holds for all pages of a process.", "// What holds for all pages."))
        answer = self.make()
        self.assertNotEqual(answer.returncode, 0)
        self.assertRegex(answer.stderr, r"Site.* is not documented")


if __name__ == "__main__":
    unittest.main()
