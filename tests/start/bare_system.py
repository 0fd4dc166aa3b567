"""A folder with the files of some packages, in which commands run as if nothing else were installed."""

import os
import pathlib
import shutil
import subprocess

# Takes time and serves no program.
UNREAD = ("/usr/share/doc/", "/usr/share/man/", "/usr/share/locale/", "/usr/share/info/")
INSIDE = {"PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin", "HOME": "/root", "LANG": "C.UTF-8"}
# Of the devices only single files: whatever happens to this folder, the machine keeps its own.
DEVICES = ("/dev/null", "/dev/zero", "/dev/random", "/dev/urandom")
ENTER = f"""
set -e
root=$1 folder=$2; shift 2
ldconfig -r "$root"
mount --rbind /proc "$root/proc"
for device in {' '.join(DEVICES)}; do mount --bind "$device" "$root$device"; done
exec chroot "$root" sh -c 'cd "$1" && shift && exec "$@"' sh "$folder" "$@"
"""


class BareSystem:
    def __init__(self, root, packages):
        self.root = root
        for name in ("tmp", "proc", "dev", "root", "etc/alternatives", "var/lib/dpkg/info", "var/lib/dpkg/updates"):
            (root / name).mkdir(parents=True)
        for name in ("bin", "sbin", "lib", "lib32", "lib64", "libx32"):
            if (merged := pathlib.Path("/", name)).is_symlink():
                self.put(str(merged))
                self.inside(os.path.realpath(merged)).mkdir(parents=True, exist_ok=True)
        for package in packages:
            for path in package.files():
                if not path.startswith(UNREAD):
                    self.put(path)
        self.put_alternatives()
        for path in ("/etc/passwd", "/etc/group"):
            self.put(path)
        for device in DEVICES:
            self.inside(device).touch()
        (root / "dev/fd").symlink_to("/proc/self/fd")
        (root / "var/lib/dpkg/status").write_text("".join(package.stanza + "\n\n" for package in packages))

    def inside(self, path):
        return self.root / path.lstrip("/")

    def put(self, path):
        """A link to the file of the machine; a copy when they are not on one file system, or it belongs to another user."""
        target = self.inside(path)
        if not os.path.lexists(path) or os.path.lexists(target):
            return
        target.parent.mkdir(parents=True, exist_ok=True)
        if os.path.islink(path):
            target.symlink_to(os.readlink(path))
        elif os.path.isdir(path):
            target.mkdir()
        elif os.access(path, os.R_OK):
            try:
                os.link(path, target)
            except OSError:
                shutil.copy2(path, target)

    def put_alternatives(self):
        """Programs such as "php", which no package owns: their installation has chosen one of several."""
        for folder in ("/usr/bin", "/usr/sbin"):
            for entry in os.scandir(folder):
                if not entry.is_symlink() or not (choice := os.readlink(entry)).startswith("/etc/alternatives/"):
                    continue
                if os.path.exists(self.inside(os.path.realpath(choice))):
                    self.put(choice)
                    self.put(entry.path)

    def start(self, command, folder):
        """Runs the command in a folder of this system. What it needs mounted is gone when it has ended."""
        apart = ["unshare", *([] if os.geteuid() == 0 else ["--user", "--map-root-user"]), "--mount"]
        if subprocess.run([*apart, "true"], stderr=subprocess.DEVNULL).returncode != 0:
            # In a chroot, whose root is no mount of its own.
            apart += ["--propagation", "unchanged"]
        return subprocess.Popen([*apart, "sh", "-c", ENTER, "sh", self.root, folder, *command], env=INSIDE,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def remove(self):
        """First what may have stayed mounted, where mounts of one system are seen by all."""
        for path in ("/proc", *DEVICES):
            if os.path.ismount(self.inside(path)):
                subprocess.run(["umount", "--lazy", self.inside(path)], check=True)
        shutil.rmtree(self.root)
