"""Three MariaDB servers that replicate to each other, with the configuration of the folder "deploy"."""

import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
sys.path += [str(HERE.parent / "deploy"), str(HERE.parent / "support"), str(HERE.parent / "pages")]

import deployed_site  # noqa: E402
import interruption  # noqa: E402
from database_servers import PASSWORD, PATIENCE_S, USER, Failure, MariaDb, free_port  # noqa: E402

INSTALLED = (deployed_site.DEPLOY / "mariadb/galera.cnf").read_text()
USERS = (f"CREATE USER IF NOT EXISTS {USER}@'127.0.0.1' IDENTIFIED BY '{PASSWORD}';\n"
         f"GRANT ALL ON *.* TO {USER}@'127.0.0.1';\n")


class Node(MariaDb):
    ready = b"ready for connections"

    def __init__(self, name):
        super().__init__()
        self.name = name
        self.port, self.group, self.increment, self.copy = (free_port() for _ in range(4))
        self.is_first = False

    def configure(self, nodes):
        """The installed file with other addresses. Each node of a machine needs ports of its own. None is given up by the others because
        the machine is busy."""
        own = {"wsrep_cluster_address": "gcomm://" + ",".join(f"127.0.0.1:{node.group}" for node in nodes),
               "wsrep_node_name": self.name, "wsrep_node_address": f"127.0.0.1:{self.group}", "bind-address": "127.0.0.1"}
        text = INSTALLED
        for name, value in own.items():
            text, count = re.subn(rf"(?m)^{name} = .*$", f"{name} = {value}", text)
            assert count == 1, name
        options = (f"gmcast.listen_addr=tcp://127.0.0.1:{self.group};ist.recv_addr=127.0.0.1:{self.increment};"
                   "evs.suspect_timeout=PT10S;evs.inactive_timeout=PT30S;gcache.size=32M")
        text, count = re.subn(r'(?m)^(wsrep_provider_options = ).*$', rf'\1"{options}"', text)
        assert count == 1
        self.file = self.put("node.cnf", text + f"wsrep_sst_receive_address = 127.0.0.1:{self.copy}\n")

    def create(self):
        """Only the first one has data of its own."""
        with self.spawn(self.create_command()) as process:
            if process.wait(PATIENCE_S) != 0:
                raise Failure(self.log.read_text(errors="replace"))

    def command(self):
        usual = [option for option in super().command() if option != "--no-defaults" and "init-file" not in option]
        first = [f"--init-file={self.put('first.sql', USERS)}", "--wsrep-new-cluster"] if self.is_first else []
        return [usual[0], f"--defaults-file={self.file}", *usual[1:], *first]

    def start(self):
        self.data.mkdir(exist_ok=True)
        deployed_site.give_away(self.folder)
        super().start()
        deployed_site.wait_until(lambda: self.status("wsrep_ready") == "ON", f"{self.name} does not join")

    def ask(self, sql):
        """What the node itself says; nothing when it does not let in."""
        command = ["mariadb", "--no-defaults", "-N", "-B", "-h", "127.0.0.1", "-P", str(self.port), "-u", USER, "-e", sql]
        run = subprocess.run(command, env={"MYSQL_PWD": PASSWORD, "PATH": "/usr/bin:/bin"}, capture_output=True, text=True)
        return [tuple(line.split("\t")) for line in run.stdout.splitlines()] if run.returncode == 0 else []

    def status(self, name):
        rows = self.ask(f"SHOW GLOBAL STATUS LIKE '{name}'")
        return rows[0][1] if rows else None


class Cluster:
    """A context; at its begin all nodes have the same data."""

    def __init__(self):
        self.nodes = [Node(name) for name in ("db1", "db2", "db3")]

    def __enter__(self):
        try:
            for node in self.nodes:
                node.configure(self.nodes)
            first, *others = self.nodes
            first.create()
            first.is_first = True
            first.start()
            first.is_first = False
            for node in others:
                node.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for node in self.nodes:
            if node.process:
                interruption.thaw(node)
            node.remove()

    def wait_until_agreed(self, nodes):
        """Until these are a cluster of their own that works."""
        deployed_site.wait_until(lambda: all(self.agrees(node, len(nodes)) for node in nodes), "the nodes do not agree")

    @staticmethod
    def agrees(node, count):
        return (node.status("wsrep_cluster_size"), node.status("wsrep_ready")) == (str(count), "ON")

    def others(self, node):
        return [other for other in self.nodes if other is not node]
