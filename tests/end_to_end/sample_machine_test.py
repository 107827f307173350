#!/usr/bin/env python3
"""Runs the program over copies of the sample machines and holds what it made against their own
description (examples/README.md), which was written from the playlists, not by the program."""

import argparse
import json
import ntpath
import re
import shutil
import subprocess
import tempfile
import unittest
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path

from native_playlists import (PLAYER_FOLDERS, find_on_machine, fits_code_page, path_fault,
                              read_native, upper)

OPTIONS = None
GROUP_ROOT = "C:\\My Documents\\Norvo Media\\"
LISTS = GROUP_ROOT + "PlayLists\\"
# Playlist, type, kept of all references, moved, remark.
ROW = re.compile(r"^\| `([A-Z]:\\.*?)` \| (.*?) \| (\d+) of (\d+) \| (.*?) \| (.*) \|$", re.M)
# Player, registry key or settings file, name, value before and after a move.
SETTING = re.compile(r"^\| ([\w ]+) \| `(.*?)` \| `(.*?)` \| `(.*?)` \| `(.*?)` \|$", re.M)


# ------------------------------------------------------------------------- the description ----


@dataclass
class Described:
    """A playlist of the description."""
    path: str
    kind: str
    kept: int
    moved: str  # in words
    remark: str
    references: list = field(default_factory=list)  # of (text, outcome, what is moved of it)

    def is_listed(self):
        return not (self.remark.endswith("the scan does not record it.") or
                    "never lists it" in self.remark)

    def items(self):
        """What a move must bring, in order: ("song", its path) or ("address", text)."""
        return [("address", text) if moved == "address" else ("song", moved.strip("`"))
                for text, _, moved in self.references if moved]


def description():
    return (Path(OPTIONS.sample).parent / "README.md").read_text(encoding="utf-8")


def described_playlists():
    text = description()
    playlists = {row[0]: Described(row[0], row[1], int(row[2]), row[4], row[5])
                 for row in ROW.findall(text)}
    section = text.split("# What becomes of each reference")[1].split("\n#")[0]
    current = None
    for line in section.splitlines():
        cells = line[2:-2].split(" | ")
        if len(cells) != 4 or cells[0] == "Playlist":
            continue
        current = playlists[cells[0].strip("`")] if cells[0] else current
        current.references.append((cells[1].strip("`"), cells[2], cells[3]))
    return list(playlists.values())


def old_song(path):
    """Bytes of a song of the old machine, at just the path that the description tells."""
    return Path(OPTIONS.sample, path[0], *path[3:].split("\\")).read_bytes()


def contents(items):
    """Items with the bytes of each song."""
    return tuple(("song", old_song(what)) if kind == "song" else (kind, what)
                 for kind, what in items)


# ---------------------------------------------------------------------------------- support ----


def decoded(path):
    raw = path.read_bytes()
    return raw.decode("utf-16") if raw.startswith(b"\xff\xfe") else raw.decode("cp1252")


def snapshot(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in sorted(folder.rglob("*")) if path.is_file()}


def states(folder):
    """Modes, sizes and times of all that is below a folder, which tell of every change."""
    found = {}
    for path in [folder, *folder.rglob("*")]:
        facts = path.lstat()
        found[str(path)] = (facts.st_mode, facts.st_size, facts.st_nlink, facts.st_mtime_ns,
                            facts.st_ctime_ns)
    return found


def registry_values(path):
    """The lines of each key of a registry file, by the name in front of the equals sign."""
    keys, key = {}, ""
    for line in path.read_text(encoding="utf-16").replace("\\\n", "").splitlines():
        if line.startswith("["):
            key = line.strip("[]")
            keys[key] = {}
        elif "=" in line:
            name, value = line.split("=", 1)
            keys[key][name.strip('"')] = value
    return keys


class Runs(unittest.TestCase):
    @staticmethod
    def run_program(*arguments):
        return subprocess.run([OPTIONS.program, *map(str, arguments)], capture_output=True,
                              timeout=100, check=False)

    def temporary_folder(self):
        temp = tempfile.TemporaryDirectory()
        self.addCleanup(temp.cleanup)
        return Path(temp.name)


# ------------------------------------------------------------------------------- collecting ----


class Collecting(Runs):
    def setUp(self):
        self.machine = self.temporary_folder() / "machine"
        shutil.copytree(OPTIONS.sample, self.machine)
        self.kvs = self.machine / "C" / "My Documents" / "Norvo Media" / "KVs"

    def collect(self):
        result = self.run_program("collect", "--init", "--json", "--machine", self.machine)
        self.assertEqual(result.returncode, 1, result.stderr.decode())  # the sample leaves some out
        return json.loads(result.stdout.decode("utf-8"))

    def test_every_playlist_is_found_and_keeps_the_described_entries(self):
        playlists = {row["path"]: row for row in self.collect()["playlists"]}
        described = described_playlists()
        self.assertGreaterEqual(len(described), 52)
        for each in described:
            with self.subTest(each.path):
                if each.is_listed():
                    self.assertEqual(playlists[each.path]["kept"], each.kept)
                elif each.path in playlists:
                    self.assertIn(playlists[each.path]["outcome"], ("unknownType", "unreadable"))
        self.assertLessEqual(set(playlists), {each.path for each in described})

    def test_each_written_playlist_has_a_neutral_file_with_its_entries(self):
        report = self.collect()
        written = [row for row in report["playlists"] if row["outcome"] == "written"]
        self.assertEqual(len(written), report["summary"]["written"])
        self.assertEqual(len(list(self.kvs.glob("*.ini"))), len(written))
        entries = 0
        for path in self.kvs.glob("*.ini"):
            text = decoded(path)
            sections = re.findall(r"^\[Entry (\d+) Properties\]\r$", text, re.M)
            self.assertEqual(sections, [str(i + 1) for i in range(len(sections))], path.name)
            self.assertIn(f"\r\nTotalSongs={len(sections)}\r\n\r\n[Entry 1", text)
            self.assertEqual(len(re.findall(r"\r\nURLType=\d+\r\n\r\n", text)), len(sections))
            entries += len(sections)
        self.assertEqual(entries, sum(row["kept"] for row in written))

    def test_of_playlists_with_one_neutral_file_the_last_one_stays(self):
        rows = self.collect()["playlists"]
        replaced = {row["path"]: row["replacedBy"] for row in rows if row["outcome"] == "replaced"}
        for base in ("Mix", "a"):
            paths = [each.path for each in described_playlists()
                     if re.fullmatch(rf"{base}(\.[bc])?\.(m3u|pls)", ntpath.basename(each.path))]
            stays = [row["path"] for row in rows
                     if row["path"] in paths and row["outcome"] == "written"]
            self.assertEqual(len(stays), 1)
            self.assertEqual({path for path in paths if path in replaced}, set(paths) - set(stays))

    def test_a_second_collect_gives_the_same_files_byte_for_byte(self):
        self.collect()
        first = snapshot(self.machine)
        self.collect()
        self.assertEqual(first, snapshot(self.machine))

    def test_the_media_list_names_existing_files_once(self):
        self.collect()
        lines = (self.kvs / "MediaList.txt").read_text(encoding="utf-8-sig").splitlines()
        records = [line.split("\t") for line in lines]
        self.assertTrue(all(len(record) == 3 for record in records))
        self.assertEqual(len(records), len({(r[1].lower(), r[2].lower()) for r in records}))
        present = {str(path.relative_to(self.machine)).lower() for path in self.machine.rglob("*")}
        for _, source, destination in records:
            self.assertTrue(destination.startswith("GET_SHELL_FOLDER,5,M"), destination)
            if source.endswith("\\"):
                continue  # the folder of a relative reference
            host = (source[0] + "/" + source[3:].replace("\\", "/")).lower()
            self.assertIn(host, present)

    def test_scan_lists_the_playlists_and_leaves_the_list(self):
        self.assertEqual(self.run_program("init", "--machine", self.machine).returncode, 0)
        result = self.run_program("scan", "--json", "--machine", self.machine)
        self.assertEqual(result.returncode, 1, result.stderr.decode())  # the sample has odd ones
        report = json.loads(result.stdout.decode("utf-8"))
        found = {row["path"] for row in report["playlists"]}
        self.assertEqual(found, {each.path for each in described_playlists() if each.is_listed()})
        self.assertFalse(found & {row["path"] for row in report["skipped"]})
        self.assertTrue((self.kvs / "PlayLists.txt").is_file())

    def test_show_reads_each_playlist_as_collect_does_and_changes_nothing(self):
        playlists = self.collect()["playlists"]
        before = snapshot(self.machine)
        for row in playlists:
            if row["outcome"] in ("unknownType", "unreadable"):
                continue
            with self.subTest(row["path"]):
                kind = str(row["type"])
                result = self.run_program("show", "--json", "--machine", self.machine, "--type",
                                          kind, row["path"])
                shown = json.loads(result.stdout.decode("utf-8"))
                self.assertEqual(len(shown["entries"]), row["kept"])
        self.assertEqual(before, snapshot(self.machine))

    def test_a_machine_without_settings_is_told_of_init(self):
        for command in ("scan", "collect"):
            result = self.run_program(command, "--machine", self.machine)
            self.assertEqual(result.returncode, 2)
            self.assertIn(b"init", result.stderr)


# ----------------------------------------------------------------------------------- moving ----


class Arrivals:
    """The native playlists of a new machine, but for those that were there before."""

    def __init__(self, machine, before=()):
        self.machine = machine
        self.before = {upper(path) for path in before}

    def natives(self, player):
        """Machine path and references of each."""
        folder = find_on_machine(self.machine, LISTS + player)
        for path in sorted(folder.iterdir()):
            place = LISTS + player + "\\" + path.name
            if upper(place) not in self.before:
                yield place, read_native(player, path.read_bytes())

    def meaning(self, reference):
        """("song", its bytes), or ("address", text) of what names no place below the group root."""
        if not upper(reference).startswith(upper(GROUP_ROOT)):
            return "address", reference
        place = find_on_machine(self.machine, reference)
        fault = path_fault(reference) or (None if place and place.is_file() else "no such file")
        if fault:
            raise AssertionError(f"{reference}: {fault}")
        return "song", place.read_bytes()

    def meanings(self, player):
        return {path: tuple(self.meaning(each) for each in references)
                for path, references in self.natives(player)}


def wanted_contents(playlists):
    """What must arrive, by the playlists of the description that it is of."""
    return {each.path: contents(each.items()) for each in playlists if each.items()}


class Description(unittest.TestCase):
    def test_the_playlists_tell_as_many_songs_and_addresses_as_their_references(self):
        for each in described_playlists():
            kinds = Counter(kind for kind, _ in each.items())
            told = {"song": 0, "address": 0}
            for number, word in re.findall(r"(\d+) (song|address)", each.moved):
                told[word] = int(number)
            self.assertEqual(told, {"song": kinds["song"], "address": kinds["address"]}, each.path)
            kept = sum(outcome.startswith("kept") for _, outcome, _ in each.references)
            self.assertEqual(kept, each.kept, each.path)

    def test_the_songs_can_be_told_from_each_other(self):
        songs = {what for each in described_playlists() for kind, what in each.items()
                 if kind == "song"}
        self.assertGreaterEqual(len(songs), 44)
        self.assertEqual(len({old_song(path) for path in songs}), len(songs))


class Moving(Runs):
    """One move to a machine that has players and files of its own, looked at from all sides."""

    @classmethod
    def setUpClass(cls):
        temp = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temp.cleanup)
        cls.old, cls.new = Path(temp.name) / "old", Path(temp.name) / "new"
        shutil.copytree(OPTIONS.sample, cls.old)
        shutil.copytree(Path(OPTIONS.sample).parent / "sample-new-machine", cls.new)
        cls.old_before, cls.new_before = snapshot(cls.old), snapshot(cls.new)
        cls.result = cls.migrate()
        cls.arrivals = Arrivals(cls.new, [path[0] + ":" + path[1:].replace("/", "\\")
                                          for path in cls.new_before])

    @classmethod
    def migrate(cls, *more):
        return cls.run_program("migrate", "--from", cls.old, "--to", cls.new, "--json", *more)

    def test_all_is_brought(self):
        self.assertEqual(self.result.returncode, 0, self.result.stderr.decode())
        report = json.loads(self.result.stdout.decode("utf-8"))
        wanted = wanted_contents(described_playlists())
        self.assertEqual(report["summary"]["restored"], len(wanted))
        self.assertEqual(report["summary"]["leftOut"], 0)
        self.assertEqual(report["summary"]["referencesFound"],
                         len(PLAYER_FOLDERS) * sum(kind == "song" for items in wanted.values()
                                                   for kind, _ in items))

    def test_each_player_has_each_playlist_with_its_songs_and_addresses_in_order(self):
        wanted = Counter(wanted_contents(described_playlists()).values())
        self.assertGreaterEqual(wanted.total(), 45)
        for player in PLAYER_FOLDERS:
            with self.subTest(player):
                self.assertEqual(Counter(self.arrivals.meanings(player).values()), wanted)

    def test_a_plain_name_stays(self):
        wanted = wanted_contents(described_playlists())
        base_of = {path: ntpath.splitext(ntpath.basename(path))[0] for path in wanted}
        bases = Counter(map(upper, base_of.values()))
        plain = [path for path, base in base_of.items()
                 if bases[upper(base)] == 1 and re.fullmatch(r"[\w &]+", base)
                 and fits_code_page(base)]
        self.assertGreater(len(plain), 25)
        for player, ending in PLAYER_FOLDERS.items():
            found = self.arrivals.meanings(player)
            for path in plain:
                native = LISTS + player + "\\" + base_of[path] + ending
                if upper(native) not in self.arrivals.before:  # where the name was taken
                    self.assertEqual(found.get(native), wanted[path], native)

    def test_each_song_has_one_place_of_its_own(self):
        places = {}
        for player in PLAYER_FOLDERS:
            for _, references in self.arrivals.natives(player):
                for reference in references:
                    kind, content = self.arrivals.meaning(reference)
                    if kind == "song":
                        places.setdefault(content, set()).add(upper(reference))
        songs = {what for each in described_playlists() for kind, what in each.items()
                 if kind == "song"}
        self.assertEqual(set(places), {old_song(path) for path in songs})
        self.assertEqual({len(of) for of in places.values()}, {1})

    def test_the_players_look_where_their_playlists_are(self):
        settings = SETTING.findall(description())
        self.assertEqual(len(settings), 6)
        new_sample = Path(OPTIONS.sample).parent / "sample-new-machine"
        for player, place, name, before, after in settings:
            with self.subTest(f"{player}: {name}"):
                self.assertEqual(self.setting(new_sample, place, name), before)
                self.assertEqual(self.setting(self.new, place, name), after)
                folder = find_on_machine(self.new, after)
                self.assertTrue(folder and any(folder.iterdir()))

    def setting(self, machine, place, name):
        if place.startswith("HKEY_"):
            value = registry_values(machine / "registry.reg")[place][name]
            return value.strip('"').replace("\\\\", "\\")
        text = find_on_machine(machine, place).read_text(encoding="cp1252")
        self.assertTrue(text.startswith("[Winamp]\n"))
        return re.search(rf"^{name}=(.*)$", text, re.M).group(1)

    def test_foreign_files_of_the_new_machine_stay_as_they_are(self):
        after = snapshot(self.new)
        for path, content in self.new_before.items():
            if path == "registry.reg":
                continue
            if path.endswith("Winamp.ini"):
                cwd = re.compile(rb"(?<=\ncwd=)[^\r\n]*")
                self.assertEqual(cwd.sub(b"", after[path]), cwd.sub(b"", content))
            else:
                self.assertEqual(after[path], content, path)

    def test_foreign_registry_values_stay_as_they_are(self):
        pointed = {(place, name) for _, place, name, _, _ in SETTING.findall(description())}
        before = registry_values(Path(OPTIONS.sample).parent / "sample-new-machine" /
                                 "registry.reg")
        after = registry_values(self.new / "registry.reg")
        for key, values in before.items():
            for name, value in values.items():
                if (key, name) not in pointed:
                    self.assertEqual(after[key][name], value, f"{key}, {name}")
            self.assertEqual(set(after[key]), set(values), key)
        for key in set(after) - set(before):
            self.assertIn("\\Norvo", key)

    def test_the_old_machine_keeps_all_its_files(self):
        after = snapshot(self.old)
        for path, content in self.old_before.items():
            if path != "registry.reg":  # which takes the product's settings
                self.assertEqual(after.get(path), content, path)
        for path in set(after) - set(self.old_before):
            self.assertIn("Norvo", path)

    def test_a_second_run_changes_nothing(self):
        before = snapshot(self.new)
        result = self.migrate()
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertEqual(snapshot(self.new), before)


class MovingInOtherWays(Runs):
    def setUp(self):
        self.folder = self.temporary_folder()
        self.old, self.new = self.folder / "old", self.folder / "new"

    def copy_machines(self):
        shutil.copytree(OPTIONS.sample, self.old)
        shutil.copytree(Path(OPTIONS.sample).parent / "sample-new-machine", self.new)

    def test_a_dry_run_writes_nothing_on_the_new_machine(self):
        self.copy_machines()
        before = states(self.new)
        result = self.run_program("migrate", "--dry-run", "--json", "--from", self.old, "--to",
                                  self.new)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        report = json.loads(result.stdout.decode("utf-8"))
        self.assertEqual(len(report["media"]), len({what for each in described_playlists()
                                                    for kind, what in each.items()
                                                    if kind == "song"}))
        self.assertEqual(states(self.new), before)

    def test_a_dry_run_does_not_make_the_new_machine(self):
        shutil.copytree(OPTIONS.sample, self.old)
        result = self.run_program("migrate", "--dry-run", "--quiet", "--from", self.old, "--to",
                                  self.new)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertFalse(self.new.exists())

    def test_a_bare_disk_is_moved_and_not_written_to(self):
        disk, work = self.folder / "disk", self.folder / "work"
        shutil.copytree(Path(OPTIONS.sample) / "C", disk)
        for path in [*disk.rglob("*"), disk]:
            path.chmod(0o555 if path.is_dir() else 0o444)
        self.addCleanup(lambda: [path.chmod(0o755) for path in [disk, *disk.rglob("*")]
                                 if path.is_dir()])
        before = states(disk)
        result = self.run_program("migrate", "--quiet", "--from", disk, "--to", self.new, "--work",
                                  work)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertEqual(states(disk), before)
        self.assertTrue(any(work.rglob("*.ini")))
        playlists = [each for each in described_playlists() if each.path.startswith("C:")]
        for each in playlists:  # what the other drives hold is not there
            each.references = [row for row in each.references if self.is_on_disk(row)]
        wanted = Counter(wanted_contents(playlists).values())
        for player in PLAYER_FOLDERS:
            with self.subTest(player):
                found = Counter(Arrivals(self.new).meanings(player).values())
                self.assertEqual(found, wanted)

    @staticmethod
    def is_on_disk(row):
        text, _, moved = row
        path = text if moved == "address" else moved.strip("`")
        return not re.match(r"[ABD-Z]:\\", path)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--sample", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["sample_machine_test", *rest])
