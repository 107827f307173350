"""Moves with the program for Windows under Wine, on PCs that are made for each test. What comes is
read by readers that share nothing with the program, and songs are compared by their content."""

import argparse
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "faults"))

from native_playlists import PLAYER_FOLDERS, find_on_machine, read_native  # noqa: E402
from stage import own_mounts  # noqa: E402
from windows_machine import Machine  # noqa: E402

OPTIONS = None
OMEGA = "\u03a9 \u97f3\u697d"  # in no 8-bit page of Europe
LISTS = "C:\\My Documents\\Norvo Media\\PlayLists\\"
MUSIC = "C:\\Users\\Ann\\Music\\"
SONGS = {f"{MUSIC}One.mp3": 1, f"{MUSIC}Deep\\Zo\u00eb.mp3": 2, f"{MUSIC}{OMEGA}.mp3": 3}
MIX = f"{MUSIC}Mix.m3u8"
LONGEST = 120  # seconds


def song(number):
    return b"ID3\3\0\0\0\0\0\0" + b"\xff\xfb\x90\0" + bytes(413) + b"song %d" % number


def mix():
    """Every song by a full path, and one by a relative one."""
    return "".join(line + "\r\n" for line in ["#EXTM3U", *SONGS, "One.mp3"]).encode("utf-8-sig")


CONTENTS = [song(number) for number in [*SONGS.values(), 1]]


def fill(write):
    for path, number in SONGS.items():
        write(path, song(number))
    write(MIX, mix())


class WindowsMoveCase(unittest.TestCase):
    def setUp(self):
        self.stick = Path(tempfile.mkdtemp(prefix="norvo-stick-"))
        self.addCleanup(shutil.rmtree, self.stick)

    def pc(self):
        machine = Machine(OPTIONS.program, self.stick)
        self.addCleanup(machine.end)
        machine.start()
        return machine

    def run_on(self, machine, code, *words):
        found, out, err = machine.run_program(*words)
        self.assertEqual(found, code, out + err)
        return out + err

    def write_on(self, disk):
        """Writes to a folder that is the drive of a machine."""
        def write(path, content):
            place = disk.joinpath(*path[3:].split("\\"))
            place.parent.mkdir(parents=True, exist_ok=True)
            place.write_bytes(content)
        return write

    def check(self, drive, lists="My Documents/Norvo Media/PlayLists"):
        """The lists on the drive of a new machine lead to the songs, in order."""
        folder = drive / lists
        for player, ending in PLAYER_FOLDERS.items():
            files = sorted(path.name for path in (folder / player).iterdir())
            self.assertEqual(files, ["Mix" + ending], player)
            self.lead_to_songs(drive, read_native(player, (folder / player / files[0]).read_bytes()))
        modern = (folder / "Modern Players" / "Mix.m3u8").read_text(encoding="utf-8-sig")
        self.lead_to_songs(drive, [line for line in modern.splitlines()
                                   if line and not line.startswith("#")])

    def lead_to_songs(self, drive, references):
        with tempfile.TemporaryDirectory() as machine:
            (Path(machine) / "machine.ini").write_text(f"[Drives]\nC=fixed,{drive}\n")
            found = [find_on_machine(machine, reference) for reference in references]
        self.assertEqual([place and place.read_bytes() for place in found], CONTENTS, references)


def run(name):
    """Runs the tests of the program that is called `name`."""
    global OPTIONS
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--holder", required=True, help="what keeps a file to itself")
    parser.add_argument("--other-program", type=lambda path: Path(path).resolve(),
                        help="the one for this system")
    OPTIONS, rest = parser.parse_known_args()
    own_mounts()
    unittest.main(module="__main__", argv=[name, *rest])
