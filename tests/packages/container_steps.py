"""The steps of a container's last stage, carried out in a system in a folder, where there is no registry of images."""

import re
import shutil


def last_stage(text):
    """Its instructions as pairs such as ("RUN", "apt-get update")."""
    stage = text[text.rindex("\nFROM "):].replace("\\\n", " ")
    return [tuple(line.split(" ", 1)) for line in stage.splitlines()[2:] if line and not line.startswith("#")]


class ContainerSteps:
    """`made` maps the paths of the stages before to files or folders that hold the same."""

    def __init__(self, root, project, made):
        self.root = root
        self.project = project
        self.made = made
        self.user = "root"
        self.command = None

    def carry_out(self, text):
        for instruction, argument in last_stage(text):
            getattr(self, f"do_{instruction.lower()}")(argument)

    def do_run(self, argument):
        self.root.run("sh", "-ec", argument)

    def do_copy(self, argument):
        options, (source, target) = re.findall(r"--(\w+)=(\S+)", argument), argument.split()[-2:]
        options = dict(options)
        source = self.made[source] if "from" in options else self.project / source
        there = self.root.inside(target)
        there.parent.mkdir(parents=True, exist_ok=True)
        (shutil.copytree if source.is_dir() else shutil.copy)(source, there)
        if "chown" in options:
            self.root.run("chown", "-R", options["chown"], target)

    def do_user(self, argument):
        self.user = argument

    def do_expose(self, argument):
        self.port = argument

    def do_cmd(self, argument):
        self.command = re.findall(r'"([^"]*)"', argument)
