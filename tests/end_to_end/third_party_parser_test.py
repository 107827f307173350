#!/usr/bin/env python3
"""Lets a parser that is not ours, the TotemPlParser library, read the native playlists that a
migration of the sample machine makes, and holds what it finds against the files' own references.

What has to be known of that parser:
- It takes text for UTF-8 unless a file says otherwise; it is handed the same text in UTF-8.
- ASX and PLS: what it takes for no address, such as a share or, in a PLS, a drive's path, it puts
  beside the playlist, escaped.
- M3U: of a drive's path it makes nothing at all. The paths are turned into those of this system
  first, wherever in the text a path stands, which knows nothing of the lists' syntax.
- M3U: it reads up to the first NUL character. Of a MusicMatch list, each of whose lines ends in
  one, it sees the first reference; all of them once the NULs are taken out. A list that begins
  with an address is a list of addresses to it, and it leaves out the shares; a header line in
  front of the MusicMatch lists makes an M3U of each."""

import argparse
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from urllib.parse import unquote

from native_playlists import (PLAYER_FOLDERS, decoded, find_on_machine, is_local, read_native)

try:
    import gi
    gi.require_version("TotemPlParser", "1.0")
    from gi.repository import Gio, TotemPlParser
except (ImportError, ValueError):
    TotemPlParser = None

SKIPPED = 77
OPTIONS = None
HEADER = "#EXTM3U\r\n"
ON_A_DISC = "E:\\Track 01.mp3"  # kept as it is; the disc is not in the new machine's drive
LISTS = Path("C", "My Documents", "Norvo Media", "PlayLists")
ROW = re.compile(r"^\| `[A-Z]:\\.*?` \| .*? \| (\d+) of \d+ \|", re.M)
PATH = re.compile(r'\b[A-Z]:\\[^"<>|\r\n\0]*')


def parsed(path):
    """The parser's references of a file, in order."""
    found = []
    parser = TotemPlParser.Parser()
    parser.set_property("recurse", False)
    parser.connect("entry-parsed", lambda _, uri, metadata: found.append(uri))
    result = parser.parse(Gio.File.new_for_path(str(path)).get_uri(), False)
    if result != TotemPlParser.ParserResult.SUCCESS:
        found.append(f"the parser says {result.value_nick}")
    return found


def on_this_system(reference):
    """"C:\\x\\y" as "/C/x/y"."""
    if not is_local(reference):
        return reference
    return "/" + reference[0] + reference[2:].replace("\\", "/")


def share_address(reference):
    """"\\\\server\\share\\x" as the parser's M3U reader spells it."""
    return "smb:" + reference.replace("\\", "/") if reference.startswith("\\\\") else reference


class ThirdPartyParser(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temp = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temp.cleanup)
        folder = Path(cls.temp.name)
        cls.new, cls.copies = folder / "new", folder / "copies"
        cls.copies.mkdir()
        shutil.copytree(OPTIONS.sample, folder / "old")
        result = subprocess.run([OPTIONS.program, "migrate", "--from", folder / "old", "--to",
                                 cls.new, "--quiet"], capture_output=True, timeout=100, check=False)
        if result.returncode not in (0, 1):
            raise AssertionError(f"exit code {result.returncode}: {result.stderr.decode()}")

    def natives(self, player):
        """Path and references of each playlist of a player."""
        for path in sorted((self.new / LISTS / player).glob("*" + PLAYER_FOLDERS[player])):
            yield path, read_native(player, path.read_bytes())

    def text_of(self, path):
        return decoded(path.read_bytes())

    def parsed_copy(self, path, text):
        """What the parser reads in a list of that text in UTF-8."""
        copy = self.copies / path.name
        copy.write_bytes(text.encode("utf-8"))
        return parsed(copy)

    def as_listed(self, uri):
        """What the parser has put beside the list, as it stood in the list."""
        start = self.copies.as_uri() + "/"
        return unquote(uri[len(start):]) if uri.startswith(start) else uri

    def test_each_player_has_as_many_lists_as_the_sample_has_and_they_name_files(self):
        text = (Path(OPTIONS.sample).parent / "README.md").read_text(encoding="utf-8")
        least = sum(int(kept) > 0 for kept in ROW.findall(text))
        self.assertGreater(least, 10)
        for player in PLAYER_FOLDERS:
            natives = list(self.natives(player))
            self.assertGreaterEqual(len(natives), least, player)
            self.assertTrue(all(references for _, references in natives), player)
            for path, references in natives:
                for reference in filter(is_local, references):
                    found = find_on_machine(self.new, reference) or reference == ON_A_DISC
                    self.assertTrue(found, f"{path}: {reference}")

    def check_as_listed(self, player):
        for path, references in self.natives(player):
            with self.subTest(path.name):
                found = self.parsed_copy(path, self.text_of(path))
                self.assertEqual([self.as_listed(uri) for uri in found], references)

    def test_asx_lists_give_their_references(self):
        self.check_as_listed("Windows Media Player")

    def test_pls_lists_give_their_references(self):
        self.check_as_listed("Sonique")

    def check_m3u(self, path, text, references):
        text = PATH.sub(lambda each: on_this_system(each.group()), text)
        self.assertEqual(self.parsed_copy(path, text),
                         [share_address(on_this_system(each)) for each in references])

    def test_winamp_lists_give_their_references(self):
        for path, references in self.natives("WinAmp"):
            with self.subTest(path.name):
                self.check_m3u(path, self.text_of(path), references)

    def test_musicmatch_lists_give_the_first_reference_before_their_first_nul(self):
        for path, references in self.natives("MusicMatch Jukebox"):
            with self.subTest(path.name):
                self.check_m3u(path, HEADER + self.text_of(path), references[:1])

    def test_musicmatch_lists_give_all_references_without_the_nuls(self):
        for path, references in self.natives("MusicMatch Jukebox"):
            with self.subTest(path.name):
                self.check_m3u(path, HEADER + self.text_of(path).replace("\0", ""), references)


if __name__ == "__main__":
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--program", required=True)
    arguments.add_argument("--sample", required=True)
    OPTIONS, rest = arguments.parse_known_args()
    if TotemPlParser is None:
        print("Skipped: the TotemPlParser library, or its binding to this Python, is not here.")
        sys.exit(SKIPPED)
    unittest.main(argv=["third_party_parser_test", *rest])
