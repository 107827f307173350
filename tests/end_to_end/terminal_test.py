#!/usr/bin/env python3
"""Shows the report of a move on terminals of several widths: no line is too long, colours are there
only for those who want them, and no name steers the terminal."""

import argparse
import fcntl
import os
import pty
import re
import shutil
import struct
import subprocess
import tempfile
import termios
import unicodedata
import unittest
from pathlib import Path

OPTIONS = None
COLOUR = re.compile(r"\x1b\[[0-9]*m")
PROGRESS = re.compile(r"\r\x1b\[K[^\n\r]*")


def cells(text):
    """As the terminal counts them."""
    return sum(0 if unicodedata.combining(letter) else
               2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


class TerminalTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="norvo-terminal-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        music = cls.folder / "old" / "C" / ("音楽" * 20)
        music.mkdir(parents=True)
        for name in ("One.mp3", "東京の夜は長くて静かです" * 3 + ".mp3", "🎵🎵 e\u0301.mp3"):
            (music / name).write_bytes(name.encode() * 100)
        names = sorted(path.name for path in music.iterdir())
        evil = ["x\x1b[2J\x1b]0;evil\x07.mp3", "y\u202eevil.mp3", "D:\\" + "long\\" * 40 + "z.mp3"]
        for name in ("Mix.m3u", "夏の音楽" * 12 + ".m3u"):
            (music / name).write_text("\ufeff#EXTM3U\r\n" + "\r\n".join(names + evil) + "\r\n",
                                      encoding="utf-8")

    def shown(self, columns, *more, **settings):
        """What a terminal is sent, as it comes."""
        master, slave = pty.openpty()
        fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 50, columns, 0, 0))
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("COLUMNS", "NO_COLOR")}
        program = subprocess.Popen(
            [OPTIONS.program, "migrate", "--from", self.folder / "old", "--to",
             self.folder / "new", "--dry-run", *more], stdout=slave, stderr=slave,
            env={**environment, "TERM": "xterm", **settings})
        os.close(slave)
        data = b""
        while True:
            try:
                piece = os.read(master, 65536)
            except OSError:  # nobody writes any more
                break
            if not piece:
                break
            data += piece
        os.close(master)
        self.assertEqual(program.wait(), 0)
        return PROGRESS.sub("", data.decode("utf-8")).replace("\r\n", "\n")

    def test_every_line_fits(self):
        for columns in (40, 80, 200):
            for more in ((), ("--verbose",)):
                with self.subTest(columns=columns, more=more):
                    lines = COLOUR.sub("", self.shown(columns, *more)).split("\n")
                    self.assertGreater(len(lines), 10)
                    self.assertLessEqual(max(map(cells, lines)), columns)

    def test_a_wide_terminal_is_used(self):
        longest = [max(map(cells, COLOUR.sub("", self.shown(columns)).split("\n")))
                   for columns in (80, 200)]
        self.assertGreater(longest[0], 70)
        self.assertGreater(longest[1], 150)

    def test_the_width_that_is_asked_for_counts(self):
        lines = COLOUR.sub("", self.shown(200, COLUMNS="60")).split("\n")
        self.assertLessEqual(max(map(cells, lines)), 60)

    def test_colours_are_there_only_for_those_who_want_them(self):
        self.assertRegex(self.shown(80), COLOUR)
        for settings in ({"NO_COLOR": "1"}, {"TERM": "dumb"}):
            self.assertNotIn("\x1b", self.shown(80, **settings))
        self.assertRegex(self.shown(80, NO_COLOR=""), COLOUR)
        self.assertNotIn("\x1b", self.shown(80, "--json"))

    def test_names_do_not_steer_the_terminal(self):
        text = COLOUR.sub("", self.shown(80))
        self.assertNotRegex(text, "[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]")
        self.assertIn("x\\x1B[2J", text)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["terminal_test", *rest])


if __name__ == "__main__":
    main()
