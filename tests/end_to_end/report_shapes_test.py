#!/usr/bin/env python3
"""Holds the documents of the commands against the names that are the same on every system, and
against the schema that the project publishes."""

import argparse
import copy
import json
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from json_schema import Schema
from report_shapes import SHAPES, shape_fault

OPTIONS = None
MIX = "C:\\Music\\Mix.m3u"


class ReportShapesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Path(tempfile.mkdtemp(prefix="norvo-shapes-"))
        cls.addClassCleanup(shutil.rmtree, cls.machine)
        cls.schema = Schema(Path(OPTIONS.schema))
        music = cls.machine / "C" / "Music"
        music.mkdir(parents=True)
        (music / "One.mp3").write_bytes(bytes(1000))
        (music / "Mix.m3u").write_bytes(b"#EXTM3U\r\n#EXTINF:61,Ann - One\r\nOne.mp3\r\n"
                                        b"#EXTINF:62,Bob - Two\r\nTwo.mp3\r\n")

    def test_every_document_has_its_names(self):
        for command, code, more in (("init", 0, ()), ("scan", 0, ()), ("collect", 1, ()),
                                    ("show", 1, (MIX,)), ("restore", 0, ()), ("verify", 1, ())):
            with self.subTest(command):
                result = subprocess.run(
                    [OPTIONS.program, command, "--machine", self.machine, "--json", *more],
                    capture_output=True, check=False)
                self.assertEqual(result.returncode, code, result.stderr)
                # What is asked for with --machine is repeated.
                shape = {**SHAPES[command], "machine": str}
                document = json.loads(result.stdout)
                self.assertIsNone(shape_fault(document, shape))
                self.assertIsNone(self.schema.fault(document))

    def test_a_failure_is_a_document(self):
        result = subprocess.run([OPTIONS.program, "scan", "--json", "--machine", "/absent"],
                                capture_output=True, check=False)
        document = json.loads(result.stdout)
        self.assertIsNone(shape_fault(document, SHAPES["failure"]))
        self.assertIsNone(self.schema.fault(document))


class MoveDocumentTest(unittest.TestCase):
    """The document of a whole move, which has the most names."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="norvo-shapes-"))
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copytree(OPTIONS.sample, self.folder / "old")
        self.schema = Schema(Path(OPTIONS.schema))

    def move(self, *more):
        result = subprocess.run(
            [OPTIONS.program, "migrate", "--from", self.folder / "old", "--to",
             self.folder / "new", "--json", *more], capture_output=True, check=False)
        return json.loads(result.stdout)

    def test_the_schema_allows_every_document(self):
        blocked = self.folder / "new/C/My Documents/Norvo Media/Music/Twins"
        blocked.parent.mkdir(parents=True)
        blocked.write_bytes(b"in the way")  # some songs will have no place
        for more in (("--dry-run",), ("--log", "--all-music"), (), ("--no-media",)):
            with self.subTest(more):
                document = self.move(*more)
                self.assertGreater(len(document["playlists"]), 40)
                self.assertGreater(len(document["adjustments"]), 10)
                self.assertIsNone(self.schema.fault(document))

    def test_every_reason_has_a_code(self):
        def look(value, place):
            if isinstance(value, dict):
                self.assertEqual("reason" in value, "reasonCode" in value, place)
            pairs = value.items() if isinstance(value, dict) else \
                enumerate(value) if isinstance(value, list) else ()
            for name, each in pairs:
                look(each, f"{place}.{name}")
        look(self.move("--dry-run"), "the document")

    def test_the_schema_refuses_what_is_wrong(self):
        right = self.move("--dry-run")
        self.assertIsNone(self.schema.fault(right))

        def fault_after(change):
            wrong = copy.deepcopy(right)
            change(wrong)
            return self.schema.fault(wrong)

        mistakes = {
            "a version": lambda document: document.update(version=2),
            "no version": lambda document: document.pop("version"),
            "another command": lambda document: document.update(command="scan"),
            "a name too many": lambda document: document["playlists"][0].update(surplus=1),
            "a name too few": lambda document: document["media"][0].pop("listed"),
            "an unknown code": lambda document: document["adjustments"][0].update(reasonCode="x"),
            "no code": lambda document: next(
                item for playlist in document["playlists"] for item in playlist["items"]
                if item["outcome"] == "leftOut").pop("reasonCode"),
            "a text for a number": lambda document: document["count"].update(songs="1"),
            "less than nothing": lambda document: document["count"].update(songs=-1),
            "yes for a number": lambda document: document["count"].update(songs=True),
        }
        for name, change in mistakes.items():
            self.assertIsNotNone(fault_after(change), name)


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--schema", required=True)
    parser.add_argument("--sample", required=True, help="an old machine")
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["report_shapes_test", *rest])


if __name__ == "__main__":
    main()
