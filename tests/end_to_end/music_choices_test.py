#!/usr/bin/env python3
"""Moves machines with all of their music, and with none of it."""

import argparse
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from move_document import RESTORED, MoveDocument
from native_playlists import find_on_machine
from real_machine import SONGS, UNLISTED, RealMachine

OPTIONS = None


class MusicChoices(unittest.TestCase):
    def setUp(self):
        temp = tempfile.TemporaryDirectory(prefix="norvo-choices-")
        self.addCleanup(temp.cleanup)
        self.folder = Path(temp.name)
        self.machine = RealMachine(self.folder / "old")

    def migrate(self, *more):
        return subprocess.run([OPTIONS.program, "migrate", "--from", self.folder / "old", "--to",
                               self.folder / "new", *more],
                              capture_output=True, timeout=200, check=False)

    def contents(self):
        """Bytes of the new machine's files, to their paths."""
        found = {}
        for path in (self.folder / "new").rglob("*"):
            if path.is_file():
                found.setdefault(path.read_bytes(), []).append(path)
        return found

    def complaints(self, result):
        """What a user would take for a failure. Progress is none, nor is word of a song that a
        playlist names and that was lost before."""
        text = result.stderr.decode(errors="replace").lower()
        words = ("error", "fail", "cannot", "missing", "left out", "not there", "does not exist",
                 "warning", "no such", "not brought", "leads nowhere")
        return [line for line in text.splitlines()
                if any(word in line for word in words) and "nowhere at all" not in line]

    def test_without_a_wish_the_songs_in_no_list_stay_and_are_counted(self):
        result = self.migrate("--json")
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        document = MoveDocument(result.stdout)
        self.assertEqual(set(document.unlisted), {song.path for song in UNLISTED.values()})
        there = self.contents()
        for song in UNLISTED.values():
            self.assertNotIn(song.content(), there)

    def test_all_music_brings_every_media_file(self):
        result = self.migrate("--json", "--all-music")
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        document = MoveDocument(result.stdout)
        self.assertEqual(document.unlisted, {})
        there, places = self.contents(), {row.source: row.places for row in document.media}
        for word, song in (SONGS | UNLISTED).items():
            with self.subTest(word):
                self.assertIn(song.content(), there)
                place = find_on_machine(self.folder / "new", places[song.path][0])
                self.assertIsNotNone(place, places[song.path])
                self.assertIn(place, there[song.content()])
        alone = UNLISTED["alone"]
        self.assertIn(f"\\Music\\{alone.tags.artist}\\{alone.tags.album}\\",
                      places[alone.path][0])

    def test_all_music_comes_after_a_move_without_it(self):
        self.assertEqual(self.migrate("--json").returncode, 0)
        before = self.contents()
        self.assertEqual(self.migrate("--json", "--all-music").returncode, 0)
        after = self.contents()
        for song in UNLISTED.values():
            self.assertIn(song.content(), after)
        for song in SONGS.values():
            self.assertEqual(sorted(after[song.content()]), sorted(before[song.content()]))

    def test_all_music_brings_that_of_a_machine_without_playlists(self):
        lone = self.folder / "lone"
        for song in UNLISTED.values():
            path = lone / "C" / "My Documents" / song.path.rpartition("\\")[2]
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(song.content())
        result = subprocess.run([OPTIONS.program, "migrate", "--from", lone, "--to",
                                 self.folder / "new", "--all-music"],
                                capture_output=True, timeout=200, check=False)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        there = self.contents()
        for song in UNLISTED.values():
            self.assertIn(song.content(), there)

    def test_without_media_all_lists_come_and_nothing_complains(self):
        result = self.migrate("--no-media")
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertEqual(self.complaints(result), [])
        there = self.contents()
        for song in SONGS.values():
            self.assertNotIn(song.content(), there)

    def test_without_media_the_document_tells_the_lists_and_where_their_songs_would_be(self):
        result = self.migrate("--no-media", "--json")
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        self.assertEqual(self.complaints(result), [])
        document = MoveDocument(result.stdout)
        for each in self.machine.lists:
            outcomes = [row.outcome for row in document.rows_of(each.path)
                        if not each.name or row.name == each.name]
            self.assertEqual(outcomes, [RESTORED], each.path)
        self.assertEqual({row.source for row in document.media if row.places},
                         {song.path for song in SONGS.values()})

    def test_a_dry_run_tells_the_same_and_writes_nothing(self):
        work = self.folder / "work"
        dry = self.migrate("--json", "--dry-run", "--work", work)
        self.assertEqual(dry.returncode, 0, dry.stderr.decode())
        self.assertEqual(self.contents(), {})
        real = MoveDocument(self.migrate("--json", "--work", work).stdout)
        told = MoveDocument(dry.stdout)
        self.assertEqual([row.path for row in told.lists], [row.path for row in real.lists])
        self.assertEqual({row.source: row.places for row in told.media},
                         {row.source: row.places for row in real.media})
        self.assertEqual(told.unlisted, real.unlisted)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
