#!/usr/bin/env python3
"""Holds the files of the Windows package against the list of what belongs into it: those of a
package (--zip FILE), or those that one build would put there (--build DIR --folder x64|x86)."""

import argparse
import re
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
SHARED = {"LICENSE", "include/NorvoPlayList.h"}
EXAMPLES = "examples/automation"
PROGRAMS = ("NorvoPlayList.dll", "norvo-playlists.exe")
REQUIRED = {"NorvoPlayList.tlb", "NorvoPlayList.manifest", *PROGRAMS}
# Its licence, and where Debian states it.
LICENSES = {"CLI11": "doc/libcli11-dev/copyright", "TagLib": "doc/libtag1-dev/copyright",
            "nlohmann-json": "doc/nlohmann-json3-dev/copyright",
            "UTF8-CPP": "doc/libutfcpp-dev/copyright",
            "pugixml": "doc/libpugixml-dev/copyright", "utf8proc": "doc/libutf8proc-dev/copyright",
            "mingw-w64": "doc/mingw-w64-common/copyright", "MPL-1.1": "common-licenses/MPL-1.1"}


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


def manual():
    """The pages by name."""
    with tempfile.TemporaryDirectory() as folder:
        pages = Path(folder) / "pages"
        subprocess.run([ROOT / "scripts/make-manual-pages.py", pages], check=True)
        return {path.relative_to(pages).as_posix(): path.read_bytes()
                for path in pages.rglob("*") if path.is_file()}


def project_version():
    return re.search(r"^project\(\w+ VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.M)[1]


def version_texts(program):
    """What the version resource says, by name; each value stands at a multiple of 4 bytes."""
    texts = {}
    for name in ("FileVersion", "ProductVersion", "OriginalFilename", "LegalCopyright"):
        key = (name + "\0").encode("utf-16-le")
        place = program.index(key) + len(key)
        while program[place:place + 2] == b"\0\0":
            place += 2
        end = place
        while program[end:end + 2] != b"\0\0":
            end += 2
        texts[name] = program[place:end].decode("utf-16-le")
    return texts


def version_numbers(program):
    """File's and product's, of the fixed part of the resource."""
    place = program.index("VS_VERSION_INFO\0".encode("utf-16-le"))
    place = program.index(struct.pack("<I", 0xFEEF04BD), place)
    numbers = struct.unpack_from("<IIII", program, place + 8)
    return {f"{high >> 16}.{high & 0xFFFF}.{low >> 16}.{low & 0xFFFF}"
            for high, low in (numbers[:2], numbers[2:])}


class Package(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folders = [OPTIONS.folder] if OPTIONS.build else list(FOLDERS)
        cls.files = read_staging(OPTIONS.build) if OPTIONS.build else read_zip(OPTIONS.zip)

    def test_holds_what_belongs_there_and_nothing_else(self):
        examples = {path.relative_to(ROOT).as_posix()
                    for path in (ROOT / EXAMPLES).rglob("*") if path.is_file()}
        self.assertTrue(examples)
        required = SHARED | examples | set(manual())
        required |= {f"licenses/{name}.txt" for name in LICENSES}
        required |= {f"{folder}/{name}" for folder in self.folders for name in REQUIRED}
        self.assertEqual(set(self.files), required)

    def test_programs_tell_the_projects_version(self):
        version = project_version()
        for folder in self.folders:
            for name in PROGRAMS:
                with self.subTest(f"{folder}/{name}"):
                    program = self.files[f"{folder}/{name}"]
                    texts = version_texts(program)
                    self.assertEqual(texts["FileVersion"], version)
                    self.assertEqual(texts["ProductVersion"], version)
                    self.assertEqual(texts["OriginalFilename"], name)
                    self.assertIn("authors", texts["LegalCopyright"])
                    self.assertEqual(version_numbers(program), {version + ".0"})
            manifest = self.files[f"{folder}/NorvoPlayList.manifest"].decode()
            self.assertIn(f'name="NorvoPlayList" version="{version}.0"', manifest)
        if OPTIONS.zip:
            self.assertEqual(Path(OPTIONS.zip).name, f"NorvoPlayList-{version}-windows.zip")

    def test_programs_have_the_icon(self):
        with tempfile.TemporaryDirectory() as folder:
            icon = Path(folder) / "norvo.ico"
            subprocess.run([ROOT / "scripts/make-icon.py", icon], check=True)
            drawn = icon.read_bytes()
        for i in range(struct.unpack_from("<H", drawn, 4)[0]):
            size, place = struct.unpack_from("<II", drawn, 6 + 16 * i + 8)
            for folder in self.folders:
                for name in PROGRAMS:
                    self.assertIn(drawn[place:place + size], self.files[f"{folder}/{name}"])

    def test_the_library_carries_none_of_the_programs_libraries(self):
        for folder in self.folders:
            for name in (b"TagLib", b"pugi", b"CLI3App", b"nlohmann"):
                self.assertIn(name, self.files[f"{folder}/norvo-playlists.exe"])
                self.assertNotIn(name, self.files[f"{folder}/NorvoPlayList.dll"])

    def test_licences_are_those_that_debian_states(self):
        for name, source in LICENSES.items():
            self.assertEqual(self.files[f"licenses/{name}.txt"],
                             Path("/usr/share", source).read_bytes())

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
        pages = manual()
        for name in self.files:
            if name == "include/NorvoPlayList.h" or name.partition("/")[0] in (*FOLDERS, "licenses"):
                continue
            with self.subTest(name):
                self.assertEqual(self.files[name], pages.get(name) or (ROOT / name).read_bytes())


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
