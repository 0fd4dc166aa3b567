"""The pages of `served` over a database of any kind, served by php -S."""

import os
import pathlib
import shutil
import socket
import subprocess
import tempfile
import time

import shops
import visitor

SERVED = pathlib.Path(__file__).parent / "served"
PATIENCE_S = 120


class Site:
    """A folder with the page, its shop, and php -S that serves it; a context."""

    def __init__(self, kind, php, extension, settings=()):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pages-"))
        self.php = [php, "-n", "-d", f"extension={extension}", "-d", "display_errors=1"]
        self.settings = settings
        for name in ("goods.php", "run.php", "search.php"):
            shutil.copy(SERVED / name, self.folder)
        self.shop = shops.SHOPS[kind](self.folder)

    def __enter__(self):
        self.shop.create(self.php)
        self.port = shops.database_servers.free_port()
        options = [part for setting in self.settings for part in ("-d", setting)]
        self.log = open(self.folder / "log", "w")
        # Drivers ask the environment for the locale, and services have none.
        self.process = subprocess.Popen([*self.php, *options, "-S", f"127.0.0.1:{self.port}", "-t", self.folder],
                                        stdout=self.log, stderr=self.log, env=os.environ | {"LC_ALL": "C"})
        deadline = time.monotonic() + PATIENCE_S
        while True:
            try:
                socket.create_connection(("127.0.0.1", self.port)).close()
                return self
            except OSError:
                if time.monotonic() > deadline:
                    raise
                time.sleep(0.02)

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(timeout=PATIENCE_S)
        self.log.close()
        if hasattr(self.shop, "close"):
            self.shop.close()
        shutil.rmtree(self.folder)

    def visitor(self):
        return visitor.Visitor(self.port, "/goods.php")
