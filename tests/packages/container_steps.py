"""The steps of a container's build file, carried out in systems in folders, where there is no registry of images."""

import re
import shutil


def stages(text):
    """For each stage the image it begins with, its name or "", and its instructions, as pairs such as ("RUN", "apt-get update")."""
    lines = [line for line in text.replace("\\\n", " ").splitlines() if line and not line.startswith("#")]
    found = []
    for instruction, argument in (line.split(" ", 1) for line in lines):
        if instruction == "FROM":
            image, _, name = argument.partition(" AS ")
            found.append((image, name, []))
        else:
            found[-1][2].append((instruction, argument))
    return found


class Stage:
    """Carries out its steps in `root`. `project` is the folder that is sent along, `others` the roots of the stages before."""

    def __init__(self, root, project, others):
        self.root = root
        self.project = project
        self.others = others
        self.folder = "/"
        self.user = "root"
        self.port = None
        self.command = None

    def carry_out(self, steps):
        for instruction, argument in steps:
            getattr(self, f"do_{instruction.lower()}")(argument)

    def do_run(self, argument):
        self.root.run("env", f"--chdir={self.folder}", "sh", "-ec", argument)

    def do_copy(self, argument):
        options, (source, target) = dict(re.findall(r"--(\w+)=(\S+)", argument)), argument.split()[-2:]
        source = self.others[options["from"]].inside(source) if "from" in options else self.project / source
        there = self.root.inside(target)
        there.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if source.is_dir() else shutil.copy)(source, there)
        if "chown" in options:
            self.root.run("chown", "-R", options["chown"], target)

    def do_workdir(self, argument):
        self.folder = argument

    def do_user(self, argument):
        self.user = argument

    def do_expose(self, argument):
        self.port = argument

    def do_cmd(self, argument):
        self.command = re.findall(r'"([^"]*)"', argument)
