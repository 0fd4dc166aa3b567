"""One site on two hosts, made of the files of the folder "deploy": nginx in front of two php-fpm, on ports of 127.0.0.1."""

import os
import pathlib
import pwd
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).parent
DEPLOY = HERE.parents[1] / "deploy"
sys.path += [str(HERE.parents[0] / "support"), str(HERE.parents[0] / "pages")]

from database_servers import free_port  # noqa: E402
from php_programs import php_program  # noqa: E402

# Long enough for any machine: what is waited for comes, or something is wrong.
PATIENCE_S = 120


def account():
    """Servers are not run by root."""
    if os.geteuid() != 0:
        return {}
    nobody = pwd.getpwnam("nobody")
    return {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}


def give_away(folder):
    """Makes the servers the owner of all that is in the folder."""
    if mine := account():
        for path in (folder, *folder.rglob("*")):
            os.chown(path, mine["user"], mine["group"])


def wait_until(is_true, what):
    deadline = time.monotonic() + PATIENCE_S
    while not is_true():
        if time.monotonic() > deadline:
            raise TimeoutError(what)
        time.sleep(0.01)


def children(process):
    return set(pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text().split())


class Unit:
    """What systemd is told in a unit."""

    def __init__(self, file):
        values = dict(re.findall(r"^(\w+)=(.*)$", file.read_text(), re.MULTILINE))
        self.command = shlex.split(values["ExecStart"].replace("/usr/sbin/php-fpm@PHP@", php_program("php-fpm")))
        self.reload = signal.Signals["SIG" + re.fullmatch(r"/bin/kill -(\w+) \$MAINPID", values["ExecReload"])[1]]
        self.stop = signal.Signals[values["KillSignal"]]


class Host:
    """A php-fpm in a folder of its own."""

    def __init__(self, folder, extension, **environment):
        self.folder = folder
        self.name = folder.name
        self.port = free_port()
        self.address = f"127.0.0.1:{self.port}"
        self.log = folder / "php-fpm.log"
        self.unit = Unit(DEPLOY / "dralo-pages.service")
        self.process = None
        self.seen = 0
        (folder / "conf.d").mkdir(parents=True)
        shutil.copy(DEPLOY / "php-fpm.conf", folder)
        settings = (DEPLOY / "dralo.ini").read_text().replace("extension=dralo.so", f"extension={extension}")
        (folder / "conf.d/dralo.ini").write_text(settings)
        self.log.touch()
        own = {"DRALO_LISTEN": self.address, "DRALO_FRONTS": "127.0.0.1", "DRALO_WORKERS": "3",
               "DRALO_LOG": str(self.log), **environment}
        documented = re.findall(r"^(\w+)=", (DEPLOY / "environment").read_text(), re.MULTILINE)
        assert own.keys() == set(documented), documented
        self.environment = own | {"PATH": os.environ["PATH"], "PHP_INI_SCAN_DIR": str(folder / "conf.d")}

    def start(self):
        command = [part.replace("/etc/dralo", str(self.folder)) for part in self.unit.command]
        seen = self.log.stat().st_size
        with open(self.log, "ab") as log:
            self.process = subprocess.Popen(command, cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
                                            stdout=log, stderr=log, **account())
        self.wait_until_ready(seen)

    def wait_until_ready(self, seen):
        def is_ready():
            if self.process.poll() is not None:
                raise RuntimeError(self.log.read_text())
            return b"ready to handle connections" in self.log.read_bytes()[seen:]

        wait_until(is_ready, "php-fpm does not start")

    def begin_reload(self):
        """Returns a function that waits for the end."""
        seen = self.log.stat().st_size
        self.process.send_signal(self.unit.reload)
        return lambda: self.wait_until_ready(seen)

    def stop(self, how=None):
        """As systemd stops it, or by another signal."""
        if self.process:
            self.process.send_signal(how or self.unit.stop)
            self.process.wait(PATIENCE_S)
            self.process = None

    def wait_until_said(self, text, since):
        """In its log, behind the first `since` bytes."""
        wait_until(lambda: text in self.log.read_bytes()[since:], f"{self.name} does not say {text}")

    def wait_for_complaint(self):
        """What a page says is in the log some time after its answer."""
        seen = self.seen

        def has_come():
            self.seen = seen
            return self.take_complaints()

        wait_until(has_come, f"{self.name} does not complain")
        self.seen = seen

    def take_complaints(self):
        """Of php-fpm and of the pages since the last call."""
        log = self.log.read_text(errors="replace")[self.seen:]
        self.seen += len(log)
        return [line for line in log.splitlines() if "NOTICE: " not in line or "PHP " in line]


class Front:
    """nginx."""

    def __init__(self, folder, pages, hosts):
        self.folder = folder
        self.port = free_port()
        (folder / "temporary").mkdir(parents=True)
        shutil.copytree(DEPLOY / "nginx", folder, dirs_exist_ok=True)
        places = "".join(f"{kind}_temp_path {folder}/temporary;\n"
                         for kind in ("client_body", "fastcgi", "proxy", "scgi", "uwsgi"))
        (folder / "nginx.conf").write_text(
            f"worker_processes 2;\npid {folder}/pid;\nevents {{}}\nhttp {{\n{places}include dralo.conf;\n}}\n")
        (folder / "dralo/server.conf").write_text(f"listen 127.0.0.1:{self.port};\nroot {pages};\n"
                                                  f"access_log {folder}/access.log dralo;\n")
        self.hosts = hosts
        self.write_hosts(hosts)

    def write_hosts(self, used):
        """The lines of the file that is installed, with other addresses."""
        template = re.findall(r"^server \S+ (.*);$", (DEPLOY / "nginx/dralo/hosts.conf").read_text(), re.MULTILINE)
        assert len(template) == len(self.hosts)
        lines = [f"server {host.address} {options}{'' if host in used else ' down'};\n"
                 for host, options in zip(self.hosts, template)]
        (self.folder / "dralo/hosts.conf").write_text("".join(lines))

    def start(self):
        with open(self.folder / "error.log", "ab") as log:
            self.process = subprocess.Popen(["nginx", "-e", "stderr", "-p", str(self.folder), "-c",
                                             str(self.folder / "nginx.conf"), "-g", "daemon off;"],
                                            stdin=subprocess.DEVNULL, stdout=log, stderr=log, **account())
        wait_until(lambda: len(children(self.process)) == 2, "nginx does not start")

    def use(self, *hosts):
        """Takes all other hosts out of service. At the end nobody asks them any more."""
        before = children(self.process)
        self.write_hosts(hosts)
        self.process.send_signal(signal.SIGHUP)
        wait_until(lambda: len(now := children(self.process)) == 2 and not now & before, "nginx does not reload")

    def stop(self):
        self.process.send_signal(signal.SIGQUIT)
        self.process.wait(PATIENCE_S)

    def answers(self):
        """The hosts that were asked, in order: lists of addresses, since a request can be passed on."""
        return [match[1].split(", ") for line in (self.folder / "access.log").read_text().splitlines()
                if (match := re.search(r" host=(.*?) answered=", line))]


class Site:
    """The front and the hosts; a context."""

    def __init__(self, extension, page, environments):
        """`environments` holds the connection strings of the hosts, which are called like its keys."""
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-site-"))
        pages = self.folder / "public"
        pages.mkdir()
        for file in (page, DEPLOY / "health.php", DEPLOY / "answer-lost.html"):
            shutil.copy(file, pages)
        # The folder of the build may be one that servers cannot read.
        extension = shutil.copy(extension, self.folder)
        self.hosts = [Host(self.folder / name, extension, **own) for name, own in environments.items()]
        self.front = Front(self.folder / "front", pages, self.hosts)
        give_away(self.folder)

    def __enter__(self):
        try:
            for server in (*self.hosts, self.front):
                server.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for server in (self.front, *self.hosts):
            if getattr(server, "process", None):
                server.stop()
        shutil.rmtree(self.folder)
