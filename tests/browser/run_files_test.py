#!/usr/bin/env python3
"""Cases that fail in every way there is are counted by run_files.py, and those behind them are run."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

HERE = pathlib.Path(__file__).resolve().parent
NODE = sys.argv.pop(1)
IMPORT = f'import {{ test }} from "{(HERE / "cases.mjs").as_uri()}";\n'

FILES = {
    "one": IMPORT + '''
        test("passes", () => {});
        test("fails", () => { throw new Error("on purpose"); });
        test("fails behind its end", (t) => { t.after(() => { throw new Error("on purpose"); }); });
        test("ends the process", () => process.exit(0));
        test("throws where nobody catches", () => new Promise(() => setTimeout(() => { throw new Error("lost"); }, 1)));
        test("never ends", () => new Promise(() => {}));
        test("passes at last", async () => {});''',
    "other": IMPORT + 'test("passes", () => {});',
    "twins": IMPORT + 'test("twin", () => {}); test("twin", () => {});',
    "empty": "",
    "broken": "import { nothing } from 'node:nowhere';",
    "strange": IMPORT + 'import { test as other } from "node:test"; test("is", () => {}); other("is not counted", () => {});',
}
PASSED = {"browser.one: passes", "browser.one: passes at last", "browser.other: passes"}
FAILED = {"browser.one: fails", "browser.one: fails behind its end", "browser.one: ends the process",
          "browser.one: throws where nobody catches", "browser.one: never ends", "browser.twins", "browser.empty",
          "browser.broken", "browser.strange"}


class RunFiles(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="dralo-run-files-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.results = self.folder / "cases/cases.browser.xml"

    def run_files(self, names, regex=""):
        files = [self.folder / f"{name}.test.mjs" for name in names]
        for name, file in zip(names, files):
            file.write_text(FILES[name])
        run = subprocess.run([sys.executable, "-B", HERE / "run_files.py", NODE, self.results, *files],
                             env={**os.environ, "DRALO_CASES": regex}, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                             text=True)
        cases = list(ElementTree.parse(self.results).iter("testcase"))
        failed = {case.get("name") for case in cases if case.find("failure") is not None}
        return run.returncode, {case.get("name") for case in cases} - failed, failed, run.stdout.splitlines()[-1]

    def test_every_case_is_counted_however_it_ends(self):
        self.assertEqual(self.run_files(FILES), (1, PASSED, FAILED, "3 cases passed, 9 failed"))

    def test_only_cases_that_match_are_run(self):
        passed = {"browser.other: passes"}
        self.assertEqual(self.run_files(["one", "other"], "other: "), (0, passed, set(), "1 cases passed, 0 failed"))
        self.assertEqual(self.run_files(["other"], "^cases[.]browser$"), (0, passed, set(), "1 cases passed, 0 failed"))
        self.assertEqual(self.run_files(["one"], "nothing"), (0, set(), set(), "0 cases passed, 0 failed"))

    def test_what_goes_wrong_at_the_end_fails(self):
        FILES["late"] = IMPORT.replace("test }", "atTheEnd, test }") + '''
            test("passes", () => {});
            atTheEnd(() => { throw new Error("on purpose"); });'''
        status, passed, failed, _ = self.run_files(["late"])
        self.assertEqual((status, passed, failed), (1, {"browser.late: passes"}, {"browser.EndsWell"}))


if __name__ == "__main__":
    unittest.main()
