"""Servers of several processes that crash, are frozen, and go on."""

import contextlib
import os
import pathlib
import signal

import deployed_site
import left_behind


def processes(server):
    """Each may have a session of its own."""
    return [server.process.pid, *map(int, deployed_site.children(server.process))]


def has_ended(pid):
    """Also one that nobody has waited for yet."""
    try:
        return "\nState:\tZ" in pathlib.Path(f"/proc/{pid}/status").read_text()
    except (FileNotFoundError, ProcessLookupError):
        return True


def crash(server):
    """Nothing that was begun goes on."""
    pids = processes(server)
    server.end(signal.SIGKILL)
    for pid in pids[1:]:
        with contextlib.suppress(ProcessLookupError):
            os.kill(pid, signal.SIGKILL)
        deployed_site.wait_until(lambda: has_ended(pid), "a process outlives its server")  # noqa: B023
    left_behind.remove(set(pids))


def freeze(server):
    for pid in processes(server):
        os.kill(pid, signal.SIGSTOP)


def thaw(server):
    for pid in processes(server):
        os.kill(pid, signal.SIGCONT)
