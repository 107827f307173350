#!/usr/bin/env python3
"""Moves songs to a disk that has no room for them: the move says so before it copies any, and with
room it is done."""

import argparse
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from stage import may_mount, mount, own_mounts

OPTIONS = None
SONG, SONGS = 200_000, 5
MEDIA = Path("C/My Documents/Norvo Media")


class RoomTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.old, self.disk = Path(folder.name, "old"), Path(folder.name, "disk")
        self.new = self.disk / "new"
        (self.old / "C/Music").mkdir(parents=True)
        for number in range(SONGS):
            (self.old / f"C/Music/{number}.mp3").write_bytes(bytes([number]) * SONG)
        (self.old / "C/Music/Mix.m3u").write_text(
            "#EXTM3U\r\n" + "".join(f"{number}.mp3\r\n" for number in range(SONGS)))
        self.disk.mkdir()
        mount("-t", "tmpfs", "-o", "size=900k", "norvo-room", self.disk)
        self.addCleanup(subprocess.run, ["umount", self.disk], check=True)

    def migrate(self, code, *more):
        result = subprocess.run([OPTIONS.program, "migrate", "--from", self.old, "--to", self.new,
                                 "--quiet", *more], capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, code, result.stderr)
        return result

    def files(self):
        return sorted(path.relative_to(self.new).as_posix() for path in self.new.rglob("*")
                      if path.is_file() and path.name != ".norvo-playlists.lock")

    def test_nothing_is_written_before_there_is_room(self):
        for more in (["--dry-run"], []):
            told = self.migrate(2, *more).stderr
            self.assertRegex(told, r"Drive C: of the new machine has no room for the songs: they "
                                   r"need 1\.0 MB, and 0\.9 MB are free")
            self.assertIn("--no-media", told)
            self.assertIn("--group-root", told)
            self.assertEqual(self.files(), [])
        document = json.loads(self.migrate(2, "--json").stdout)
        self.assertEqual(document["exitCode"], 2)
        self.assertIn("no room for the songs", document["error"])
        mount("-o", "remount,size=4m", self.disk)
        self.migrate(0)
        self.assertEqual(len(list((self.new / MEDIA / "Music").rglob("*.mp3"))), SONGS)

    def test_lists_come_alone_and_the_songs_when_there_is_room(self):
        self.migrate(0, "--no-media")
        before = self.files()
        told = self.migrate(2).stderr
        # Where the songs go is settled now.
        self.assertNotIn("--group-root", told)
        self.assertEqual(self.files(), before)
        mount("-o", "remount,size=1500k", self.disk)
        self.migrate(0)
        # What is there needs no room: not even once more what is left.
        self.migrate(0)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    own_mounts()
    with tempfile.TemporaryDirectory() as folder:
        if not may_mount(folder):
            print("Skipped: no disk can be mounted here.")
            sys.exit(77)
    unittest.main(argv=["room_test", *rest])


if __name__ == "__main__":
    main()
