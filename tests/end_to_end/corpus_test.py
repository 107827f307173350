#!/usr/bin/env python3
"""Holds a machine that is made for measurements against what was asked for."""

import argparse
import subprocess
import sys
import tempfile
import unittest
from collections import Counter
from pathlib import Path

from native_playlists import find_on_machine, read_native

OPTIONS = None
SONGS, PLAYLISTS, ENTRIES, PLAIN_FILES = 90, 6, 40, 230
# Of the native playlists' reader, the player whose syntax the lists have.
PLAYERS = {".m3u": "WinAmp", ".pls": "Sonique"}


class CorpusTest(unittest.TestCase):
    def setUp(self):
        temp = tempfile.TemporaryDirectory()
        self.addCleanup(temp.cleanup)
        self.folder = Path(temp.name)

    def make(self, name, **more):
        options = {"seed": 1, "files": SONGS, "playlists": PLAYLISTS, "entries": ENTRIES,
                   "kinds": "m3u,pls", "plain-files": PLAIN_FILES, **more}
        words = [f"--{option}={value}" for option, value in options.items()]
        subprocess.run([sys.executable, "-B", OPTIONS.make_corpus, "--dir", self.folder / name,
                        "--list", *words], check=True)
        return self.folder / name

    def test_it_has_as_many_files_as_were_asked_for(self):
        files = [path for path in self.make("machine").rglob("*") if path.is_file()]
        self.assertEqual(Counter(path.suffix for path in files),
                         {".mp3": SONGS, ".m3u": PLAYLISTS // 2, ".pls": PLAYLISTS // 2,
                          ".dat": PLAIN_FILES, ".ini": 1, ".reg": 1, ".txt": 2})
        self.assertEqual({path.stat().st_size for path in files if path.suffix == ".mp3"}, {8192})

    def test_the_entries_are_songs_and_each_comes_as_often_as_the_others(self):
        machine = self.make("machine")
        named = Counter()
        for path in (machine / "C" / "Playlists").iterdir():
            references = read_native(PLAYERS[path.suffix], path.read_bytes())
            self.assertEqual(len(references), ENTRIES)
            named.update(references)
        self.assertEqual(len(named), SONGS)
        self.assertLessEqual(max(named.values()) - min(named.values()), 1)
        for reference in named:
            self.assertTrue(find_on_machine(machine, reference), reference)

    def test_the_seed_decides_everything(self):
        first, again, other = (self.make(name, seed=seed) for name, seed in
                               (("first", 5), ("again", 5), ("other", 6)))
        self.assertEqual(contents(first), contents(again))
        self.assertNotEqual(contents(first), contents(other))

    def test_a_kind_that_is_not_known_is_refused(self):
        with self.assertRaises(subprocess.CalledProcessError):
            self.make("machine", kinds="m3u,asx")
        self.assertFalse((self.folder / "machine").exists())


def contents(machine):
    return {path.relative_to(machine): path.read_bytes() for path in machine.rglob("*")
            if path.is_file()}


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--make-corpus", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["corpus_test", *rest])
