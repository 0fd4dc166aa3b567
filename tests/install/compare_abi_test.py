#!/usr/bin/env python3
"""What the comparison of two shared libraries notices, shown on small ones."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from compare_abi import differences

HEADER = """struct Part { int number; };
struct Inner;
class Whole {
 public:
  virtual ~Whole();
  virtual int First() const;
  Part GivePart();
  Inner* inner;
};
"""
SOURCE = """#include "whole.h"
struct Inner { int hidden; };
Whole::~Whole() { delete inner; }
int Whole::First() const { return inner->hidden; }
Part Whole::GivePart() { return {}; }
"""


class Comparison(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-abi-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.old = self.library("old", HEADER, SOURCE)

    def library(self, name, header, source):
        folder = self.folder / name
        folder.mkdir(exist_ok=True)
        (folder / "whole.h").write_text(header)
        (folder / "whole.cpp").write_text(source)
        library = folder / "libwhole.so"
        subprocess.run([os.environ.get("CXX", "c++"), "-g", "-shared", "-fPIC", folder / "whole.cpp", "-o", library], check=True)
        return library, folder

    def differences(self, header=HEADER, source=SOURCE):
        return differences(self.old, self.library("new", header, source))

    def test_equal_libraries_are_equal(self):
        self.assertEqual(self.differences(), "")

    def test_new_names_and_what_only_the_library_sees_do_not_count(self):
        self.assertEqual(self.differences(HEADER + "void More();\n", SOURCE.replace("int hidden", "long long hidden, more") +
                                          "void More() {}\n"), "")

    def test_what_a_class_points_to_does_not_count_whatever_its_header_is_called(self):
        pointing = HEADER.replace("struct Inner;", "namespace dralo::component { struct Inner; }\nusing dralo::component::Inner;")
        source = SOURCE.replace("struct Inner { int hidden; };", '#include "behind/whole.h"')
        for name, hidden in (("two", "int hidden;"), ("three", "long long hidden, more;")):
            (self.folder / name / "behind").mkdir(parents=True)
            (self.folder / name / "behind/whole.h").write_text(f"namespace dralo::component {{ struct Inner {{ {hidden} }}; }}\n")
        two, three = (self.library(name, pointing, source) for name in ("two", "three"))
        self.assertEqual(differences(two, three), "")

    def test_a_function_that_is_missing_counts(self):
        without = HEADER.replace("  Part GivePart();\n", ""), SOURCE.replace("Part Whole::GivePart() { return {}; }\n", "")
        self.assertIn("GivePart", self.differences(*without))

    def test_the_layout_of_a_type_counts(self):
        self.assertIn("Part", self.differences(HEADER.replace("int number", "int number, more")))

    def test_the_order_of_virtual_functions_counts(self):
        before = HEADER.replace("  virtual int First", "  virtual int Before() const;\n  virtual int First")
        self.assertIn("First", self.differences(before, SOURCE + "int Whole::Before() const { return 1; }\n"))

    def test_a_file_that_is_no_library_is_an_error(self):
        with self.assertRaises(RuntimeError):
            differences(self.old, (self.folder / "old/whole.h", self.folder))


if __name__ == "__main__":
    unittest.main()
