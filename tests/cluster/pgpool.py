"""pgpool-II with the configuration of the folder "deploy"."""

import re
import signal
import subprocess

import pair  # noqa: F401  finds the modules of the other tests
import deployed_site
from database_servers import Server, free_port

PROGRAM = "/usr/sbin/pgpool"
INSTALLED = deployed_site.DEPLOY / "pgpool"
USERS = ("shop_pages", "shop_reader", "shop_pooler")


def name_of_socket_folder():
    """Another one since release 4.4."""
    said = subprocess.run([PROGRAM, "--version"], capture_output=True, text=True)
    release = re.search(r"version (\d+)\.(\d+)", said.stdout + said.stderr)
    return "unix_socket_directories" if tuple(map(int, release.groups())) >= (4, 4) else "socket_dir"


class Pgpool(Server):
    shutdown = signal.SIGINT
    death = signal.SIGINT  # SIGKILL would leave its processes and shared memory behind.
    ready = b"pgpool-II successfully started"
    saves_in, for_saving = "shop", "Application Name=saving"
    reads_in, for_reading = "shop", "Application Name=reading"

    def __init__(self, servers):
        super().__init__()
        self.port = free_port()
        servers.stock.ask("DO $$ BEGIN CREATE ROLE shop_pooler LOGIN PASSWORD 'shop_pooler;1' IN ROLE pg_monitor; "
                          "EXCEPTION WHEN duplicate_object THEN END $$")
        self.put("pool_passwd", "".join(f"{user}:TEXT{user};1\n" for user in USERS))
        self.put("pcp.conf", "")
        self.put("pool_hba.conf", (INSTALLED / "pool_hba.conf").read_text().replace("10.0.0.0/24", "127.0.0.1/32"))
        self.file = self.put("pgpool.conf", self.configuration(servers))
        deployed_site.give_away(self.folder)

    def configuration(self, servers):
        """The installed file with other addresses and certificates."""
        certificate = servers.stock.certificate
        own = {"backend_hostname0": "'127.0.0.1'", "backend_port0": servers.primary.port,
               "backend_hostname1": "'127.0.0.1'", "backend_port1": servers.replica.port,
               "listen_addresses": "'127.0.0.1'", "port": self.port, "num_init_children": 14,
               "ssl_cert": f"'{certificate}'", "ssl_key": f"'{certificate.with_suffix('.key')}'", "ssl_ca_cert": f"'{certificate}'"}
        text = (INSTALLED / "pgpool.conf").read_text()
        for name, value in own.items():
            text, count = re.subn(rf"(?m)^{name} = .*$", f"{name} = {value}", text)
            assert count == 1, name
        folders = {name: f"'{self.folder}'" for name in (name_of_socket_folder(), "pcp_socket_dir", "logdir")}
        folders |= {"pid_file_name": f"'{self.folder}/pid'", "pcp_port": free_port()}
        return text + "".join(f"{name} = {value}\n" for name, value in folders.items())

    def command(self):
        return [PROGRAM, "-n", "-D", "-f", self.file, "-F", self.folder / "pcp.conf", "-a", self.folder / "pool_hba.conf"]
