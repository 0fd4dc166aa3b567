"""Shared memory and semaphores of System V, which outlive a process that is killed."""

import ctypes
import pathlib

LIBC = ctypes.CDLL(None, use_errno=True)
REMOVE, LAST_USER = 0, 11


def entries(kind):
    """The table's lines, by the names of their columns."""
    names, *lines = pathlib.Path(f"/proc/sysvipc/{kind}").read_text().splitlines()
    return [dict(zip(names.split(), map(int, line.split()))) for line in lines]


def users_of(semaphores):
    """Whoever set or took one of them last."""
    return {LIBC.semctl(semaphores["semid"], number, LAST_USER) for number in range(semaphores["nsems"])}


def remove(pids):
    """What the processes have made that had these numbers."""
    for memory in entries("shm"):
        if memory["cpid"] in pids and memory["nattch"] == 0:
            LIBC.shmctl(memory["shmid"], REMOVE, None)
    for semaphores in entries("sem"):
        if users_of(semaphores) & pids:
            LIBC.semctl(semaphores["semid"], 0, REMOVE)
