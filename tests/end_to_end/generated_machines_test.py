#!/usr/bin/env python3
"""Migrates machines made from seeds and holds what came against what was made: every playlist
arrives in every player's folder with its songs, byte for byte, in order, at places where Windows
can hold them; whatever else was there is told, with the right exit code; and nothing else changes.
A second run changes nothing. Another old machine is then
moved to the same new one, and, with --grow, the same one after it has got more songs and
playlists."""

import argparse
import ntpath
import os
import re
import shutil
import stat
import subprocess
import sys
import tempfile
from collections import Counter, defaultdict
from multiprocessing import Pool
from pathlib import Path

from census import census_faults
from generated_machine import make_machine
from move_document import MoveDocument
from makers.machine import GROUP_ROOT
from native_playlists import (PLAYER_FOLDERS, Malformed, find_on_machine, is_local, path_fault,
                              read_native, reference_fault, upper)
from told_details import MODERN_ENDING, MODERN_FOLDER, read_modern

FORMS = {**PLAYER_FOLDERS, MODERN_FOLDER: MODERN_ENDING}
PRODUCT_FOLDER = "C:\\Norvo\\"
NEUTRAL_FOLDER = "Norvo PlayLists\\"
MOST_SHOWN = 6


def scratch():
    """Where machines are made: in memory where that can be, since a disk takes its time to flush,
    over and over; or where TMPDIR says."""
    memory = Path("/dev/shm")
    usable = "TMPDIR" not in os.environ and memory.is_dir() and os.access(memory, os.W_OK)
    return memory if usable else None


def snapshot(folder):
    """Everything below a folder: the bytes of a file, the target of a link, None for a folder."""
    found, start = {}, len(str(folder)) + 1
    for place, folders, files in os.walk(folder):
        for name in folders + files:
            path = os.path.join(place, name)
            mode = os.lstat(path).st_mode
            content = None
            if stat.S_ISLNK(mode):
                content = os.readlink(path)
            elif stat.S_ISREG(mode):
                with open(path, "rb") as file:
                    content = file.read()
            found[path[start:]] = content
    return found


def changes(before, after):
    """What differs, as short lines."""
    return ([f"new: {path}" for path in sorted(after.keys() - before.keys())] +
            [f"gone: {path}" for path in sorted(before.keys() - after.keys())] +
            [f"changed: {path}" for path in sorted(before.keys() & after.keys())
             if before[path] != after[path]])


def machine_path(path):
    """"C/Music/x.mp3" of a snapshot as a path of the machine."""
    return path[:1] + ":" + path[1:].replace("/", "\\")


class Check:
    """The judgement over one migrated machine; `faults` is empty when all is well."""

    def __init__(self, machine):
        self.machine = machine
        self.faults = []
        self.before = snapshot(machine.folder)
        # Content of a song to where playlists find it: those of 8-bit text, and the modern ones.
        self.plain_places, self.modern_places = defaultdict(set), defaultdict(set)
        self.after = {}

    def fault(self, text):
        self.faults.append(text)

    def census(self, result):
        """What the run tells, held against the machine."""
        if result.returncode not in (0, 1):
            return self.fault(f"exit code {result.returncode}")
        document = MoveDocument(result.stdout)
        self.settle_group_root(document)
        self.faults += census_faults(self.machine, document, result.returncode)

    def settle_group_root(self, document):
        """Where nothing else is said, a new machine's own documents folder may hold all."""
        told = {row.companion.partition("PlayLists\\")[0] for row in document.lists
                if row.companion}
        usual = self.machine.documents + "Norvo Media\\"
        if self.machine.group_root == GROUP_ROOT and told == {usual}:
            self.machine.group_root = usual

    def first_run(self):
        self.after = snapshot(self.machine.folder)
        self.check_all()

    def check_all(self):
        self.check_old_machine()
        self.check_outside()
        self.check_foreign_files()
        self.check_registry()
        for player in FORMS:
            self.check_player(player)
        self.check_places()
        self.check_new_files()

    def second_run(self):
        first = self.part("new", self.after)
        self.after = snapshot(self.machine.folder)
        self.check_old_machine()
        self.check_outside()
        for line in changes(first, self.part("new", self.after)):
            self.fault(f"second run: {line}")

    def grow(self):
        earlier = snapshot(self.machine.folder)
        self.machine.grow()
        self.before |= {path: content for path, content in snapshot(self.machine.folder).items()
                        if path not in earlier}

    def run_after_growth(self):
        """What has come stays, and what is new comes too."""
        come = {path: content for path, content in self.part("new", self.after).items()
                if upper(machine_path(path)).startswith(
                    (upper(self.machine.group_root + "Music\\"),
                     upper(self.machine.group_root + "PlayLists\\")))}
        self.after = snapshot(self.machine.folder)
        now = self.part("new", self.after)
        for line in changes(come, {path: now[path] for path in come if path in now}):
            self.fault(f"run after growth: {line}")
        self.plain_places.clear()
        self.modern_places.clear()
        self.check_all()

    # ---- what must not change ----

    def part(self, name, tree):
        start = name + "/"
        return {path[len(start):]: content for path, content in tree.items()
                if path.startswith(start)}

    def check_old_machine(self):
        for part in self.machine.parts():
            before, after = self.part(part, self.before), self.part(part, self.after)
            for line in changes(before, after):
                kind, path = line.split(": ", 1)
                own = upper(machine_path(path) + "\\")
                ours = kind != "gone" and path == "registry.reg" or kind == "new" and (
                    own.startswith(upper(PRODUCT_FOLDER)) or
                    own.startswith(upper("C:\\My Documents\\Norvo Media\\")) or
                    own == upper("C:\\My Documents\\"))
                if not ours or self.machine.must_stay_whole():
                    self.fault(f"old machine: {line}")

    def check_outside(self):
        for path, content in self.after.items():
            if ".norvo-" in path.lower():
                self.fault(f"left behind: {path}")
            if isinstance(content, str) and not path.startswith("work"):
                self.fault(f"a link: {path}")
            part, _, rest = path.partition("/")
            allowed = (part in self.machine.parts() or
                       part == "work" + self.machine.number and self.machine.has_work or
                       part == "new" and re.match(r"$|C(/|$)|machine\.ini$|registry\.reg$", rest))
            if not allowed and self.before.get(path, b"none") != content:
                self.fault(f"outside the machines: {path}")

    def check_foreign_files(self):
        """Nothing of the new machine's own may change, but the settings that point players at
        their playlists."""
        before, after = self.part("new", self.before), self.part("new", self.after)
        data_area = upper(self.machine.group_root + "KVs\\")
        for path, content in before.items():
            if path == "registry.reg" or upper(machine_path(path)).startswith(data_area):
                continue
            if path.endswith("Winamp/Winamp.ini"):
                texts = [re.sub(rb"cwd=[^\r\n]*\r\n", b"", tree.get(path, b""))
                         for tree in (before, after)]
                if texts[0] != texts[1]:
                    self.fault(f"foreign settings of {path}: {after.get(path)!r}")
            elif path not in after:
                self.fault(f"foreign, gone: {path}")
            elif after[path] != content:
                self.fault(f"foreign, changed: {path}")

    def check_registry(self):
        before = self.part("new", self.before).get("registry.reg")
        after = self.part("new", self.after).get("registry.reg")
        if before is None:
            return
        if after is None:
            return self.fault("registry.reg of the new machine is gone")
        texts = [raw.decode("utf-16" if raw.startswith(b"\xff\xfe") else "utf-8-sig")
                 for raw in (before, after)]
        for line in texts[0].splitlines():
            if line not in texts[1].splitlines():
                self.fault(f"registry.reg of the new machine lost {line!r}")

    # ---- what must have come ----

    def new_natives(self, player):
        """Path and bytes of the player's playlists that were not there before."""
        folder = upper(self.machine.group_root + "PlayLists\\" + player + "\\")
        before = self.part("new", self.before)
        for path, content in sorted(self.part("new", self.after).items()):
            whole = machine_path(path)
            if content is not None and path not in before and upper(whole).startswith(folder):
                yield whole, content

    def check_player(self, player):
        found = []
        for path, raw in self.new_natives(player):
            fault = path_fault(path)
            if fault:
                self.fault(f"playlist {path}: {fault}")
            name = path[len(self.machine.group_root + "PlayLists\\" + player + "\\"):]
            if "\\" in name or not name.endswith(FORMS[player]):
                self.fault(f"playlist {path} stands in no player's folder or has a wrong ending")
            try:
                references = self.references(player, raw)
            except (Malformed, UnicodeDecodeError) as malformed:
                self.fault(f"playlist {path}: {malformed}")
                continue
            is_modern = player == MODERN_FOLDER
            found.append((path, tuple(self.meaning(path, each, is_modern)
                                      for each in references)))
        self.compare(player, found)

    @staticmethod
    def references(player, raw):
        if player == MODERN_FOLDER:
            return [told.reference for told in read_modern(raw)]
        return read_native(player, raw)

    def meaning(self, playlist, reference, is_modern):
        """The content of the song, or the address: what the player would play."""
        if not is_local(reference):
            return reference
        fault = (path_fault if is_modern else reference_fault)(reference)
        if not fault and not upper(reference).startswith(upper(self.machine.group_root)):
            fault = "not below the group root"
        place = find_on_machine(self.machine.new, reference)
        if not fault and (place is None or not place.is_file()):
            fault = "no such file"
        if fault:
            self.fault(f"{playlist} names {reference}: {fault}")
        if place is None or not place.is_file():
            return b"nothing"
        content = place.read_bytes()
        places = self.modern_places if is_modern else self.plain_places
        places[content].add(upper(reference))
        return content

    def compare(self, player, found):
        wanted = [(each.path, tuple(item.song.content if item.kind == "song" else item.address
                                    for item in each.kept()), each)
                  for each in self.machine.playlists]
        missing = Counter(what for _, what, each in wanted if each.is_expected())
        surplus = Counter(what for _, what in found)
        both = missing & surplus
        missing, surplus = missing - both, surplus - both
        surplus -= Counter(what for _, what, each in wanted if each.is_left_open())
        for path, what, each in wanted:
            if each.is_expected() and missing[what] > 0:
                missing[what] -= 1
                self.fault(f"{player}: lacks {path} ({each.what}): {self.shown(what)}")
        for path, what in found:
            if surplus[what] > 0:
                surplus[what] -= 1
                self.fault(f"{player}: has {path}, which nobody made: {self.shown(what)}")

    def shown(self, meanings):
        names = {song.content: song.path for song in self.machine.songs}
        return [each if isinstance(each, str) else names.get(each, repr(each[-40:]))
                for each in meanings]

    def check_places(self):
        """One place for each song, and none for two of them."""
        sources = defaultdict(set)
        for playlist in self.machine.playlists:
            if playlist.is_expected():
                for item in playlist.kept():
                    if item.kind == "song":
                        sources[item.song.content].add(upper(item.song.path))
        for named in (self.plain_places, self.modern_places):
            self.check_places_of(sources, named)

    def check_places_of(self, sources, named):
        for content, paths in sources.items():
            places = named.get(content, set())
            if len(places) != len(paths):
                self.fault(f"{len(paths)} songs, {sorted(paths)}, at {len(places)} places: "
                           f"{sorted(places)}")
            endings = {ntpath.splitext(path)[1] for path in paths}
            for place in places:
                if ntpath.splitext(place)[1] not in endings:
                    self.fault(f"{sorted(paths)} lost its ending: {place}")

    def check_new_files(self):
        """Every new file is a playlist, a song that one of them names, or the product's."""
        root = upper(self.machine.group_root)
        named = set().union(*self.plain_places.values(), *self.modern_places.values())
        before = self.part("new", self.before)
        for path, content in self.part("new", self.after).items():
            own = upper(machine_path(path))
            if path in before or content is None or path in ("registry.reg", "machine.ini"):
                continue
            ours = (own.startswith(upper(PRODUCT_FOLDER)) or own == root + "SUBNAMES.TXT" or
                    own.startswith(root + "KVS\\") or own.startswith(root + "PLAYLISTS\\") or
                    own.startswith(upper(self.machine.documents + NEUTRAL_FOLDER)) or own in named)
            if not ours:
                self.fault(f"a new file that nothing names: {path}")


def migrate(program, machine):
    environment = dict(os.environ, TMPDIR=str(machine.folder / "tmp"),
                       HOME=str(machine.folder / "home"))
    return subprocess.run([program, *machine.arguments()], cwd=machine.folder / "cwd",
                          env=environment, capture_output=True, timeout=100, check=False)


def trials(machine, options):
    """The runs, one after the other: each with the check that judges it, and how."""
    check = Check(machine)
    yield check, check.first_run
    yield check, check.second_run
    if options.grow:
        check.grow()
        yield check, check.run_after_growth
    further = Check(machine.another())
    yield further, further.first_run
    yield further, further.second_run


def run_all(options, machine):
    """The faults of the first run that has some, and what it told."""
    for name in ("tmp", "home", "cwd"):
        (machine.folder / name).mkdir()
    for check, judge in trials(machine, options):
        result = migrate(options.program, check.machine)
        check.census(result)
        judge()
        if check.faults:
            return check.faults, result.stderr.decode(errors="replace")
    return [], ""


def report(seed, faults, told, options):
    lines = [f"seed {seed}: {len(faults)} faults"] + [f"  {fault[:600]}"
                                                     for fault in faults[:MOST_SHOWN]]
    if len(faults) > MOST_SHOWN:
        lines.append(f"  and {len(faults) - MOST_SHOWN} more")
    lines += [f"  told: {line}" for line in told.splitlines()[:MOST_SHOWN]]
    again = f"{sys.executable} {__file__} --program {options.program} --only {seed} --keep"
    again += " --grow" if options.grow else ""
    return "\n".join(lines + [f"  again: {again}"])


def judge(job):
    """The report on one seed; nothing when all is well."""
    seed, options = job
    folder = Path(tempfile.mkdtemp(prefix=f"machine-{seed}-", dir=scratch()))
    text = None
    try:
        faults, told = run_all(options, make_machine(seed, folder))
        if faults:
            text = report(seed, faults, told, options)
    except Exception as failure:  # the seed must be told, whatever went wrong
        text = f"seed {seed}: {type(failure).__name__}: {failure}"
    if text and options.keep:
        text += f"\n  kept: {folder}"
    else:
        shutil.rmtree(folder, ignore_errors=True)
    return text


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--seeds", type=int, default=int(os.environ.get("NORVO_SEEDS", "400")))
    parser.add_argument("--first", type=int, default=1)
    parser.add_argument("--only", type=int)
    parser.add_argument("--grow", action="store_true",
                        help="let the old machine grow after that, and migrate once more")
    parser.add_argument("--keep", action="store_true", help="keep the folder of a failing seed")
    options = parser.parse_args()
    options.program = str(Path(options.program).resolve())
    seeds = range(options.first, options.first + options.seeds)
    if options.only is not None:
        seeds = [options.only]
    failed = 0
    with Pool(2) as pool:
        for text in pool.imap_unordered(judge, [(seed, options) for seed in seeds]):
            if text:
                failed += 1
                print(text, flush=True)
    print(f"{len(seeds)} machines, {failed} with faults")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
