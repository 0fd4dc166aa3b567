"""A gate in front of the end of every change of an article on some nodes of MariaDB."""

import subprocess

import deployed_site
from database_servers import PASSWORD, USER

TRIGGER = """CREATE TRIGGER shop.Gate AFTER UPDATE ON shop.Articles FOR EACH ROW
SET @passed = GET_LOCK('gate', 1000), @left = RELEASE_LOCK('gate')"""


class Gate:
    """Closed at its begin: who changes an article through one of the nodes waits, and has the record locked. A context."""

    def __init__(self, *nodes):
        self.nodes = nodes
        self.keepers = []

    def __enter__(self):
        self.nodes[0].ask(TRIGGER)
        for node in self.nodes:
            command = ["mariadb", "--no-defaults", "-N", "-B", "-n", "-h", "127.0.0.1", "-P", str(node.port), "-u", USER]
            client = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                      env={"MYSQL_PWD": PASSWORD, "PATH": "/usr/bin:/bin"})
            self.keepers.append(client)
            client.stdin.write("SELECT GET_LOCK('gate', 0);\n")
            client.stdin.flush()
            assert client.stdout.readline() == "1\n"
        return self

    def wait_for_somebody(self):
        waiting = "SELECT 1 FROM information_schema.processlist WHERE state = 'User lock'"
        deployed_site.wait_until(lambda: any(node.ask(waiting) for node in self.nodes), "nobody stands at the gate")

    def open(self):
        for client in self.keepers:
            client.stdin.close()
            client.wait()
            client.stdout.close()
        self.keepers = []

    def __exit__(self, *_):
        self.open()
        self.nodes[0].ask("DROP TRIGGER shop.Gate")
