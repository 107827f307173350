#!/usr/bin/env python3
"""Does in a bare Debian what the README tells a newcomer to do first: runs the sample from the
sources of the last commit, with nothing installed before, and tells how long that took. What cannot
be tried, and why, is said; then it ends with 77."""

import re
import subprocess
import sys
import time
import unittest
from pathlib import Path

from bare_debian import BareDebian, CannotBeMade

ROOT = Path(__file__).resolve().parents[2]
DEBIAN = None


def first_command():
    """The first that the README shows."""
    lines = (ROOT / "README.md").read_text(encoding="utf-8").splitlines()
    return next(line.strip() for line in lines if line.startswith("    "))


class FirstMinutes(unittest.TestCase):
    def test_the_first_command_of_the_readme_shows_a_move(self):
        sources = subprocess.run(["git", "archive", "HEAD"], cwd=ROOT, capture_output=True,
                                 check=True).stdout
        place = DEBIAN.root / "root/norvo"
        place.mkdir(parents=True)
        subprocess.run(["tar", "-x", "-C", place], input=sources, check=True)
        began = time.monotonic()
        done = DEBIAN.run("sh", "-c", first_command(), folder="/root/norvo")
        minutes = (time.monotonic() - began) / 60
        told = done.stdout.decode()
        self.assertEqual(done.returncode, 0, told)
        self.assertIn("44 of 44 songs right", re.sub(r"\s+", " ", told))
        self.assertTrue((place / "out/sample-machine/new/C").is_dir())
        print(f"From a bare Debian to the moved sample: {minutes:.1f} minutes")


def main():
    global DEBIAN
    try:
        DEBIAN = BareDebian()
    except CannotBeMade as reason:
        print(f"skipped: the first command was not tried: {reason}")
        sys.exit(77)
    try:
        done = unittest.main(argv=["first_minutes_test", "-v"], exit=False)
    finally:
        DEBIAN.end()
    sys.exit(0 if done.result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
