#!/usr/bin/env python3
"""Moves a machine whose playlists are written as people's players write them, and holds each list
in all its new forms against what it was: order, songs by content, titles and lengths."""

import argparse
import ntpath
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from move_document import NO_SONGS, SKIPPED, MoveDocument
from native_playlists import (PLAYER_FOLDERS, find_on_machine, fits_code_page, is_local,
                              path_fault, read_native, reference_fault)
from real_machine import SONGS, UNLISTED, RealMachine, composed, doubtful_machine
from told_details import MODERN_ENDING, MODERN_FOLDER, TELLING_PLAYERS, read_modern, read_told

OPTIONS = None
WORDS = {song.content(): word for word, song in (SONGS | UNLISTED).items()}


def migrate(folder, *more):
    result = subprocess.run([OPTIONS.program, "migrate", "--from", folder / "old", "--to",
                             folder / "new", "--json", *more],
                            capture_output=True, timeout=200, check=False)
    if result.returncode not in (0, 1):
        raise AssertionError(result.stderr.decode(errors="replace"))
    return result, MoveDocument(result.stdout)


def scratch_folder(case):
    folder = Path(tempfile.mkdtemp(prefix="norvo-real-"))
    case.addClassCleanup(shutil.rmtree, folder)
    return folder


class RealLists(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = scratch_folder(cls)
        cls.machine = RealMachine(cls.folder / "old")
        cls.new = cls.folder / "new"
        cls.result, cls.document = migrate(cls.folder)

    def row_of(self, each):
        """What is told of a list; one row, by the path and the name that it has in its file."""
        rows = [row for row in self.document.rows_of(each.path)
                if not each.name or row.name == each.name]
        self.assertEqual(len(rows), 1, [row.told for row in self.document.rows_of(each.path)])
        return rows[0]

    def forms_of(self, each):
        """Its five new files by player."""
        row = self.row_of(each)
        self.assertTrue(row.is_there(), row.told)
        forms = {ntpath.basename(ntpath.dirname(path)): path for path in row.forms()}
        self.assertEqual(len(row.forms()), len(forms))
        self.assertEqual(set(forms), {*PLAYER_FOLDERS, MODERN_FOLDER})
        return forms

    def for_each_list(self, judge):
        self.assertGreater(len(self.machine.lists), 50)
        for each in self.machine.lists:
            with self.subTest(each.path + (f" ({each.name})" if each.name else "")):
                judge(each, self.forms_of(each))

    def raw(self, path):
        found = find_on_machine(self.new, path)
        self.assertTrue(found and found.is_file(), path)
        return found.read_bytes()

    def meaning(self, player, reference):
        """The bytes of the song that a player finds there, or the address."""
        if not is_local(reference):
            return reference
        fault = path_fault if player == MODERN_FOLDER else reference_fault
        self.assertIsNone(fault(reference), reference)
        return self.raw(reference)

    def test_nothing_that_exists_stays_behind(self):
        told = self.result.stderr.decode() + "".join(
            row.told + "\n" for row in self.document.lists if not row.is_there())
        self.assertEqual(self.result.returncode, 0, told)
        self.assertEqual(self.document.exit_code, 0)

    def test_every_form_of_every_list_has_its_songs_in_order(self):
        self.for_each_list(self.check_songs)

    def check_songs(self, each, forms):
        wanted = [item.song.content() if item.song else item.address for item in each.wanted]
        for player, path in forms.items():
            raw = self.raw(path)
            if player == MODERN_FOLDER:
                references = [told.reference for told in read_modern(raw)]
            else:
                references = read_native(player, raw)
            found = [self.meaning(player, reference) for reference in references]
            self.assertEqual([self.word(what) for what in found],
                             [self.word(what) for what in wanted], f"{player}: {path}")

    @staticmethod
    def word(meaning):
        """A song's word instead of its bytes, for messages."""
        return WORDS.get(meaning, str(meaning)[:60])

    def test_every_form_has_its_name_and_ending(self):
        self.for_each_list(self.check_names)

    def check_names(self, each, forms):
        for player, path in forms.items():
            ending = MODERN_ENDING if player == MODERN_FOLDER else PLAYER_FOLDERS[player]
            self.assertTrue(path.endswith(ending), path)
        base = each.name or ntpath.splitext(ntpath.basename(each.path))[0]
        self.assertIn(base, ntpath.basename(forms[MODERN_FOLDER]))

    def test_titles_and_lengths_are_told_to_players_of_today(self):
        self.for_each_list(self.check_modern_details)

    def check_modern_details(self, each, forms):
        told = read_modern(self.raw(forms[MODERN_FOLDER]))
        for item, found in zip(each.wanted, told, strict=True):
            if item.titles:
                self.assertIn(found.title, item.titles, found)
            self.assertIsNotNone(found.title, found)
            self.assertNotEqual(found.title.strip(), "-", found)
            self.check_length(item, found)

    def check_length(self, item, found):
        if item.song and item.seconds:
            self.assertEqual(found.seconds, item.seconds, found)
        else:
            self.assertIn(found.seconds, (-1, 0), found)

    def test_titles_and_lengths_are_told_to_the_older_players_where_these_can_hold_them(self):
        self.for_each_list(self.check_old_details)

    def check_old_details(self, each, forms):
        for player in TELLING_PLAYERS:
            told = read_told(player, self.raw(forms[player]))
            for item, found in zip(each.wanted, told, strict=True):
                self.check_old_form(player, item, found)

    def check_old_form(self, player, item, found):
        self.assertNotEqual((found.title or "").strip(), "-", found)
        if item.titles and all(fits_code_page(title) for title in item.titles):
            self.assertIn(found.title, item.titles, f"{player}: {found}")
        if item.song and item.seconds:
            self.assertEqual(found.seconds, item.seconds, f"{player}: {found}")

    def test_songs_land_in_folders_of_their_artists_and_albums_in_their_own_script(self):
        places = {row.source: row.places for row in self.document.media}
        for word, song in SONGS.items():
            with self.subTest(word):
                self.assertIn(song.path, places)
                place = composed(places[song.path][0])
                tags = song.tags
                if song.kind:
                    self.assertIn(f"\\Music\\{tags.artist}\\{tags.album}\\", place)
                self.assertEqual(ntpath.basename(place), composed(ntpath.basename(song.path)))
                for each in places[song.path]:
                    self.assertEqual(self.raw(each), song.content())
                self.assertIsNone(reference_fault(places[song.path][-1]))

    def test_what_was_found_elsewhere_and_what_was_nowhere_is_told(self):
        moved = [each for each in self.machine.lists if each.elsewhere]
        self.assertTrue(moved)
        for each in moved:
            row = self.row_of(each)
            self.assertEqual((row.elsewhere, row.left_out), (each.elsewhere, len(each.gone)))
            for reference in each.gone:
                self.assertIn(ntpath.basename(reference), row.told)

    def test_lists_in_bins_are_told_as_skipped(self):
        for path in self.machine.skipped:
            self.assertEqual([row.outcome for row in self.document.rows_of(path)], [SKIPPED], path)

    def test_songs_in_no_list_are_counted(self):
        self.assertEqual(self.document.unlisted, {song.path: len(song.content())
                                                  for song in UNLISTED.values()})

    def test_the_library_s_own_lists_are_no_playlists_of_the_user(self):
        library = [row for row in self.document.lists if row.path.endswith(".xml")]
        names = {row.name for row in library if row.is_there()}
        self.assertEqual(names, {each.name for each in self.machine.lists if each.name})

    def test_every_row_is_of_a_list_that_is_there(self):
        known = {each.path for each in self.machine.lists} | set(self.machine.skipped)
        rows = {row.path for row in self.document.lists if row.outcome != NO_SONGS}
        self.assertLessEqual(rows, known)


class Doubts(unittest.TestCase):
    """What cannot come is named, and the exit code tells of it."""

    @classmethod
    def setUpClass(cls):
        folder = scratch_folder(cls)
        cls.unread, cls.doubt, cls.candidates = doubtful_machine(folder / "old")
        cls.result, cls.document = migrate(folder)

    def test_the_exit_code_tells(self):
        self.assertEqual((self.result.returncode, self.document.exit_code), (1, 1))

    def test_kinds_that_are_not_read_are_named(self):
        for path in self.unread:
            self.assertEqual([row.outcome for row in self.document.rows_of(path)], ["leftOut"],
                             path)

    def test_of_two_candidates_none_is_taken_and_both_are_told(self):
        row, = self.document.rows_of(self.doubt)
        self.assertTrue(row.is_there())
        self.assertEqual(row.candidates, set(self.candidates))
        self.assertEqual(set(self.document.unlisted), set(self.candidates))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["real_lists_test", *rest])


if __name__ == "__main__":
    main()
