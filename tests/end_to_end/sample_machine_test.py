#!/usr/bin/env python3
"""Runs the program over copies of the sample machine and holds what it made against the sample's
own description (examples/README.md), which was written from the playlists, not by the program."""

import argparse
import json
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

OPTIONS = None
ROW = re.compile(r"^\| `([A-Z]:\\.*?)` \| (.*?) \| (\d+) of (\d+) \| (.*) \|$", re.M)


def described_playlists():
    """Path, type text, entries kept and remark of every playlist of the description."""
    text = (Path(OPTIONS.sample).parent / "README.md").read_text(encoding="utf-8")
    return [(path, kind, int(kept), remark) for path, kind, kept, _, remark in ROW.findall(text)]


def is_listed(path, kind, remark):
    return not remark.endswith("the scan does not record it.") and "never lists it" not in remark


def decoded(path):
    raw = path.read_bytes()
    return raw.decode("utf-16") if raw.startswith(b"\xff\xfe") else raw.decode("cp1252")


def snapshot(folder):
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in sorted(folder.rglob("*")) if path.is_file()}


class SampleMachine(unittest.TestCase):
    def setUp(self):
        self.temp = tempfile.TemporaryDirectory()
        self.addCleanup(self.temp.cleanup)
        self.machine = Path(self.temp.name) / "machine"
        shutil.copytree(OPTIONS.sample, self.machine)
        self.kvs = self.machine / "C" / "My Documents" / "Norvo Media" / "KVs"

    def run_program(self, *arguments):
        return subprocess.run([OPTIONS.program, *map(str, arguments)], capture_output=True,
                              timeout=100, check=False)

    def collect(self):
        result = self.run_program("collect", "--init", "--json", "--machine", self.machine)
        self.assertEqual(result.returncode, 1, result.stderr.decode())  # the sample leaves some out
        return json.loads(result.stdout.decode("utf-8"))

    def test_every_playlist_is_found_and_keeps_the_described_entries(self):
        playlists = {row["path"]: row for row in self.collect()["playlists"]}
        described = described_playlists()
        self.assertGreaterEqual(len(described), 28)
        for path, kind, kept, remark in described:
            with self.subTest(path):
                self.assertEqual(path in playlists, is_listed(path, kind, remark))
                if path in playlists:
                    self.assertEqual(playlists[path]["kept"], kept)
        self.assertEqual(set(playlists), {d[0] for d in described if d[0] in playlists})

    def test_each_written_playlist_has_a_neutral_file_with_its_entries(self):
        report = self.collect()
        written = [row for row in report["playlists"] if row["outcome"] == "written"]
        self.assertEqual(len(written), report["summary"]["written"])
        self.assertEqual(len(list(self.kvs.glob("*.ini"))), len(written))
        entries = 0
        for path in self.kvs.glob("*.ini"):
            text = decoded(path)
            sections = re.findall(r"^\[Entry (\d+) Properties\]\r$", text, re.M)
            self.assertEqual(sections, [str(i + 1) for i in range(len(sections))], path.name)
            self.assertIn(f"\r\nTotalSongs={len(sections)}\r\n\r\n[Entry 1", text)
            self.assertEqual(len(re.findall(r"\r\nURLType=\d+\r\n\r\n", text)), len(sections))
            entries += len(sections)
        self.assertEqual(entries, sum(row["kept"] for row in written))

    def test_a_second_collect_gives_the_same_files_byte_for_byte(self):
        self.collect()
        first = snapshot(self.machine)
        self.collect()
        self.assertEqual(first, snapshot(self.machine))

    def test_the_media_list_names_existing_files_once(self):
        self.collect()
        lines = (self.kvs / "MediaList.txt").read_text(encoding="utf-8-sig").splitlines()
        records = [line.split("\t") for line in lines]
        self.assertTrue(all(len(record) == 3 for record in records))
        self.assertEqual(len(records), len({(r[1].lower(), r[2].lower()) for r in records}))
        present = {str(path.relative_to(self.machine)).lower() for path in self.machine.rglob("*")}
        for _, source, destination in records:
            self.assertTrue(destination.startswith("GET_SHELL_FOLDER,5,M"), destination)
            if source.endswith("\\"):
                continue  # the folder of a relative reference
            host = (source[0] + "/" + source[3:].replace("\\", "/")).lower()
            self.assertIn(host, present)

    def test_scan_lists_the_playlists_and_leaves_the_list(self):
        self.assertEqual(self.run_program("init", "--machine", self.machine).returncode, 0)
        result = self.run_program("scan", "--json", "--machine", self.machine)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        found = {row["path"] for row in json.loads(result.stdout.decode("utf-8"))["playlists"]}
        wanted = {d[0] for d in described_playlists() if is_listed(d[0], d[1], d[3])}
        self.assertEqual(found, wanted)
        self.assertTrue((self.kvs / "PlayLists.txt").is_file())

    def test_show_reads_each_playlist_as_collect_does_and_changes_nothing(self):
        playlists = self.collect()["playlists"]
        before = snapshot(self.machine)
        for row in playlists:
            if row["outcome"] == "unknownType":
                continue
            with self.subTest(row["path"]):
                kind = str(row["type"])
                result = self.run_program("show", "--json", "--machine", self.machine, "--type",
                                          kind, row["path"])
                shown = json.loads(result.stdout.decode("utf-8"))
                self.assertEqual(len(shown["entries"]), row["kept"])
        self.assertEqual(before, snapshot(self.machine))

    def test_a_machine_without_settings_is_told_of_init(self):
        for command in ("scan", "collect"):
            result = self.run_program(command, "--machine", self.machine)
            self.assertEqual(result.returncode, 2)
            self.assertIn(b"init", result.stderr)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True)
    parser.add_argument("--sample", required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["sample_machine_test", *rest])
