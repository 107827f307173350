"""The points at which a move is disturbed: each call to the system that it makes, by the name of the
call and its number among those of the name in its thread, as strace counts them."""

import re
from collections import Counter, defaultdict
from dataclasses import dataclass

import beside  # noqa: F401

from interrupted_migrate_test import CHANGING

import power

# What a call that looks may fail with: one after the other, since there are many of them.
LOOKING = {"statx": ("EIO", "EACCES"), "newfstatat": ("EIO", "EACCES"),
           "openat": ("EIO", "EACCES", "EMFILE"), "openat2": ("EIO", "EACCES", "EMFILE"),
           "getdents64": ("EIO",), "read": ("EIO",), "pread64": ("EIO",), "lseek": ("EIO",),
           "readlink": ("EIO",), "access": ("EIO",), "getcwd": ("EACCES",), "fcntl": ("EIO",),
           "close": ("EIO",), "fadvise64": ("EIO",), "mmap": ("ENOMEM",),
           "mprotect": ("ENOMEM",), "clone3": ("EAGAIN",)}
# And one that changes something: each of them at every call.
WRITING = {"write": ("ENOSPC", "EIO"), "writev": ("ENOSPC", "EIO"), "pwrite64": ("ENOSPC", "EIO"),
           "copy_file_range": ("ENOSPC", "EIO"), "fsync": ("EIO",), "fdatasync": ("EIO",),
           "syncfs": ("EIO",), "renameat": ("EACCES", "EIO"), "renameat2": ("EACCES", "EIO"),
           "rename": ("EACCES", "EIO"), "linkat": ("EPERM", "ENOSPC"),
           "mkdir": ("EACCES", "ENOSPC"), "mkdirat": ("EACCES", "ENOSPC"),
           "unlinkat": ("EACCES",), "rmdir": ("EACCES",), "utimensat": ("EPERM",),
           "fchmod": ("EPERM",), "ftruncate": ("EIO",), "fallocate": ("ENOSPC",)}
CREATING = re.compile(r"O_CREAT|O_TMPFILE")
KILLING = {call.strip("?") for call in CHANGING} - {"ioctl"}
# Calls of the threads that read ahead, and how many of each thread's are tried: how many it makes
# is another number each time.
AHEAD = {"statx": 40, "openat2": 40, "getdents64": 20, "pread64": 20, "close": 40}


@dataclass(frozen=True)
class Point:
    how: str  # "fail", "kill", "power" or "full"
    what: str  # the call; of a full disk "bytes" or "files"
    number: int
    error: str = ""
    ahead: bool = False  # with the threads that read ahead

    def __str__(self):
        words = [self.how, self.what, str(self.number), self.error, "ahead" if self.ahead else ""]
        return ":".join(word for word in words if word)

    @staticmethod
    def of(text):
        how, what, number, *rest = text.split(":")
        ahead = rest[-1:] == ["ahead"]
        return Point(how, what, int(number), "".join(rest[:len(rest) - ahead]), ahead)

    def tracer(self, strace, trace):
        """What runs the program so that it is disturbed there."""
        # The quick way of tracing fails calls, but does not kill.
        quick = ["--seccomp-bpf"] if self.how == "fail" else []
        effect = f"error={self.error}" if self.how == "fail" else "signal=KILL"
        traced = {self.what, *(power.TRACED if self.how == "power" else ())}
        return [strace, "-f", "-qq", "-y", *quick, "-o", str(trace), "-e",
                f"trace={','.join(sorted(traced))}",
                "-e", f"inject={self.what}:{effect}:when={self.number}"]


def own_calls(lines, folder):
    """The calls of a trace that belong to the program's own work, as name, number and line: those
    of each thread from the first one on that names the machines' folder."""
    counts, calls, begun = defaultdict(Counter), [], False
    for line in lines:
        call = re.match(r"(\d+)\s+(\w+)\(", line)
        if not call:
            continue
        thread, name = call.groups()
        counts[thread][name] += 1
        begun = begun or (name != "execve" and str(folder) in line)
        if begun:
            calls.append((name, counts[thread][name], line))
    return calls


def points_of_calls(lines, folder):
    """Every point of a trace without the threads that read ahead, and those with them."""
    calls = own_calls(lines, folder)
    first = {}
    for name, number, _ in calls:
        first.setdefault(name, number)
    points = set()
    for name, number, line in calls:
        if number < first[name]:
            continue  # in another thread; the first thread would be hit at once
        changes = name in KILLING or CREATING.search(line)
        errors = LOOKING.get(name, ())
        for error in WRITING.get(name, errors[number % len(errors):][:1] if errors else ()):
            points.add(Point("fail", name, number, error))
        if changes:
            points.add(Point("kill", name, number))
            points.add(Point("power", name, number))
            if name in LOOKING:
                points.add(Point("fail", name, number, "ENOSPC"))
    for name, most in AHEAD.items():
        start = first.get(name, 1)
        points |= {Point("fail", name, number, LOOKING[name][0], True)
                   for number in range(start, start + most)}
    return sorted(points, key=str)
