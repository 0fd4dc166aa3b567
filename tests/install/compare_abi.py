"""Whether programs that were compiled with one shared library run with another one; abidiff tells."""

import pathlib
import subprocess

# abidiff takes a type for a public one when a public header has the file name of its own.
BEHIND_THE_CLASSES = pathlib.Path(__file__).with_name("behind_the_classes.abignore")


def differences(old, new):
    """What of the first is missing or changed in the second, as a text for people; "" when programs notice nothing. Each is a
    library with debug information and the folder of its headers. Types that only the library sees do not count, nor do new names.
    """
    (library, headers), (other_library, other_headers) = old, new
    done = subprocess.run(["abidiff", "--no-added-syms", "--drop-private-types", "--suppressions", BEHIND_THE_CLASSES, "--headers-dir1", headers, "--headers-dir2", other_headers,
                           library, other_library], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    # The two lowest bits say that abidiff itself has failed.
    if done.returncode & 3:
        raise RuntimeError(f"abidiff: {done.stdout}")
    return done.stdout if done.returncode else ""
