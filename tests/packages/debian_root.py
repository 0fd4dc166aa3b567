"""A Debian of its own in a folder, in which packages are built, installed and removed. Needs root and debootstrap."""

import os
import pathlib
import re
import shutil
import subprocess

INSIDE = {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "LANG": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive"}
# Of the devices only single files: whatever happens to this folder, the machine keeps its own.
ENTER = """
set -e
root=$1 user=$2; shift 2
mount --bind /proc "$root/proc"
for device in null zero random urandom; do
  [ -e "$root/dev/$device" ] || touch "$root/dev/$device"
  mount --bind "/dev/$device" "$root/dev/$device"
done
exec chroot --userspec="$user" "$root" "$@"
"""


def mirror():
    """The address from which this machine takes its packages."""
    told = subprocess.run(["apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages"],
                          capture_output=True, text=True, check=True).stdout.split()
    return next(address for address in told if not re.search("security", address))


class DebianRoot:
    def __init__(self, folder):
        self.folder = folder

    @classmethod
    def make(cls, folder, suite):
        """The smallest system of that release."""
        subprocess.run(["debootstrap", "--variant=minbase", suite, folder, mirror()], stdout=subprocess.DEVNULL, check=True)
        root = cls(folder)
        (folder / "etc/apt/apt.conf.d/90test").write_text('APT::Install-Recommends "false";\nAcquire::Retries "3";\n')
        # No package may start a service.
        policy = folder / "usr/sbin/policy-rc.d"
        policy.write_text("#!/bin/sh\nexit 101\n")
        policy.chmod(0o755)
        for name in ("etc/resolv.conf", "etc/hosts"):
            shutil.copy(pathlib.Path("/", name), folder / name)
        root.run("apt-get", "update", "-q")
        return root

    def copy(self, folder):
        subprocess.run(["cp", "-a", self.folder, folder], check=True)
        return DebianRoot(folder)

    def inside(self, path):
        return self.folder / path.lstrip("/")

    def install(self, *packages):
        return self.run("apt-get", "install", "-q", "-y", *packages)

    def run(self, *command):
        """What the command says. What it needs mounted is gone when it has ended."""
        done = self.attempt(*command)
        if done.returncode != 0:
            raise AssertionError(f"{' '.join(command)}\n{done.stdout}")
        return done.stdout

    def attempt(self, *command):
        return subprocess.run(self.entering("root", command), env=INSIDE, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True)

    def start(self, user, command):
        """A program that runs until it is ended by its process id, and what it says as a file."""
        said, says = os.pipe()
        # As in a container, where it may open its own output once more.
        os.fchown(says, int(self.run("id", "-u", user)), -1)
        program = subprocess.Popen(self.entering(user, command), env=INSIDE, stdin=subprocess.DEVNULL, stdout=says, stderr=says)
        os.close(says)
        return program, os.fdopen(said)

    def entering(self, user, command):
        return ["unshare", "--mount", "--propagation", "private", "sh", "-c", ENTER, "sh", self.folder, user, *command]

    def remove(self):
        for mounted in pathlib.Path("/proc/mounts").read_text().splitlines():
            if mounted.split()[1].startswith(f"{os.path.realpath(self.folder)}/"):
                raise AssertionError(f"something is mounted in {self.folder}: {mounted}")
        shutil.rmtree(self.folder)
