#!/usr/bin/env python3
"""Holds the manual's page of reasons (docs/manual/left-out.md) against the words of the program: it
tells all that a report can say, and nothing that none says."""

import re
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PAGE = ROOT / "docs/manual/left-out.md"
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
RAW = re.compile(r'R"\((.*?)\)"', re.S)
MARK = "'\"'"  # a quotation mark of its own
JOINED = re.compile(r'"\s*\n\s*u?"')
# Words that say something of themselves; what is shorter joins others.
WORDS_OF_A_REASON = 4


def texts_of(path):
    """The texts of a source file, those that are broken over lines in one piece."""
    source = path.read_text(encoding="utf-8")
    source = "\n".join(line for line in source.splitlines() if not line.startswith("#include"))
    found = RAW.findall(source)
    source = JOINED.sub("", RAW.sub("", source).replace(MARK, ""))
    return found + [text.replace('\\"', '"').replace("\\\\", "\\") for text in TEXT.findall(source)]


def plain(text):
    return " ".join(text.strip(" .:;,").split())


def page_text():
    return " ".join(PAGE.read_text(encoding="utf-8").split())


def told():
    """What the page has the program say: the first cells of its tables, piece by piece."""
    pieces = []
    for line in PAGE.read_text(encoding="utf-8").splitlines():
        if line.startswith("| ") and not line.startswith(("| It says", "| Because")):
            pieces += [plain(piece) for piece in line.split(" | ")[0][2:].split("...")]
    return [piece for piece in pieces if piece]


class ManualReasons(unittest.TestCase):
    def test_every_reason_of_a_report_is_told(self):
        page, count = page_text(), 0
        for name in ("cli/MoveWords.cpp", "cli/WarningWords.cpp",
                     "platform/hosted/HostedFileSystemListing.cpp",
                     "platform/hosted/HostedRegistry.cpp",
                     "platform/windows/WindowsFileSystem.cpp"):
            for text in texts_of(ROOT / "src" / name):
                if len(text.split()) < WORDS_OF_A_REASON:
                    continue
                count += 1
                with self.subTest(file=name, text=text):
                    self.assertIn(plain(text), page)
        self.assertGreater(count, 60)

    def test_nothing_is_told_that_no_report_says(self):
        folders = ("src/cli", "src/platform/hosted", "src/platform/windows")
        said = [" ".join(text.split()) for folder in folders
                for path in sorted((ROOT / folder).glob("*.cpp")) for text in texts_of(path)]
        pieces = told()
        self.assertGreater(len(pieces), 90)
        for piece in pieces:
            with self.subTest(piece):
                # A reason may begin with words that stand apart, such as those of a song's place.
                parts = [part for part in re.split(r"(?<=for it): ", piece) if part]
                for part in parts:
                    self.assertTrue(any(plain(part) in text for text in said), part)


if __name__ == "__main__":
    unittest.main()
