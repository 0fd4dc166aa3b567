#!/usr/bin/env python3
"""Every case is counted, however it ends.

usage: run_cases_test.py PROGRAM       that of cases_that_end_early.cpp
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).parents[2]
WHOLE = """<testsuite><testcase name="cases.x" status="{}"/><testcase name="other" status="run"/></testsuite>"""


class EveryCase(unittest.TestCase):
    program = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_cases(self, regex=""):
        run = subprocess.run([ROOT / "tests/support/run_cases.py", "x", self.program, self.folder / "cases/cases.x.xml"],
                             env=os.environ | {"DRALO_CASES": regex}, capture_output=True, text=True)
        return run.returncode, run.stdout

    def sum_up(self, status):
        (self.folder / "results.xml").write_text(WHOLE.format(status))
        run = subprocess.run([ROOT / "tools/sum_results", self.folder], capture_output=True, text=True)
        return run.returncode, run.stdout.splitlines()

    def test_is_counted_however_it_ends(self):
        status, said = self.run_cases(r"Ends|Numbered")
        self.assertEqual(status, 1)
        for line in ("Ends.WithAFailure failed", "the reason", "Ends.Skipped was skipped",
                     "Ends.ByASignal ended the program with -6", "Ends.WithTheProgram ended the program with 0"):
            self.assertIn(line, said)
        failed = ["Ends.WithAFailure", "Ends.Skipped", "Ends.ByASignal", "Ends.WithTheProgram", "Ends.DISABLED_Never",
                  "Parameter/Numbered.Fails/0"]
        status, lines = self.sum_up("fail")
        self.assertEqual((status, lines[-1]), (1, f"3 passed, {len(failed)} failed"))
        self.assertEqual(set(lines[:-1]), {f"FAILED: {name}" for name in failed})

    def test_is_chosen_by_its_name(self):
        self.assertEqual(self.run_cases(r"^Ends\.Well"), (0, "2 cases passed, 0 failed\n"))
        self.assertEqual(self.sum_up("run"), (0, ["3 passed, 0 failed"]))
        self.assertEqual(self.run_cases("nothing"), (0, "0 cases passed, 0 failed\n"))
        self.assertEqual(self.sum_up("run"), (0, ["1 passed, 0 failed"]))

    def test_can_be_followed_by_a_failure_of_the_program(self):
        status, said = self.run_cases(r"Leaves")
        self.assertEqual(status, 1)
        self.assertIn(".EndsWell ended with 9", said)
        status, lines = self.sum_up("fail")
        self.assertEqual((status, lines[-1]), (1, "2 passed, 1 failed"))

    def test_has_failed_when_nothing_was_written_about_it(self):
        self.assertEqual(self.sum_up("fail"), (1, ["FAILED: cases.x", "1 passed, 1 failed"]))
        self.run_cases(r"^Ends\.Well")
        self.assertEqual(self.sum_up("fail"), (1, ["FAILED: cases.x", "3 passed, 1 failed"]))


if __name__ == "__main__":
    EveryCase.program = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])
