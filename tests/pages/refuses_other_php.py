"""An extension compiled for another patch level of PHP says so and is not loaded.

usage: refuses_other_php.py PHP EXTENSION
"""

import pathlib
import re
import subprocess
import sys
import tempfile

php, extension = sys.argv[1:]
version = subprocess.run([php, "-n", "-r", "echo PHP_VERSION;"], capture_output=True, check=True).stdout
other = version[:-1] + (b"8" if version[-1:] == b"9" else b"9")
with tempfile.TemporaryDirectory() as folder:
    altered = pathlib.Path(folder) / "dralo.so"
    altered.write_bytes(re.sub(re.escape(version) + rb"\0", other + b"\0", pathlib.Path(extension).read_bytes()))
    run = subprocess.run([php, "-n", "-d", "display_startup_errors=1", "-d", f"extension={altered}", "-r",
                          "var_dump(extension_loaded('dralo'));"], capture_output=True, text=True)
output = run.stdout + run.stderr
expected = f"dralo was compiled for PHP {other.decode()} and does not run with PHP {version.decode()}: build it again"
if expected not in output or "bool(true)" in output:
    sys.exit("expected: " + expected + "\n" + output)
