#!/usr/bin/env python3
"""Real database servers for tests: PostgreSQL and MariaDB, each in a new folder and on a free port of 127.0.0.1, run by
"nobody" when the tests are run by root. System clusters are not touched, and nothing is left behind: a server ends with
the process that it was started for, however that ends.

    database_servers.py serve KIND [OPTION...]
                                           Prints the port, then obeys "stop" and "start" on its input, answering with the
                                           same word. The server ends with the input. It is started with the options too.
    database_servers.py share FOLDER       Starts one server of each kind for all that the calling process runs. Their ports
                                           stand in FOLDER/KIND. They end with the calling process, or by
    database_servers.py unshare FOLDER

KIND is postgresql or mariadb. The user USER with PASSWORD may do everything; text is UTF-8.
Python tests use Served(KIND).
"""

import contextlib
import ctypes
import os
import pathlib
import pwd
import random
import select
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

USER = "dralo"
PASSWORD = "hush;4711"
PATIENCE_S = 120
PR_SET_PDEATHSIG = 1
LIBC = ctypes.CDLL(None, use_errno=True)


class Failure(Exception):
    """A server that did not start; the text holds its log."""


def end_with_parent(how=signal.SIGKILL):
    """Has this process get the signal when the one that started it ends, however that ends."""
    LIBC.prctl(PR_SET_PDEATHSIG, how)


class Server:
    """A server and its folder. start() and stop() may alternate; the port stays the same."""

    death = signal.SIGKILL

    def __init__(self, options=()):
        self.options = options
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="dralo-server-"))
        self.data = self.folder / "data"
        self.log = self.folder / "log"
        self.process = None
        self.account = {}
        if os.geteuid() == 0:
            nobody = pwd.getpwnam("nobody")
            os.chown(self.folder, nobody.pw_uid, nobody.pw_gid)
            self.account = {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}

    def create(self):
        self.port = free_port()
        with self.spawn(self.create_command()) as process:
            if process.wait(PATIENCE_S) != 0:
                raise Failure(self.log.read_text(errors="replace"))

    def start(self):
        self.process = self.spawn([*self.command(), *self.options])
        deadline = time.monotonic() + PATIENCE_S
        while self.ready not in self.log.read_bytes():
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise Failure(self.log.read_text(errors="replace"))
            time.sleep(0.02)

    def stop(self):
        """As an administrator stops it: clients lose their connections, what was committed stays."""
        self.end(self.shutdown)

    def end(self, how):
        if self.process is None:
            return
        self.process.send_signal(how)
        try:
            self.process.wait(PATIENCE_S)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        self.process = None

    def remove(self):
        self.end(self.death)
        shutil.rmtree(self.folder, ignore_errors=True)

    def spawn(self, command):
        """Its own session, so that Ctrl-C reaches only this process, which then ends it in order. Its own folder for temporary
        files, for MariaDB removes those of other servers when it starts."""
        own = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TMPDIR": str(self.folder)}
        with open(self.log, "wb") as log:
            return subprocess.Popen(command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log, stderr=log,
                                    start_new_session=True, env=own,
                                    preexec_fn=lambda: end_with_parent(self.death), **self.account)

    def put(self, name, text):
        file = self.folder / name
        file.write_text(text)
        file.chmod(0o644)
        return file


class PostgreSql(Server):
    shutdown = signal.SIGINT
    death = signal.SIGQUIT  # SIGKILL would leave shared memory behind.
    ready = b"database system is ready to accept connections"
    settings = {
        "listen_addresses": "127.0.0.1", "unix_socket_directories": "", "max_connections": 60,
        "fsync": "off", "synchronous_commit": "off", "full_page_writes": "off", "max_wal_size": "256MB",
        "shared_buffers": "32MB", "dynamic_shared_memory_type": "posix", "jit": "off",
        "timezone": "UTC", "lc_messages": "C.UTF-8",
    }

    @staticmethod
    def program(name):
        """Servers are not on the path where several releases of them can be installed."""
        asked = subprocess.run(["pg_config", "--bindir"], capture_output=True, text=True, check=True)
        found = shutil.which(name, path=asked.stdout.strip() + os.pathsep + os.environ["PATH"])
        if not found:
            raise Failure(f"PostgreSQL's {name} is not installed")
        return found

    def create_command(self):
        password = self.put("password", PASSWORD + "\n")
        return [self.program("initdb"), "--pgdata", self.data, "--username", USER, "--pwfile", password,
                "--auth", "scram-sha-256", "--encoding", "UTF8", "--locale", "C.UTF-8", "--no-sync", "--no-instructions"]

    def command(self):
        options = {**self.settings, "port": self.port}
        return [self.program("postgres"), "-D", self.data, *(f"--{name}={value}" for name, value in options.items())]


class MariaDb(Server):
    shutdown = signal.SIGTERM
    ready = b"ready for connections"

    @staticmethod
    def program(name):
        found = shutil.which(name, path=os.environ["PATH"] + ":/usr/sbin:/usr/local/sbin")
        if not found:
            raise Failure(f"MariaDB's {name} is not installed")
        return found

    def create_command(self):
        return [self.program("mariadb-install-db"), "--no-defaults", f"--datadir={self.data}", "--skip-test-db",
                "--auth-root-authentication-method=normal", "--skip-name-resolve", "--innodb-flush-method=nosync"]

    def command(self):
        first = self.put("first.sql", f"CREATE USER IF NOT EXISTS {USER}@'127.0.0.1' IDENTIFIED BY '{PASSWORD}';\n"
                                      f"GRANT ALL ON *.* TO {USER}@'127.0.0.1';\n")
        return [self.program("mariadbd"), "--no-defaults", f"--datadir={self.data}", f"--init-file={first}",
                "--bind-address=127.0.0.1", f"--port={self.port}", "--socket=socket", "--pid-file=pid",
                "--skip-name-resolve", "--max-connections=60", "--skip-ssl", "--default-time-zone=+00:00",
                "--character-set-server=utf8mb4", "--innodb-flush-method=nosync", "--innodb-flush-log-at-trx-commit=0",
                "--innodb-buffer-pool-size=64M", "--innodb-log-file-size=32M", "--aria-pagecache-buffer-size=8M"]


KINDS = {"postgresql": PostgreSql, "mariadb": MariaDb}


def free_port():
    """Not one of those that the system gives to clients: one of them could take it while its server is away."""
    first_of_clients = int(pathlib.Path("/proc/sys/net/ipv4/ip_local_port_range").read_text().split()[0])
    while True:
        with contextlib.suppress(OSError), socket.socket() as probe:
            probe.bind(("127.0.0.1", random.randrange(10_000, max(first_of_clients, 20_000))))
            return probe.getsockname()[1]


@contextlib.contextmanager
def running(kind, options=()):
    """Somebody else may take the port between its choice and its use: the next one is tried then."""
    for is_last in (False, False, True):
        server = KINDS[kind](options)
        try:
            server.create()
            try:
                server.start()
            except Failure:
                if is_last:
                    raise
                continue
            yield server
            return
        finally:
            server.remove()


def end_in_order():
    """Makes the first signal that ends this process pass through the `finally` of its server; more do not disturb."""
    ends = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)

    def leave(number, _):
        for end in ends:
            signal.signal(end, signal.SIG_IGN)
        sys.exit(128 + number)

    for end in ends:
        signal.signal(end, leave)


def serve(kind, options):
    end_in_order()
    with running(kind, options) as server:
        print(server.port, flush=True)
        for line in sys.stdin:
            {"stop": server.stop, "start": server.start}[line.strip()]()
            print(line.strip(), flush=True)


def share(folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    run = os.pidfd_open(os.getppid())
    starts = {kind: start_shared(kind, folder, run) for kind in KINDS}
    failed = [kind for kind, answer in starts.items() if answer.read() != b"ready"]
    if failed:
        raise Failure(f"{' and '.join(failed)} did not start")


def start_shared(kind, folder, run):
    """A process that keeps a server of `kind` until the process behind the descriptor `run` has ended. The pipe says
    that it is ready, or closes."""
    read, write = os.pipe()
    if os.fork() == 0:
        os.setsid()
        os.close(read)
        keep_shared(kind, folder, run, write)
        os._exit(0)
    os.close(write)
    return open(read, "rb")


def keep_shared(kind, folder, run, ready):
    end_in_order()
    port, supervisor = folder / kind, folder / f"{kind}.pid"
    try:
        with running(kind) as server:
            port.write_text(str(server.port))
            supervisor.write_text(str(os.getpid()))
            os.write(ready, b"ready")
            os.close(ready)
            # Whoever waits for the end of this program's output must not wait for the server.
            nothing = os.open(os.devnull, os.O_RDWR)
            for standard in (0, 1, 2):
                os.dup2(nothing, standard)
            select.select([run], [], [])
    except SystemExit:
        pass
    except Failure as failure:
        print(failure, file=sys.stderr, flush=True)
    finally:
        for file in (port, supervisor):
            file.unlink(missing_ok=True)


def unshare(folder):
    for kind in KINDS:
        supervisor = os.pidfd_open(int((pathlib.Path(folder) / f"{kind}.pid").read_text()))
        signal.pidfd_send_signal(supervisor, signal.SIGTERM)
        if not select.select([supervisor], [], [], PATIENCE_S)[0]:
            raise Failure(f"{kind} does not end")


class Served:
    """A server of its own for a Python test; a context."""

    def __init__(self, kind):
        self.process = subprocess.Popen([sys.executable, "-B", __file__, "serve", kind], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True, start_new_session=True)

    def __enter__(self):
        self.port = int(self.process.stdout.readline())
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        # Children of this process may hold its input open.
        self.process.terminate()
        self.process.wait(2 * PATIENCE_S)
        self.process.stdout.close()

    def stop(self):
        self.order("stop")

    def start(self):
        self.order("start")

    def order(self, word):
        self.process.stdin.write(word + "\n")
        self.process.stdin.flush()
        if self.process.stdout.readline() != word + "\n":
            raise Failure(f"the server does not {word}")


def main(arguments):
    match arguments:
        case ["serve", kind, *options] if kind in KINDS:
            serve(kind, options)
        case ["share", folder]:
            share(folder)
        case ["unshare", folder]:
            unshare(folder)
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except Failure as problem:
        sys.exit(str(problem))
