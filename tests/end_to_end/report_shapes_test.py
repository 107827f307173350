#!/usr/bin/env python3
"""Holds the documents of the commands against the names that are the same on every system."""

import argparse
import json
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from report_shapes import SHAPES, shape_fault

OPTIONS = None
MIX = "C:\\Music\\Mix.m3u"


class ReportShapesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Path(tempfile.mkdtemp(prefix="norvo-shapes-"))
        cls.addClassCleanup(shutil.rmtree, cls.machine)
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
                self.assertIsNone(shape_fault(json.loads(result.stdout), shape))

    def test_a_failure_is_a_document(self):
        result = subprocess.run([OPTIONS.program, "scan", "--json", "--machine", "/absent"],
                                capture_output=True, check=False)
        self.assertIsNone(shape_fault(json.loads(result.stdout), SHAPES["failure"]))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["report_shapes_test", *rest])


if __name__ == "__main__":
    main()
