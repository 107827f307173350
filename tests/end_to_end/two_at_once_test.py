#!/usr/bin/env python3
"""Runs of the program that are started at the same moment, to the same machine."""

import argparse
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from real_machine import RealMachine

OPTIONS = None
ROUNDS = 4


class TwoAtOnce(unittest.TestCase):
    def setUp(self):
        temp = tempfile.TemporaryDirectory(prefix="norvo-two-")
        self.addCleanup(temp.cleanup)
        self.folder = Path(temp.name)

    def start(self, *words):
        return subprocess.Popen([OPTIONS.program, *words], stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def ends(self, *runs):
        """Exit code and standard error of each."""
        told = [run.communicate(timeout=300)[1].decode() for run in runs]
        return [(run.returncode, text) for run, text in zip(runs, told)]

    @staticmethod
    def tree(folder):
        """The bytes of all files."""
        return {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*")
                if path.is_file()}

    def test_two_moves_that_wait_leave_what_one_leaves(self):
        RealMachine(self.folder / "old")
        alone = self.folder / "alone"
        migrate = ["migrate", "--from", self.folder / "old", "--wait", "--to"]
        self.assertEqual(self.ends(self.start(*migrate, alone))[0][0], 0)
        expected = self.tree(alone)
        for number in range(ROUNDS):
            new = self.folder / f"new {number}"
            for code, told in self.ends(self.start(*migrate, new), self.start(*migrate, new)):
                self.assertEqual(code, 0, told)
            found = self.tree(new)
            self.assertEqual(sorted(found), sorted(expected))

    def test_without_waiting_one_of_two_moves_is_told_who_works_there(self):
        RealMachine(self.folder / "old")
        for number in range(ROUNDS):
            new = self.folder / f"new {number}"
            runs = [self.start("migrate", "--from", self.folder / "old", "--to", new)
                    for _ in range(2)]
            ends = self.ends(*runs)
            for code, told in ends:
                if code != 0:
                    self.assertEqual(code, 2, told)
                    self.assertIn(f"{new} is being worked on by ", told)
            self.assertIn(0, [code for code, _ in ends])
            lists = [path.name for path in new.rglob("*.m3u8")]
            self.assertEqual(len(lists), len(set(lists)))

    def test_two_collects_that_wait_leave_what_one_leaves(self):
        RealMachine(self.folder / "old")
        RealMachine(self.folder / "twice")
        collect = ["collect", "--init", "--wait", "--machine"]
        self.ends(self.start(*collect, self.folder / "old"))
        self.ends(self.start(*collect, self.folder / "twice"),
                  self.start(*collect, self.folder / "twice"))
        once, twice = self.tree(self.folder / "old"), self.tree(self.folder / "twice")
        self.assertEqual(sorted(once), sorted(twice))
        media_list = next(path for path in once if path.name == "MediaList.txt")
        self.assertEqual(once[media_list], twice[media_list])


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest])


if __name__ == "__main__":
    main()
