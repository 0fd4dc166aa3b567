"""PgBouncer with the configuration of the folder "deploy"."""

import re
import signal

import pair  # noqa: F401  finds the modules of the other tests
import deployed_site
from database_servers import Server, free_port

INSTALLED = (deployed_site.DEPLOY / "pgbouncer/pgbouncer.ini").read_text()


class PgBouncer(Server):
    shutdown = signal.SIGQUIT  # Since release 1.23 it waits for its clients after SIGTERM.
    ready = b"process up"
    saves_in, for_saving = "shop", "Application Name=saving"
    reads_in, for_reading = "shop_read", "Application Name=reading"

    def __init__(self, servers):
        super().__init__()
        self.port = free_port()
        secrets = servers.stock.rows("SELECT usename, passwd FROM pg_shadow WHERE usename IN ('shop_pages', 'shop_reader')")
        self.users = self.put("users", "".join(f'"{user}" "{secret}"\n' for user, secret in secrets))
        self.file = self.put("pgbouncer.ini", self.configuration(servers))

    def configuration(self, servers):
        """The installed file with other addresses and certificates."""
        text = INSTALLED
        for name, server in (("shop", servers.primary), ("shop_read", servers.replica)):
            text, count = re.subn(rf"(?m)^({name} = host=)\S+ port=\S+", rf"\g<1>127.0.0.1 port={server.port}", text)
            assert count == 1, name
        certificate = servers.stock.certificate
        own = {"listen_addr": "127.0.0.1", "listen_port": self.port, "auth_file": self.users, "server_tls_ca_file": certificate,
               "client_tls_cert_file": certificate, "client_tls_key_file": certificate.with_suffix(".key")}
        for name, value in own.items():
            text, count = re.subn(rf"(?m)^{name} = .*$", f"{name} = {value}", text)
            assert count == 1, name
        return text

    def command(self):
        return ["/usr/sbin/pgbouncer", self.file]
