"""tools/setup where there is no apt: one line says what is needed, and whoever has it goes on."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SETUP = pathlib.Path(__file__).resolve().parents[2] / "tools/setup"


class WithoutApt(unittest.TestCase):
    def run_setup(self, section):
        with tempfile.TemporaryDirectory() as folder:
            for program in ("bash", "dirname"):
                pathlib.Path(folder, program).symlink_to(shutil.which(program))
            return subprocess.run(["bash", SETUP, section], env={"PATH": folder}, capture_output=True, text=True)

    def test_one_line_lists_what_building_needs(self):
        listed = self.run_setup("list").stdout.split()
        self.assertIn("php-dev", listed)
        run = self.run_setup("build")
        self.assertEqual(run.returncode, 0)
        [line] = (run.stdout + run.stderr).splitlines()
        for package in listed:
            self.assertIn(f" {package}", line)
        self.assertIn(" php-dev>=2:8.2 ", line)
        self.assertNotIn("valgrind", line)


if __name__ == "__main__":
    unittest.main()
