"""A loss of power, told by the trace of a run that was killed: what the program had written and not
flushed by then is taken off the disk again. Names last from the moment they are given, the worst
that a disk may do with files that were not flushed."""

import os
import re

WRITING = ("write", "writev", "pwrite64", "copy_file_range")
NAMING = ("linkat", "renameat", "renameat2")
FLUSHING = ("fsync", "fdatasync", "syncfs")
TRACED = WRITING + NAMING + FLUSHING
OPENED = re.compile(r"(\d+)<(/[^>]*)>")


class Disk:
    """What of the files would not last."""

    def __init__(self):
        self.loose = {}  # by path: how many bytes at the end were written and not flushed
        self.paths = {}  # by descriptor, of those that were written to
        self.begun = {}  # by thread: a call that has not ended yet, with what it is to flush

    def take(self, line):
        """The next line of a trace."""
        match = re.match(r"(\d+) +(<\.\.\. )?(\w+)(.*)", line)
        if not match:
            return
        thread, resumed, call, rest = match.groups()
        if resumed:
            start, paths = self.begun.pop(thread, ("", []))
            self.end(call, start + rest, paths)
            return
        opened = OPENED.search(rest)
        paths = list(self.loose) if call == "syncfs" else [opened[2]] if opened else []
        if "<unfinished" in rest:
            self.begun[thread] = rest.partition(" <unfinished")[0], paths
        else:
            self.end(call, rest, paths)

    def end(self, call, rest, paths):
        result = re.search(r"= (\d+)$", rest)
        if not result:
            return  # it failed, or the program was killed in it
        if call in FLUSHING:
            for path in paths:
                self.loose.pop(path, None)
        elif call in NAMING:
            self.name(rest)
        elif call in WRITING and paths:  # and not to a pipe
            # Of a copying the second one is written to.
            descriptor, path = OPENED.findall(rest)[-1 if call == "copy_file_range" else 0]
            self.paths[descriptor] = path
            self.loose[path] = self.loose.get(path, 0) + int(result[1])

    def name(self, rest):
        """What stood under another name, or under none, has this one now."""
        nameless = re.search(r'"/proc/self/fd/(\d+)"', rest)
        names = [f"{folder}/{name}" for folder, name in re.findall(r'<(/[^>]*)>, "([^/"]*)"', rest)]
        old = self.paths.get(nameless[1]) if nameless else names[0]
        self.loose.pop(names[-1], None)
        if old in self.loose:
            self.loose[names[-1]] = self.loose.pop(old)


def lose(trace, folder):
    """Takes off the disk what would not have lasted of the files in a folder."""
    disk = Disk()
    for line in trace.read_text(errors="replace").splitlines():
        disk.take(line)
    for path, size in disk.loose.items():
        if path.startswith(f"{folder}/") and os.path.isfile(path):
            times = os.stat(path)
            os.truncate(path, max(times.st_size - size, 0))
            os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))
