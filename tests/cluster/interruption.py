"""Servers of several processes that crash, are frozen, and go on."""

import contextlib
import os
import pathlib
import signal

import deployed_site


def processes(server):
    """Each may have a session of its own."""
    return [server.process.pid, *map(int, deployed_site.children(server.process))]


def crash(server):
    """Nothing that was begun goes on."""
    _, *others = processes(server)
    server.end(signal.SIGKILL)
    for pid in others:
        with contextlib.suppress(ProcessLookupError):
            os.kill(pid, signal.SIGKILL)
        deployed_site.wait_until(lambda: not pathlib.Path(f"/proc/{pid}").exists(), "a process outlives its server")  # noqa: B023


def freeze(server):
    for pid in processes(server):
        os.kill(pid, signal.SIGSTOP)


def thaw(server):
    for pid in processes(server):
        os.kill(pid, signal.SIGCONT)
