#!/usr/bin/env python3
"""Programs that were compiled with the shared library of the latest release run with that of the sources as they are now.

usage: abi_test.py [REVISION]      REVISION stands for the latest release

Status 77, and a line that says so, when there is no release to compare with: the latest tag such as v1.2.0 of the same major version.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

from compare_abi import differences

ROOT = pathlib.Path(__file__).resolve().parents[2]
NOTHING_COMPARED = 77
# Types and symbols are the same without optimising, and there sooner.
OPTIONS = ("-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_UNITY_BUILD=ON", "-DCMAKE_UNITY_BUILD_BATCH_SIZE=10", "-DBUILD_SHARED_LIBS=ON",
           "-DDRALO_PHP=OFF", "-DDRALO_TESTS=OFF", "-DDRALO_EXAMPLES=OFF")


def latest_release():
    major = re.search(r"^project\(dralo VERSION (\d+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"), re.MULTILINE)[1]
    tags = subprocess.run(["git", "tag", "--list", f"v{major}.*", "--merged", "HEAD", "--sort=-version:refname"], cwd=ROOT, check=True,
                          capture_output=True, text=True).stdout.split()
    return next((tag for tag in tags if re.fullmatch(r"v\d+\.\d+\.\d+", tag)), None)


def unpack(revision, folder):
    folder.mkdir()
    tar = subprocess.run(["git", "archive", revision], cwd=ROOT, check=True, stdout=subprocess.PIPE).stdout
    subprocess.run(["tar", "-x", "-C", folder], input=tar, check=True)
    return folder


def build(sources, folder):
    """The library, with what it shows to programs."""
    subprocess.run(["cmake", "-G", "Ninja", "-S", sources, "-B", folder, *OPTIONS, "--log-level=WARNING"], check=True)
    subprocess.run(["cmake", "--build", folder, "--target", "dralo", "-j", str(os.cpu_count())], check=True)
    return folder / "include/libdralo.so", sources / "include"


def main(revision):
    if revision is None:
        print("abi_test.py: no release of this major version has a tag; nothing is compared")
        return NOTHING_COMPARED
    with tempfile.TemporaryDirectory(prefix="dralo-abi-") as name:
        folder = pathlib.Path(name)
        before = build(unpack(revision, folder / "released"), folder / "before")
        found = differences(before, build(ROOT, folder / "now"))
    print(found or f"Programs compiled with {revision} run with the library as it is now.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1] if len(sys.argv) > 1 else latest_release()))
