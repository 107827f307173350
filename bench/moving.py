"""The whole move beside the collecting of the same corpus, and beside a plain copying of the songs."""

import random
import shutil

from results import Part, Row, memory_row
from runner import BenchError, Candidate, ratio

ENTRIES_PER_PLAYLIST = 50


def move_command(workshop, machine, target, *options):
    return [workshop.host, "migrate", "--from", machine.folder, "--to", target, "--quiet", *options]


def settings(workshop):
    """The playlists alone, moved to a new machine; and once more with nothing new."""
    options, machine = workshop.arguments, workshop.machine()
    moved = workshop.make_machine("moved", options.files, options.playlists, options.entries,
                                  kinds=options.kinds)
    target, known = workshop.folder / "target", workshop.folder / "known-target"

    def prepare():
        machine.forget_list()
        shutil.rmtree(target, ignore_errors=True)

    candidates = [
        workshop.collect_candidate(machine, options.playlists, workshop.entries()),
        Candidate("migrate", move_command(workshop, machine, target, "--no-media"), prepare,
                  lambda _: expect_playlists(target, options.playlists)),
        # Its first, unmeasured run is the move that there is then nothing to add to.
        Candidate("migrate again", move_command(workshop, moved, known, "--no-media"),
                  check=lambda _: expect_playlists(known, options.playlists))]
    runs = workshop.in_turn(candidates)
    machine.reset()
    return [Part("move", runs, [
        Row("migrate --no-media, wall, to collect", ratio(runs, "migrate", "collect")),
        memory_row("migrate --no-media, peak memory", runs["migrate"]),
        Row("the same move again, wall, to collect", ratio(runs, "migrate again", "collect"))])]


def expect_playlists(target, expected):
    found = sum(1 for _ in target.rglob("*.m3u8"))
    if found != expected:
        raise BenchError(f"migrate: {found} playlists on the new machine, not {expected}")


def songs(workshop):
    """Songs of a usual size, beside `cp -r` with a flush."""
    options = workshop.arguments
    size = int(options.song_mib * 1024 * 1024)
    machine = workshop.make_machine("songs", options.songs, -(-options.songs // ENTRIES_PER_PLAYLIST),
                                    ENTRIES_PER_PLAYLIST)
    lengthen(machine, size, options.seed)
    targets = Targets(workshop, options.songs * size, 2 * (options.song_repeat + 1))

    def prepare():
        machine.forget_list()
        targets.next()

    copy = ["sh", "-c", 'mkdir -p "$1/C" && cp -r "$0/C/Music" "$1/C" && sync -f "$1"']
    candidates = [
        targets.candidate("cp + sync", prepare,
                          lambda target: [shutil.which(copy[0]), *copy[1:], machine.folder, target]),
        targets.candidate("migrate", prepare,
                          lambda target: move_command(workshop, machine, target, "--all-music"))]
    runs = workshop.runner.run_in_turn(candidates, options.song_repeat)
    targets.remove()
    shutil.rmtree(machine.folder)
    what = f"migrate of {options.songs} songs of {options.song_mib:g} MiB, wall, to cp -r and sync"
    return [Part("songs", runs, [Row(what, ratio(runs, "migrate", "cp + sync"))])]


def lengthen(machine, size, seed):
    """Makes all songs so long; no two have the same content."""
    chance = random.Random(seed)
    for song in (machine.folder / "C" / "Music").rglob("*.mp3"):
        content = song.read_bytes()
        with open(song, "ab") as file:
            file.write(chance.randbytes(max(size - len(content), 0)))


class Targets:
    """New places to move to. A disk such as ext4 goes a long way round the records of files just
    deleted, and that would be measured; so nothing is deleted while there is room for it."""

    def __init__(self, workshop, size, runs):
        self.folder = workshop.folder / "targets"
        self.size = size
        self.made = 0
        self.keep = size * runs < shutil.disk_usage(workshop.folder).free

    def next(self):
        if not self.keep:
            self.remove()
        self.made += 1
        self.current().mkdir(parents=True)

    def current(self):
        return self.folder / str(self.made)

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def candidate(self, name, prepare, make_command):
        """One whose command names the target of its run."""
        candidate = Candidate(name, [])

        def renew():
            prepare()
            candidate.command = [str(word) for word in make_command(self.current())]

        candidate.prepare = renew
        candidate.check = lambda _: self.expect_songs(name)
        return candidate

    def expect_songs(self, name):
        found = sum(path.stat().st_size for path in self.current().rglob("*.mp3"))
        if found != self.size:
            raise BenchError(f"{name}: {found} bytes of songs, not {self.size}")
