#!/usr/bin/env python3
"""Holds the files of the Windows package against the list of what belongs into it: those of a
package (--zip FILE), or those that one build would put there (--build DIR --folder x64|x86)."""

import argparse
import struct
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
OPTIONS = None
FOLDERS = {"x64": 0x8664, "x86": 0x014C}  # and the processor that the programs in it are for
SHARED = {"README.md", "CHANGELOG.md", "LICENSE", "docs/automation.md", "include/NorvoPlayList.h"}
EXAMPLES = "examples/automation"
REQUIRED = {"NorvoPlayList.dll", "NorvoPlayList.tlb"}
OPTIONAL = {"NorvoPlayList.manifest", "norvo-playlists.exe"}


def read_zip(path):
    """Its files by name; a name twice would be a file of both builds that differs."""
    with zipfile.ZipFile(path) as package:
        files = [each for each in package.infolist() if not each.is_dir()]
        names = [each.filename for each in files]
        if len(names) != len(set(names)):
            raise ValueError(f"{path} holds a name twice")
        return {each.filename: package.read(each) for each in files}


def read_staging(build):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["cmake", "--install", build, "--component", "windows", "--strip",
                        "--prefix", folder], check=True, stdout=subprocess.DEVNULL)
        return {path.relative_to(folder).as_posix(): path.read_bytes()
                for path in Path(folder).rglob("*") if path.is_file()}


def processor_of(program):
    """What the header of a Windows program or library says."""
    header = struct.unpack_from("<I", program, 0x3C)[0]
    if program[:2] != b"MZ" or program[header:header + 4] != b"PE\0\0":
        raise ValueError("no Windows program")
    return struct.unpack_from("<H", program, header + 4)[0]


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folders = [OPTIONS.folder] if OPTIONS.build else list(FOLDERS)
        cls.files = read_staging(OPTIONS.build) if OPTIONS.build else read_zip(OPTIONS.zip)

    def test_holds_what_belongs_there_and_nothing_else(self):
        examples = {path.relative_to(ROOT).as_posix()
                    for path in (ROOT / EXAMPLES).rglob("*") if path.is_file()}
        self.assertTrue(examples)
        required = SHARED | examples
        required |= {f"{folder}/{name}" for folder in self.folders for name in REQUIRED}
        optional = {f"{folder}/{name}" for folder in self.folders for name in OPTIONAL}
        self.assertEqual(set(self.files) - optional, required)

    def test_both_bitnesses_have_the_same_files(self):
        contents = [{name.partition("/")[2] for name in self.files if name.startswith(folder + "/")}
                    for folder in self.folders]
        for each in contents:
            self.assertEqual(each, contents[0])

    def test_programs_are_for_the_processor_of_their_folder(self):
        for name, content in self.files.items():
            if not name.endswith((".dll", ".exe")):
                continue
            with self.subTest(name):
                self.assertEqual(processor_of(content), FOLDERS[name.partition("/")[0]])

    def test_no_file_names_a_folder_of_the_machine_that_built_it(self):
        places = [str(ROOT)] + ([str(Path(OPTIONS.build).resolve())] if OPTIONS.build else [])
        for name, content in self.files.items():
            for place in places:
                with self.subTest(file=name, place=place):
                    self.assertNotIn(place.encode(), content)
                    self.assertNotIn(place.encode("utf-16-le"), content)

    def test_texts_are_those_of_the_project(self):
        for name in self.files:
            if name == "include/NorvoPlayList.h" or name.partition("/")[0] in FOLDERS:
                continue
            with self.subTest(name):
                self.assertEqual(self.files[name], (ROOT / name).read_bytes())


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    source = parser.add_mutually_exclusive_group(required=True)
    source.add_argument("--zip")
    source.add_argument("--build")
    parser.add_argument("--folder", choices=FOLDERS)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=sys.argv[:1] + rest)


if __name__ == "__main__":
    main()
