"""Where a move is disturbed: a pair of machines that is put back before each try, with the new one
on a disk of its own where that is to fill up."""

import os
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

import beside  # noqa: F401

import interrupted_migrate_test

from small_machine import make_machines

ROOM = 256  # pages and files, more than any move here needs
PAGE = 4096
LONGEST = 60  # seconds; a run takes a tenth of one


@dataclass(frozen=True)
class Ended:
    """How one run ended."""
    code: int  # negative when a signal ended it; None when it did not end
    told: str  # on standard error
    hit: str = ""  # the call that was disturbed, as strace tells it


class Stage(interrupted_migrate_test.Stage):
    def __init__(self, folder, options):
        super().__init__(folder, make_machines)
        self.options = options
        self.trace = folder / "trace"
        self.ahead = False

    @property
    def new(self):
        return self.folder / "new"

    def command(self, options):
        more = [] if self.ahead else ["--no-read-ahead"]
        return [*super().command(options), "--json", *more]

    def move(self, tracer=()):
        self.trace.unlink(missing_ok=True)
        try:
            result = subprocess.run([*tracer, *self.command(self.options)], capture_output=True,
                                    timeout=LONGEST, check=False)
        except subprocess.TimeoutExpired:
            return Ended(None, "")
        lines = self.trace.read_text(errors="replace").splitlines() if tracer else []
        hit = next((line for line in lines if "(INJECTED)" in line or "= ?" in line), "")
        return Ended(result.returncode, result.stderr.decode(errors="replace"), hit)

    def clear(self):
        """Makes room for another stage."""


class SmallDisk(Stage):
    """The new machine stands on a disk in memory, whose size is told in pages and in files."""

    def __init__(self, folder, options):
        super().__init__(folder, options)
        self.mounted = False

    def put_back(self, size=f"size={ROOM * PAGE},nr_inodes={ROOM}"):
        self.clear()
        super().put_back()
        before = self.new.rename(self.folder / "before")
        self.new.mkdir()
        mount("-t", "tmpfs", "-o", size, "norvo-faults", self.new)
        self.mounted = True
        subprocess.run(["cp", "-a", f"{before}/.", self.new], check=True)
        subprocess.run(["rm", "-r", before], check=True)

    def grow(self):
        mount("-o", f"remount,size={ROOM * PAGE},nr_inodes={ROOM}", self.new)

    def used(self):
        """Pages and files."""
        held = subprocess.run(["stat", "-f", "-c", "%b %f %c %d", self.new], check=True,
                              capture_output=True, text=True).stdout
        pages, free_pages, files, free_files = map(int, held.split())
        return pages - free_pages, files - free_files

    def clear(self):
        if self.mounted:
            subprocess.run(["umount", self.new], check=True)
            self.mounted = False


def mount(*words):
    subprocess.run(["mount", *map(str, words)], check=True, capture_output=True)


def own_mounts():
    """Starts this again where disks can be mounted that nobody else sees and that go with it."""
    if "NORVO_OWN_MOUNTS" in os.environ:
        return
    os.environ["NORVO_OWN_MOUNTS"] = "1"
    for words in (["unshare", "-m"], ["unshare", "-rm"]):
        try:
            if subprocess.run([*words, "true"], capture_output=True, check=False).returncode == 0:
                os.execvp(words[0], [*words, sys.executable, "-B", *sys.argv])
        except OSError:
            return


def may_mount(folder):
    """Whether disks in memory can be had; they are gone with the test."""
    place = Path(folder, "disk")
    place.mkdir()
    try:
        mount("-t", "tmpfs", "none", place)
    except (OSError, subprocess.CalledProcessError):
        return False
    subprocess.run(["umount", place], check=True)
    return True
