"""The programs of the PHP that the extension is built for. Which PHP that is says php-config, or the one that PHP_CONFIG
of the environment names."""

import os
import pathlib
import re
import shutil
import subprocess


def php_program(name):
    """The path of php, php-cgi or php-fpm."""
    asked = [os.environ.get("PHP_CONFIG", "php-config"), "--php-binary"]
    php = pathlib.Path(subprocess.run(asked, capture_output=True, text=True, check=True).stdout.strip())
    suffix = re.search(r"[0-9.]*$", php.name)[0]
    places = os.pathsep.join([str(php.parent), str(php.parent.parent / "sbin"), os.environ["PATH"]])
    found = shutil.which(name + suffix, path=places) or shutil.which(name, path=places)
    if not found:
        raise FileNotFoundError(f"{name} of the PHP of {asked[0]} is not installed")
    return found
