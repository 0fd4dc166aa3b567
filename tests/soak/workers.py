"""Workers of php-fpm, and what they hold: memory and open files."""

import os
import pathlib
import pwd
import re
import shutil
import signal
import subprocess
import time
from dataclasses import dataclass

import fastcgi
from database_servers import end_with_parent

PATIENCE_S = 120


@dataclass
class Held:
    """What a worker holds."""

    memory_kib: int  # private and written to
    files: int


class Workers:
    """Some workers in a folder that holds the page; a context."""

    def __init__(self, program, extension, folder, number):
        self.folder = folder
        # The folder of the build may be one that the workers cannot read.
        extension = shutil.copy(extension, folder)
        self.socket = str(folder / "socket")
        self.log = folder / "log"
        self.number = number
        configuration = folder / "fpm.conf"
        configuration.write_text(f"[global]\nerror_log = {folder}/fpm.log\ndaemonize = no\n"
                                 f"[pages]\nlisten = {self.socket}\npm = static\npm.max_children = {number}\n"
                                 "env[LANG] = C.UTF-8\ncatch_workers_output = yes\n")
        self.command = [program, "-n", "-d", f"extension={extension}", "-d", "display_errors=1", "-y", str(configuration), "-F"]

    def __enter__(self):
        account = {}
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            account = {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}
            for path in (self.folder, *self.folder.iterdir()):
                os.chown(path, nobody.pw_uid, nobody.pw_gid)
        with open(self.log, "wb") as log:
            self.process = subprocess.Popen(self.command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                            preexec_fn=lambda: end_with_parent(signal.SIGTERM), **account)
        try:
            self.wait_until_ready()
        except BaseException:
            self.__exit__()
            raise
        return self

    def wait_until_ready(self):
        deadline = time.monotonic() + PATIENCE_S
        while len(self.pids()) < self.number or not os.path.exists(self.socket):
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise RuntimeError(self.complaints())
            time.sleep(0.01)

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(PATIENCE_S)

    def pids(self):
        children = pathlib.Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children").read_text()
        return [int(pid) for pid in children.split()]

    def held(self, before):
        """A worker keeps the socket of its last request for a moment: `before` is how much to wait for."""
        time.sleep(0.2)
        deadline = time.monotonic() + PATIENCE_S
        while any(open_files(pid) > held.files for pid, held in before.items() if pid in self.pids()):
            if time.monotonic() > deadline:
                break
            time.sleep(0.05)
        return {pid: Held(private_memory_kib(pid), open_files(pid)) for pid in self.pids()}

    def ask_all(self, query):
        """The answers of all workers to a request that takes each of them a while, by worker."""
        answers = {}
        deadline = time.monotonic() + PATIENCE_S
        while len(answers) < self.number:
            if time.monotonic() > deadline:
                raise TimeoutError(f"only {len(answers)} workers answer")
            requests = [fastcgi.Request(self.socket, self.params(query)) for _ in range(2 * self.number)]
            for request in requests:
                head, _, body = request.read().partition(b"\r\n\r\n")
                request.leave()
                answers[int(re.search(rb"X-Worker: (\d+)", head)[1])] = body
        return answers

    def params(self, query, form=None):
        params = {"SCRIPT_FILENAME": str(self.folder / "goods.php").encode(), "SCRIPT_NAME": b"/goods.php",
                  "REQUEST_METHOD": b"GET" if form is None else b"POST", "QUERY_STRING": query}
        if form is not None:
            params |= {"CONTENT_TYPE": b"application/x-www-form-urlencoded", "CONTENT_LENGTH": b"%d" % len(form)}
        return params

    def complaints(self):
        """What php-fpm and PHP have said that is no news of starting and stopping."""
        lines = (self.folder / "fpm.log").read_text().splitlines() + self.log.read_text().splitlines()
        return "\n".join(line for line in lines if "PHP " in line or "NOTICE: " not in line)


def open_files(pid):
    """Without the log that the driver of PostgreSQL keeps from the end of its first connection on, when Debian's
    odbcinst.ini says so."""
    descriptors = pathlib.Path(f"/proc/{pid}/fd")
    return sum(not os.path.basename(os.readlink(each)).startswith("psqlodbc_") for each in descriptors.iterdir())


def private_memory_kib(pid):
    rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text()
    return int(re.search(r"^Private_Dirty: +(\d+) kB", rollup, re.MULTILINE)[1])
