"""A repository made of the files of this one as they are now, committed or not, so that a release can be tried in it."""

import os
import pathlib
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMMITTED_AT = 1_767_225_600
_SETTINGS = {"GIT_CONFIG_GLOBAL": os.devnull, "GIT_CONFIG_NOSYSTEM": "1"}
_AUTHOR = {f"GIT_{who}_{what}": value for who in ("AUTHOR", "COMMITTER") for what, value in
           (("NAME", "Test"), ("EMAIL", "test@dralo.invalid"), ("DATE", f"{COMMITTED_AT} +0000"))}


class Repository:
    def __init__(self, folder):
        self.folder = folder

    @classmethod
    def of_these_files(cls, folder, *paths):
        """Of `paths` alone when there are any."""
        named = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--", *paths], cwd=ROOT,
                               check=True, capture_output=True, text=True).stdout
        for name in filter(None, named.split("\0")):
            if (ROOT / name).exists():
                (folder / name).parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(ROOT / name, folder / name)
        repository = cls(folder)
        repository.git("init", "-q", "-b", "main")
        repository.commit()
        return repository

    def clone(self, folder):
        subprocess.run(["git", "clone", "-q", self.folder, folder], check=True, env=os.environ | _SETTINGS)
        return Repository(folder)

    def git(self, *arguments):
        return subprocess.run(["git", *arguments], cwd=self.folder, check=True, capture_output=True, text=True,
                              env=os.environ | _SETTINGS | _AUTHOR).stdout

    def commit(self):
        self.git("add", "-A")
        self.git("commit", "-q", "-m", "As it is")

    def run(self, tool, *arguments, **options):
        """What tools/TOOL answers."""
        return subprocess.run([f"tools/{tool}", *arguments], cwd=self.folder, capture_output=True, text=True, check=False, **options)
