#!/usr/bin/env python3
"""Shows that tools/check_layers finds what it is for, in small trees made up here."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECKER = Path(__file__).resolve().parent.parent.parent / "tools" / "check_layers"


def check(files):
    """Exit status and output of the checker over a tree of these files."""
    with tempfile.TemporaryDirectory() as root:
        for name, text in files.items():
            path = Path(root, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        result = subprocess.run([sys.executable, CHECKER, root], capture_output=True, text=True, check=False)
        return result.returncode, result.stdout


class CheckLayers(unittest.TestCase):
    def test_accepts_includes_down_the_layers(self):
        status, _ = check({"src/platform/a.h": "#include <string>", "src/html/b.cpp": '#include "platform/a.h"'})
        self.assertEqual(status, 0)

    def test_refuses_includes_up_the_layers(self):
        status, output = check({"src/views/a.h": "", "src/text/b.cpp": '#include "views/a.h"'})
        self.assertEqual((status, output), (1, "src/text/b.cpp: views/a.h: src/text may not include src/views\n"))

    def test_refuses_a_library_outside_its_folder(self):
        status, output = check({"src/cells/a.cpp": "#include <sqlite3.h>"})
        self.assertEqual(status, 1)
        self.assertIn("only src/database/sqlite may use SQLite", output)

    def test_keeps_the_two_parts_of_icu_in_a_folder_each(self):
        status, output = check({"src/regional/a.cpp": "#include <unicode/uchar.h>", "src/text/b.cpp": "#include <unicode/uloc.h>"})
        self.assertEqual((status, output), (
            1, "src/regional/a.cpp: unicode/uchar.h: only src/text may use ICU's characters\n"
               "src/text/b.cpp: unicode/uloc.h: only src/regional may use ICU's formatting\n"))

    def test_keeps_what_programs_include_out_of_the_layers_below(self):
        status, output = check({"include/dralo/page.h": "", "include/dralo/error.h": "",
                                "src/component/a.cpp": "#include \"dralo/error.h\"\n#include \"dralo/page.h\""})
        self.assertEqual((status, output), (
            1, "src/component/a.cpp: dralo/page.h: src/component may not include include/dralo of programs\n"))

    def test_refuses_files_that_include_each_other(self):
        status, output = check({"src/text/a.h": '#include "text/b.h"', "src/text/b.h": '#include "text/a.h"'})
        self.assertEqual((status, output), (1, "circle: src/text/a.h -> src/text/b.h -> src/text/a.h\n"))

    def test_refuses_targets_that_link_up_the_layers(self):
        status, output = check({"src/text/CMakeLists.txt": "dralo_folder(text dralo_views)",
                                "src/views/CMakeLists.txt": "dralo_folder(views dralo_cells)"})
        self.assertEqual((status, output), (1, "src/text/CMakeLists.txt: src/text may not link src/views\n"))

    def test_refuses_targets_that_link_each_other(self):
        status, output = check({"src/text/CMakeLists.txt": "dralo_folder(text dralo_html)",
                                "src/html/CMakeLists.txt": "dralo_folder(html dralo_text)"})
        self.assertEqual(status, 1)
        self.assertIn("circle: src/html -> src/text -> src/html", output)

    def test_refuses_a_document_that_tells_other_arrows(self):
        table = (CHECKER.parent.parent / "docs/architecture.md").read_text(encoding="utf-8")
        self.assertEqual(check({"docs/architecture.md": table}), (0, "0 files keep to their layers\n"))
        wrong = table.replace("| `src/html` | ", "| `src/html_writer` | ")
        self.assertEqual(check({"docs/architecture.md": wrong})[0], 1)

    def test_refuses_a_folder_that_is_in_no_layer(self):
        status, output = check({"src/manager/a.h": ""})
        self.assertEqual((status, output), (1, "src/manager/a.h: its folder is in no layer\n"))


if __name__ == "__main__":
    unittest.main()
