"""A program on a terminal, and what a person sees there."""

import fcntl
import os
import pty
import re
import struct
import subprocess
import termios
import unicodedata
from dataclasses import dataclass

CLEARED = "\r\x1b[K"  # takes the progress off the line that it stood on
COLOUR = re.compile(r"\x1b\[([0-9]*)m")
STYLES = {"": "plain", "0": "plain", "1": "heading", "2": "dim", "32": "good", "33": "problem"}


@dataclass
class Screen:
    """What a command has shown: its lines, each a list of pairs of a style and a text."""
    command: str
    lines: list
    code: int

    def texts(self):
        return ["".join(text for _, text in line) for line in self.lines]


def cells(text):
    """The cells of a terminal that it takes."""
    return sum(0 if unicodedata.combining(letter) else
               2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


def styled(line):
    """A line as it is sent, as pairs of a style and a text."""
    parts = COLOUR.split(line)
    spans = [("plain", parts[0])] + [(STYLES[code], text)
                                     for code, text in zip(parts[1::2], parts[2::2])]
    return [(style, text) for style, text in spans if text]


def sent_to_terminal(words, folder, columns):
    """All that the terminal is sent, and the exit code."""
    master, slave = pty.openpty()
    fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 50, columns, 0, 0))
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("COLUMNS", "NO_COLOR")}
    program = subprocess.Popen(words, cwd=folder, stdin=subprocess.DEVNULL, stdout=slave,
                               stderr=slave, env={**environment, "TERM": "xterm"})
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
    return data.decode("utf-8"), program.wait()


def on_terminal(program, words, folder, columns, places=()):
    """Runs the program in a folder. `places` are pairs of a path of this machine and the one that is
    shown for it."""
    text, code = sent_to_terminal([program, *words], folder, columns)
    text = text.replace("\r\n", "\n").rstrip("\n")
    for real, shown in places:
        text = text.replace(real, shown)
    return Screen("$ " + " ".join(["norvo-playlists", *words]),
                  [styled(line.split(CLEARED)[-1]) for line in text.split("\n")], code)
