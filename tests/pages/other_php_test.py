"""PHP with an extension that was compiled for another release of it: within a minor release it works, and whatever cannot
work costs a warning and never the start of PHP.

usage: other_php_test.py PHP PHP_FPM EXTENSION
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

STAMP = re.compile(rb"Dralo is compiled for PHP (\d+)\.(\d+)\.(\d+)")
BUILD_KIND = re.compile(rb"API\d{8},NTS\0")
PAGE = """
$view = new Dralo\\DbView();
$view->ConnectionString = 'Provider=SQLite;Data Source=:memory:';
$view->sql = 'SELECT 7 AS Seven';
$view->WriteHtmlTable();
echo $view->ErrorMessage;
(new ReflectionExtension('dralo'))->info();
"""
REFUSED = """
foreach (['DbView', 'DBConnection', 'Connection', 'Recordset', 'Command', 'Fields'] as $class) {
    try { new ('Dralo\\\\' . $class)(); } catch (Dralo\\Exception $error) { echo $error->getMessage(), "\\n"; }
}
try { Dralo\\CreateObject('Dralo.DbView'); } catch (Dralo\\Exception $error) { echo $error->getMessage(), "\\n"; }
(new ReflectionExtension('dralo'))->info();
"""


def neighbours(number):
    """The numbers before and after, in as many digits."""
    near = [(int(number) + step) % 10 ** len(number) for step in (-1, 1)]
    return [f"{each:0{len(number)}}".encode() for each in near]


class AnotherPhp(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.altered = self.folder / "dralo.so"
        self.bytes = pathlib.Path(self.extension).read_bytes()
        self.stamps = STAMP.findall(self.bytes)
        self.assertEqual(len(self.stamps), 1, "the extension says once what it is compiled for")

    def stamp(self, position, number):
        """Stamps the extension with another number at that position of its version; returns the version."""
        version = [*self.stamps[0]]
        version[position] = number
        version = b".".join(version)
        self.altered.write_bytes(STAMP.sub(b"Dralo is compiled for PHP " + version, self.bytes))
        return version.decode()

    def run_php(self, code):
        return subprocess.run([self.php, "-n", "-d", "display_startup_errors=1", "-d", "html_errors=0", "-d",
                               f"extension={self.altered}", "-r", code], capture_output=True, text=True)

    def check_that_fpm_starts(self):
        configuration = self.folder / "fpm.conf"
        configuration.write_text(f"[global]\nerror_log = {self.folder}/log\n[pages]\nlisten = {self.folder}/socket\n"
                                 "user = nobody\npm = static\npm.max_children = 1\n")
        run = subprocess.run([self.fpm, "-n", "-t", "-y", configuration, "-d", f"extension={self.altered}"],
                             capture_output=True, text=True)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_of_the_same_minor_release_runs_the_extension(self):
        for patch in neighbours(self.stamps[0][2]):
            with self.subTest(patch=patch):
                version = self.stamp(2, patch)
                run = self.run_php(PAGE)
                self.assertIn(f"Compiled for PHP => {version}\n", run.stdout)
                self.assertIn('id="drl1cell_1_1"', run.stdout)
                self.assertNotIn("Warning", run.stdout + run.stderr)
                self.assertEqual(run.returncode, 0)
                self.check_that_fpm_starts()

    def test_of_another_minor_release_starts_and_throws(self):
        for minor in neighbours(self.stamps[0][1]):
            with self.subTest(minor=minor):
                version = self.stamp(1, minor)
                reason = (f"Dralo was compiled for PHP {version} and does not run with PHP {self.running}: "
                          "build it for this release of PHP and start PHP again")
                run = self.run_php(REFUSED)
                output = run.stdout + run.stderr
                self.assertEqual(re.findall("^.*Warning.*$", output, re.MULTILINE),
                                 [f"Warning: {reason} in Unknown on line 0"], output)
                self.assertEqual(re.findall("^Dralo was.*$", output, re.MULTILINE), [reason] * 7, output)
                self.assertIn(f"Dralo => {reason}\n", output)
                self.assertEqual(run.returncode, 0)
                self.check_that_fpm_starts()

    def test_of_another_build_kind_starts_without_the_extension(self):
        altered, changes = BUILD_KIND.subn(lambda found: found[0].replace(b"NTS", b"TSX"), self.bytes)
        self.assertGreater(changes, 0)
        self.altered.write_bytes(altered)
        run = self.run_php("var_dump(extension_loaded('dralo'));")
        self.assertIn("bool(false)", run.stdout)
        self.assertRegex(run.stdout + run.stderr, "PHP +compiled with build ID=")
        self.assertEqual(run.returncode, 0)
        self.check_that_fpm_starts()


if __name__ == "__main__":
    AnotherPhp.php, AnotherPhp.fpm, AnotherPhp.extension = sys.argv[1:4]
    AnotherPhp.running = subprocess.run([AnotherPhp.php, "-n", "-r", "echo PHP_VERSION;"], capture_output=True, text=True,
                                        check=True).stdout
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
