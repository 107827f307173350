#!/usr/bin/env python3
"""Ends a move at its terminal by Ctrl+C, under Wine that of the program for Windows: it ends soon,
with a word on how to go on and an exit code of its own; what it has made is whole, and the same
command completes it. What the terminal shows is looked at, too."""

import argparse
import os
import pty
import select
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from windows_machine import PROGRAM, Machine

OPTIONS = None
LONGEST = 120  # seconds
ENDED = 130
SONGS, SONG = 60, 1_000_000
LARGE_SONG = 12_000_000  # so that they are on their way for longer than the display waits
FOLDERS = 1500  # so many take a moment
NAME = "Ω 音楽"
COLOUR = "\x1b[32m"


class Folders:
    """Two machines in folders, on this system."""

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="norvo-ended-"))
        self.old, self.new = self.folder / "old", self.folder / "new/C"
        self.environment = {**os.environ, "TERM": "xterm", "LC_ALL": "C.UTF-8"}
        self.command = [OPTIONS.program, "migrate", "--from", str(self.old), "--to",
                        str(self.folder / "new")]

    def end(self):
        shutil.rmtree(self.folder)


class Windows(Machine):
    """A Windows PC, and the disk of an old one."""

    def __init__(self):
        self.old = Path(tempfile.mkdtemp(prefix="norvo-ended-"))
        super().__init__(OPTIONS.program, self.old)
        self.start()
        self.environment["TERM"] = "xterm"
        self.new = self.drive
        self.command = ["wine", PROGRAM, "migrate", "--from", "E:\\"]

    def end(self):
        super().end()
        shutil.rmtree(self.old)


class EndedTest(unittest.TestCase):
    def setUp(self):
        on_windows = OPTIONS.program.suffix == ".exe"
        self.pair = (Windows if on_windows else Folders)()
        self.addCleanup(self.pair.end)
        (self.pair.old / "Windows").mkdir(parents=True)
        music = self.pair.old / "Music"
        music.mkdir()
        self.songs = {bytes([number]) * (LARGE_SONG if on_windows else SONG)
                      for number in range(SONGS)}
        for song in self.songs:
            (music / f"{song[0]}.mp3").write_bytes(song)
        lines = ["#EXTM3U", *(f"{number}.mp3" for number in range(SONGS))]
        (music / f"{NAME}.m3u8").write_text("\r\n".join(lines) + "\r\n", encoding="utf-8-sig")
        for number in range(FOLDERS):
            (self.pair.old / f"Folder {number}").mkdir()

    def run_at_terminal(self, sign=None):
        """Ends the run by Ctrl+C when it shows the sign. The exit code and what was shown."""
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(self.pair.folder)
            os.execvpe(self.pair.command[0], self.pair.command, self.pair.environment)
        shown, began = b"", time.monotonic()
        while time.monotonic() - began < LONGEST:
            if not select.select([terminal], [], [], 1)[0]:
                continue
            try:
                piece = os.read(terminal, 65536)
            except OSError:  # nobody writes any more
                break
            if not piece:
                break
            shown += piece
            if sign and sign in shown:
                os.write(terminal, b"\x03")
                sign = None
        else:
            os.kill(child, signal.SIGKILL)
        os.close(terminal)
        self.assertIsNone(sign, shown[-2000:])
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), shown.decode("utf-8", "replace")

    def new_songs(self):
        return [path.read_bytes() for path in self.pair.new.rglob("*.mp3")]

    def leavings(self):
        return [path for path in self.pair.new.rglob("*")
                if ".norvo" in path.name and path.name != ".norvo-playlists.lock"]

    def check_ended(self, code, shown):
        self.assertEqual(code, ENDED, shown[-2000:])
        # The console of Wine breaks the line where it ends.
        self.assertIn("Ended before it was done. What is done stays; run the same", shown)
        self.assertLessEqual(set(self.new_songs()), self.songs)
        self.assertEqual(self.leavings(), [])

    def test_the_same_command_completes_what_was_ended(self):
        self.check_ended(*self.run_at_terminal(b"taking stock"))
        if isinstance(self.pair, Windows):  # which takes its time
            self.check_ended(*self.run_at_terminal(b"bringing songs"))
        code, shown = self.run_at_terminal()
        self.assertEqual(code, 0, shown[-2000:])
        self.assertEqual(sorted(self.new_songs()), sorted(self.songs))
        self.assertIn(NAME, shown)
        self.assertIn(COLOUR, shown)

    def test_what_goes_elsewhere_has_no_colours(self):
        result = subprocess.run(self.pair.command, env=self.pair.environment,
                                cwd=self.pair.folder, stdin=subprocess.DEVNULL,
                                capture_output=True, timeout=LONGEST, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(NAME, result.stdout.decode("utf-8"))
        self.assertNotIn(b"\x1b", result.stdout + result.stderr)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, type=lambda name: Path(name).resolve())
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["ended_test", *rest])


if __name__ == "__main__":
    main()
