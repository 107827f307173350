#!/usr/bin/env python3
"""Runs every example that the program's help prints, over disks and machines of a person's."""

import argparse
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))

from makers.files import place, write  # noqa: E402
from makers.playlists import Item, m3u  # noqa: E402
from makers.songs import audio, id3v2  # noqa: E402
from makers.text import encoded, joined  # noqa: E402

OPTIONS = None
COMMANDS = ("migrate", "init", "scan", "collect", "restore", "verify", "show")
EXAMPLE = re.compile(r"^  (norvo-playlists .*)$", re.M)
# A path of the examples: of the system's mounted disks, or of the person's own folder.
PATH = re.compile(r"(?<![\w/])(/mnt/|~/)")


def put_music(root, music="Music"):
    """Two songs and a playlist of them, which `show` and `verify` are asked for."""
    for name in ("One", "Two"):
        write(place(root, f"{music}/{name}.mp3"),
              id3v2(title=name, artist="Ann", album="All") + audio(2000))
    items = [Item("One.mp3", "Ann - One", 61), Item("Two.mp3", "Ann - Two", 62)]
    write(place(root, f"{music}/Mix.m3u"), encoded(joined(m3u(items))))


class HelpExamplesTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="norvo-examples-"))
        self.addCleanup(shutil.rmtree, self.root)
        (self.root / "mnt").mkdir()
        programs = self.root / "bin"
        programs.mkdir()
        (programs / "norvo-playlists").symlink_to(Path(OPTIONS.program).resolve())
        self.environment = {**os.environ, "HOME": str(self.root / "home"),
                            "PATH": f"{programs}:{os.environ['PATH']}"}

    def put_machines(self):
        """What stands where the examples name it: two disks, the folder of a machine with two
        drives, and a person's own music."""
        for name in ("mnt", "home"):
            shutil.rmtree(self.root / name, ignore_errors=True)
        mnt = self.root / "mnt"
        put_music(mnt / "old-pc" / "C")
        (mnt / "old-pc" / "D").mkdir()
        put_music(mnt / "old-disk")
        (mnt / "old-disk" / "WINDOWS").mkdir()
        put_music(mnt / "old-d")
        put_music(mnt / "new-disk")
        for folder in ("Windows", "Users/Ann/Documents"):
            (mnt / "new-disk" / folder).mkdir(parents=True)
        put_music(self.root / "home")

    def run_line(self, line):
        """Runs an example as a shell does."""
        here = PATH.sub(lambda found: found[0] if found[1] == "~/"
                        else shlex.quote(str(self.root / "mnt")) + "/", line)
        return subprocess.run(["bash", "-o", "pipefail", "-c", here], env=self.environment,
                              cwd=self.root, capture_output=True, timeout=100, check=False)

    def prepare(self, command):
        """Does what a command needs that the examples before it have done."""
        lines = []
        if command in ("scan", "collect"):
            lines = ["norvo-playlists init --machine /mnt/old-disk"]
        if command in ("restore", "verify"):
            lines = ["norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-disk"]
        for line in lines:
            self.assertEqual(self.run_line(line).returncode, 0, line)

    def examples(self, *words):
        result = subprocess.run([OPTIONS.program, *words, "--help"], capture_output=True,
                                check=True)
        return EXAMPLE.findall(result.stdout.decode())

    def run_examples(self, *words):
        lines = self.examples(*words)
        self.assertTrue(lines, f"the help of {words} has no examples")
        for line in lines:
            if "| jq" in line and not shutil.which("jq"):
                line = line.split(" | ")[0]
            with self.subTest(line):
                self.put_machines()
                self.prepare(line.split()[1])
                result = self.run_line(line)
                self.assertEqual(result.returncode, 0, result.stderr.decode())
                self.assertTrue(result.stdout or "> " in line, "it reports nothing")

    def test_the_programs_help(self):
        self.run_examples()

    def test_the_help_of_each_command(self):
        for command in COMMANDS:
            with self.subTest(command):
                self.run_examples(command)

    def test_every_command_is_tried(self):
        text = subprocess.run([OPTIONS.program, "--help"], capture_output=True,
                              check=True).stdout.decode()
        told = text.split("Subcommands:")[1].split("\n\n")[0]
        self.assertEqual(sorted(re.findall(r"^  (\w+)  ", told, re.M)), sorted(COMMANDS))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["help_examples_test", *rest])


if __name__ == "__main__":
    main()
