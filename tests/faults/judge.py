"""Judges what a disturbed move has left: its exit code, that every file is whole, that what is
missing was named, that the old machine is as it was, and that the next run mends everything."""

import re
from dataclasses import dataclass
from pathlib import Path, PurePosixPath

import beside  # noqa: F401

from generated_machines_test import changes, snapshot
from native_playlists import Malformed, find_on_machine, is_local

import power
from small_machine import NAMES
from whole_files import (CONTENTS, LEDGER, LISTS, MUSIC, PASSING, PRODUCT, is_settings,
                         lost_values, references_of, torn, values_of)

# What is not as after an undisturbed move and yet right, each told with its reason and counted.
OTHER_NAMES = "other names: a name that could not be looked up, or not written, counts as taken"
BEGUN_LIST = "a begun list: killed while it was written; the ledger tells, and the next run mends it"
TORN_LINE = "a torn line: the ledger had no room for its end; the next run passes over it"
LOST_LIST = "a lost list: it had not been flushed; the ledger does not count on it"

# The file that tells that a player is there, by the settings that point it at its lists.
PLAYER_FILES = {"DefaultFilesDirectory": "Sonique.exe", "OpenDir": "wmplayer.exe",
                "SaveAsDir": "wmplayer.exe", "cwd": "Winamp.ini"}


@dataclass(frozen=True)
class Verdict:
    point: object
    ending: str
    faults: tuple
    hit: str = ""
    allowed: tuple = ()
    told: str = ""


def name_of(path):
    """Which of the lists a new file is one form of."""
    stem = PurePosixPath(path).stem
    return next((name for name in NAMES if stem.startswith(name)), stem)


def begun_list(ledger):
    """The list that the ledger tells to be in the making; None without one."""
    begun = None
    for line in (ledger or b"").decode("utf-8", errors="replace").splitlines():
        word, *columns = line.split("\t")
        if word in ("begin", "done"):
            begun = name_of(columns[1].replace("\\", "/")) if columns else None
    return begun


def is_told(old_path, told):
    """By its name, or by a folder above it that could not be listed."""
    ends = [end for end, character in enumerate(old_path) if character == "\\"]
    above = {old_path[:ends[0] + 1], *(old_path[:end] for end in ends)} if ends else set()
    return old_path.rpartition("\\")[2] in told or any(
        f"Old machine: {folder}: " in told for folder in above)


class Judge:
    def __init__(self, stage):
        self.stage = stage
        stage.put_back()
        first = stage.move()
        if first.code != 0 or first.told:
            raise AssertionError(f"the undisturbed move: {first}")
        self.own = snapshot(stage.folder)
        self.reference = stage.state()
        self.meaning = self.meaning_of(self.reference)

    def try_at(self, point):
        self.stage.put_back()
        self.stage.ahead = point.ahead
        ended = self.stage.move(point.tracer(self.stage.options.strace, self.stage.trace))
        self.stage.ahead = False
        if point.how == "power":
            power.lose(self.stage.trace, self.stage.folder)
        return self.verdict(point, ended)

    def fill_at(self, point):
        """Of a disk that is full at some size."""
        size = {"bytes": f"size={point.number * 4096}", "files": f"nr_inodes={point.number}"}
        self.stage.put_back(size[point.what])
        ended = self.stage.move()
        return self.verdict(point, ended, self.stage.grow)

    def verdict(self, point, ended, mend=lambda: None):
        if ended.code == 0 and not ended.hit and point.how != "full":
            return Verdict(point, "not reached", ())
        now, allowed = self.stage.state(), set()
        killed = point.how in ("kill", "power")
        faults = self.harm() + self.torn_files(now, point.how, allowed)
        if not killed:
            faults += self.ending_faults(ended, now, allowed)
        elif ended.code in (0, 1, 2):
            faults.append(f"it was not killed: exit code {ended.code}")
        mend()
        faults += self.next_run()
        ending = "killed" if killed else f"exit code {ended.code}"
        return Verdict(point, ending, tuple(faults), ended.hit, tuple(allowed),
                       ended.told)

    def harm(self):
        """To what is not the product's, on either machine."""
        made = [f"made on the old machine: {path}" for path in snapshot(self.stage.folder)
                if path.startswith("old/") and path not in self.own and
                not path.startswith(f"old/{PRODUCT}/") and not PASSING.fullmatch(path)]
        return self.stage.harm() + made

    def torn_files(self, now, how, allowed):
        faults, begun = [], begun_list(now.get(LEDGER)) if how == "kill" else None
        for path, raw in now.items():
            known = raw in (None, self.reference.get(path), self.stage.before.get(path))
            if not path.startswith("new/") or known or PASSING.fullmatch(path):
                continue
            fault = torn(path, raw, self.stage.new)
            if fault and begun == name_of(path) and path.startswith(LISTS):
                allowed.add(BEGUN_LIST)
            elif fault and how == "power" and path.startswith(LISTS):
                allowed.add(LOST_LIST)
            elif fault and how == "full" and path == LEDGER and b"\r\n" in raw:
                allowed.add(TORN_LINE)
            elif fault:
                faults.append(f"torn: {path}: {fault}")
        return faults

    def ending_faults(self, ended, now, allowed):
        if ended.code == 0:
            different = self.new(now) != self.new(self.reference)
            if different and self.meaning_of(now) == self.meaning:
                allowed.add(OTHER_NAMES)
                return []
            return [f"exit code 0, but {line}" for line in changes(self.new(self.reference),
                                                                   self.new(now))]
        if ended.code not in (1, 2):
            return [f"ended by {ended.code}: {ended.told[:200]}"]
        if not ended.told.strip():
            return [f"exit code {ended.code}, and nothing told"]
        if ended.code == 2:  # tells why nothing can be done
            return []
        return [f"not named: {what}" for what in self.unnamed(now, ended.told)]

    def unnamed(self, now, told):
        """What is missing on the new machine and not told."""
        songs, lists, others, _ = self.meaning_of(now)
        for song in CONTENTS:
            if song not in songs and not is_told(CONTENTS[song].path, told):
                yield CONTENTS[song].path
        for player, name, played in self.meaning[1]:
            found = [each[2] for each in lists if each[:2] == (player, name)]
            lost = [song for song in played if not found or song not in found[0]]
            if not is_told(NAMES[name], told) and not all(
                    song in CONTENTS and is_told(CONTENTS[song].path, told) for song in lost):
                yield f"{player}: {name}"
        for path, name in self.meaning[2]:
            if (path, name) not in others and path != PurePosixPath(LEDGER).parent.as_posix() and \
                    not is_told(NAMES.get(name, name), told):
                yield f"{path}: {name}"
        for path, raw in self.new(self.reference).items():
            for value in lost_values(raw, now.get(path, b"")) if is_settings(path) else ():
                # Or what tells that the player is there could not be looked up.
                if not re.search(rf", {value}: |\\{PLAYER_FILES[value]}: ", told):
                    yield f"{path}: {value}"

    def next_run(self):
        """Undisturbed, it mends everything: to the byte, or where the disturbed one had to choose
        other names and places, the same songs and lists by content."""
        last = self.stage.move()
        now = self.stage.state()
        if last.code != 0:
            return [f"the next run ends with {last.code}: {last.told[:300]}"]
        left = [f"the next run leaves {path}" for path in now if PASSING.fullmatch(path)]
        if self.new(now) != self.new(self.reference) and self.meaning_of(now) != self.meaning:
            left += [f"the next run leaves {line}" for line in
                     changes(self.new(self.reference), self.new(now))]
        return left + self.harm()

    def new(self, state):
        """The files that the move has made or changed on the new machine."""
        return {path: raw for path, raw in state.items() if path.startswith("new/") and
                raw not in (None, self.stage.before.get(path)) and not PASSING.fullmatch(path)}

    def meaning_of(self, state):
        """What a person has after the move: songs by content; lists by player, name and what they
        play; the neutral files and others by name; the settings' values in whatever order."""
        state = self.new(state)
        songs = sorted(raw for path, raw in state.items() if path.startswith(MUSIC))
        lists = sorted((PurePosixPath(path).parent.name, name_of(path), self.played(path, raw))
                       for path, raw in state.items() if path.startswith(LISTS))
        others = sorted((PurePosixPath(path).parent.as_posix(), name_of(path)) for path in state
                        if not path.startswith((MUSIC, LISTS)) and not is_settings(path))
        settings = [values_of(raw) for path, raw in sorted(state.items()) if is_settings(path)]
        return songs, lists, others, settings

    def played(self, path, raw):
        """What each line leads to."""
        try:
            return [self.found(reference) for reference in references_of(path, raw)]
        except Malformed:
            return [raw]

    def found(self, reference):
        place = find_on_machine(self.stage.new, reference) if is_local(reference) else None
        return Path(place).read_bytes() if place else reference.encode()
