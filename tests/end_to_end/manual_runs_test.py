#!/usr/bin/env python3
"""Runs what the manual shows once more: its pictures of a terminal and its blocks of output are what
the program tells of the same machines today."""

import argparse
import importlib.util
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))

from manual_runs import stories  # noqa: E402
from manual_runs.pages import shown_runs  # noqa: E402
from windows_machine import Machine  # noqa: E402

OPTIONS = None


def maker():
    """The script that makes pictures and blocks."""
    path = ROOT / "scripts/make-manual-pictures.py"
    spec = importlib.util.spec_from_file_location("make_manual_pictures", path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def screens_of(program):
    if program.suffix == ".exe":
        return stories.windows(program, Machine)
    return stories.sample(str(program)) | stories.linux(str(program))


class ManualRuns(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.screens = screens_of(OPTIONS.program)

    def test_pages_and_pictures_show_what_the_program_tells(self):
        files = maker().made_files(self.screens)
        self.assertGreater(len(files), 1)
        for path, text in files.items():
            with self.subTest(path.name):
                self.assertEqual(path.read_text(encoding="utf-8"), text,
                                 "run scripts/make-manual-pictures.py")

    def test_each_run_of_a_page_is_one_of_a_story(self):
        shown = [name for page in sorted((ROOT / "docs/manual").glob("*.md"))
                 for name in shown_runs(page.read_text(encoding="utf-8"))]
        on_windows = {"old-pc", "new-pc-trial", "new-pc", "case"}
        mine = [name for name in shown if (name in on_windows) == (OPTIONS.program.suffix == ".exe")]
        self.assertTrue(mine)
        self.assertEqual(set(mine) - set(self.screens), set())

    def test_the_runs_end_as_the_pages_say(self):
        codes = {"sample": 0, "trial": 1, "move": 1, "again": 1, "users": 2, "old-pc": 1,
                 "new-pc-trial": 0, "new-pc": 0, "case": 1}
        self.assertEqual({name: screen.code for name, screen in self.screens.items()},
                         {name: codes[name] for name in self.screens})


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True, help="for this system, or for Windows (.exe)")
    OPTIONS, rest = parser.parse_known_args()
    OPTIONS.program = Path(OPTIONS.program).resolve()
    unittest.main(argv=["manual_runs_test", *rest])


if __name__ == "__main__":
    main()
