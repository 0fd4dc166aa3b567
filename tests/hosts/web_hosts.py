"""The web servers that pages run under, each in a folder of its own on a free port of 127.0.0.1, with one page."""

import contextlib
import os
import pathlib
import pwd
import re
import shutil
import socket
import sqlite3
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).parent
sys.path.append(str(HERE.parent / "support"))

from database_servers import free_port  # noqa: E402
from php_programs import php_program  # noqa: E402
import sqlite_lock  # noqa: E402

PATIENCE_S = 120
ROWS = 20_000
APACHE_MODULES = pathlib.Path("/usr/lib/apache2/modules")


def account():
    """Servers are not run by root."""
    if os.geteuid() != 0:
        return {}
    nobody = pwd.getpwnam("nobody")
    return {"user": nobody.pw_uid, "group": nobody.pw_gid, "extra_groups": []}


class WebHost:
    """A context; sapi is what PHP calls this kind of host."""

    sapi = ""

    def __init__(self, extension):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="hosts-"))
        self.site = self.folder / "site"
        self.site.mkdir()
        self.database = self.site / "goods.db"
        self.extension = self.folder / "dralo.so"
        shutil.copy(extension, self.extension)
        shutil.copy(HERE / "served/goods.php", self.site)
        self.settings = {"extension": self.extension, "display_errors": 0, "output_buffering": 4096}
        self.port = free_port()
        self.processes = []

    def __enter__(self):
        with sqlite3.connect(self.database) as database:
            database.execute("CREATE TABLE Goods (ID INTEGER PRIMARY KEY, Name VARCHAR(40), Note VARCHAR(400))")
            database.execute("WITH RECURSIVE n(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM n WHERE N < ?) "
                             "INSERT INTO Goods SELECT N, 'good ' || N, hex(zeroblob(180)) FROM n", (ROWS,))
        database.close()
        try:
            self.write_files()
            for path in (self.folder, *self.folder.rglob("*")):
                if mine := account():
                    os.chown(path, mine["user"], mine["group"])
            for command in self.commands():
                self.start(command)
            self.wait_until_ready()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
        for process in reversed(self.processes):
            process.wait(timeout=PATIENCE_S)
        shutil.rmtree(self.folder)

    def write_files(self):
        (self.folder / "php.ini").write_text("".join(f"{name}={value}\n" for name, value in self.settings.items()))

    def options(self):
        return ["-n", *(part for name, value in self.settings.items() for part in ("-d", f"{name}={value}"))]

    def start(self, command):
        with open(self.folder / "log", "a") as log:
            self.processes.append(subprocess.Popen(command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log,
                                                   stderr=log, **account()))

    def wait_until_ready(self):
        deadline = time.monotonic() + PATIENCE_S
        while not self.answers():
            ended = any(process.poll() is not None for process in self.processes)
            if ended or time.monotonic() > deadline:
                raise RuntimeError("the server does not start: " + (self.folder / "log").read_text())
            time.sleep(0.05)

    def answers(self):
        """With a page: a server in front may be there before those behind it are."""
        with contextlib.suppress(OSError), self.connect() as visitor:
            visitor.sendall(b"GET /goods.php HTTP/1.0\r\n\r\n")
            return b" 200 " in visitor.makefile("rb").readline()
        return False

    def connect(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=PATIENCE_S)

    def is_locked(self):
        return sqlite_lock.is_locked(self.database)


class BuiltIn(WebHost):
    """php -S."""

    sapi = "cli-server"

    def commands(self):
        yield [php_program("php"), *self.options(), "-S", f"127.0.0.1:{self.port}", "-t", self.site]


class Fpm(WebHost):
    """php-fpm, on the socket fpm.sock, behind some server."""

    sapi = "fpm-fcgi"

    def write_files(self):
        super().write_files()
        (self.folder / "fpm.conf").write_text(
            f"[global]\nerror_log = {self.folder}/fpm.log\ndaemonize = no\n"
            f"[pages]\nlisten = {self.folder}/fpm.sock\npm = static\npm.max_children = 2\n")

    def commands(self):
        yield [php_program("php-fpm"), *self.options(), "-y", self.folder / "fpm.conf", "-F"]


class NginxFpm(Fpm):
    def write_files(self):
        super().write_files()
        for name in ("body", "fastcgi"):
            (self.folder / name).mkdir()
        (self.folder / "nginx.conf").write_text(f"""
daemon off;
pid {self.folder}/nginx.pid;
error_log {self.folder}/nginx.log;
worker_processes 1;
events {{}}
http {{
    access_log off;
    client_body_temp_path {self.folder}/body;
    fastcgi_temp_path {self.folder}/fastcgi;
    proxy_temp_path {self.folder}/proxy;
    scgi_temp_path {self.folder}/scgi;
    uwsgi_temp_path {self.folder}/uwsgi;
    server {{
        listen 127.0.0.1:{self.port};
        root {self.site};
        location ~ \\.php$ {{
            include /etc/nginx/fastcgi.conf;
            fastcgi_pass unix:{self.folder}/fpm.sock;
            fastcgi_max_temp_file_size 0;
        }}
    }}
}}
""")

    def commands(self):
        yield from super().commands()
        yield ["/usr/sbin/nginx", "-e", self.folder / "nginx.log", "-c", self.folder / "nginx.conf"]


def apache_configuration(host, modules, pages):
    loaded = "".join(f"LoadModule {name}_module {APACHE_MODULES}/mod_{name}.so\n"
                     for name in ("authz_core", "mime", "dir", *modules))
    return f"""
ServerRoot {host.folder}
ServerName 127.0.0.1
PidFile {host.folder}/apache.pid
Mutex file:{host.folder} default
DefaultRuntimeDir {host.folder}
ErrorLog {host.folder}/apache.log
Listen 127.0.0.1:{host.port}
{loaded}
TypesConfig /etc/mime.types
DocumentRoot {host.site}
<Directory {host.site}>
    Require all granted
</Directory>
{pages}
"""


def apache(host):
    return ["/usr/sbin/apache2", "-f", host.folder / "apache.conf", "-DFOREGROUND"]


class ApacheModule(WebHost):
    """mod_php; it is not for threads, so each request has a process."""

    sapi = "apache2handler"

    def write_files(self):
        super().write_files()
        number = re.search(r"[0-9.]+$", php_program("php"))[0]
        module = f"LoadModule php_module {APACHE_MODULES}/libphp{number}.so\nPHPIniDir {self.folder}\n"
        (self.folder / "apache.conf").write_text(apache_configuration(
            self, ["mpm_prefork"],
            module + '<FilesMatch "\\.php$">\n    SetHandler application/x-httpd-php\n</FilesMatch>'))

    def commands(self):
        yield apache(self)


class ApacheFpm(Fpm):
    """mod_proxy_fcgi, with threads in front of php-fpm."""

    def write_files(self):
        super().write_files()
        (self.folder / "apache.conf").write_text(apache_configuration(
            self, ["mpm_event", "proxy", "proxy_fcgi"],
            f'<FilesMatch "\\.php$">\n    SetHandler "proxy:unix:{self.folder}/fpm.sock|fcgi://localhost"\n</FilesMatch>'))

    def commands(self):
        yield from super().commands()
        yield apache(self)


class ApacheCgi(WebHost):
    """php-cgi, a process for each request."""

    sapi = "cgi-fcgi"

    def write_files(self):
        super().write_files()
        program = self.folder / "cgi"
        program.write_text(f'#!/bin/sh\nexec {php_program("php-cgi")} -n -c {self.folder}/php.ini\n')
        program.chmod(0o755)
        (self.folder / "apache.conf").write_text(apache_configuration(
            self, ["mpm_prefork", "cgi", "actions", "alias"],
            f'ScriptAlias /run-php {program}\n<Directory {self.folder}>\n    Require all granted\n</Directory>\n'
            'Action run-php /run-php\n<FilesMatch "\\.php$">\n    SetHandler run-php\n</FilesMatch>'))

    def commands(self):
        yield apache(self)


WEB_HOSTS = {"php_s": BuiltIn, "php_cgi": ApacheCgi, "nginx_fpm": NginxFpm, "apache_mod_php": ApacheModule,
             "apache_proxy_fcgi": ApacheFpm}
