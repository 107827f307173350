#!/usr/bin/env python3
"""Installs the Debian packages of a folder in a bare Debian, uses them as a person does, and removes
them again. What cannot be tried, and why, is said; then it ends with 77."""

import argparse
import gzip
import re
import subprocess
import sys
import unittest
from pathlib import Path

from bare_debian import BareDebian, CannotBeMade

ROOT = Path(__file__).resolve().parents[2]
OPTIONS = None
DEBIAN = None
ALL_SONGS = "44 of 44 songs are reached and right"


def package(name):
    found = list(OPTIONS.packages.glob(f"{name}_*.deb"))
    if len(found) != 1:
        sys.exit(f"{OPTIONS.packages} has {len(found)} packages {name}")
    return found[0]


def field(file, name):
    return subprocess.run(["dpkg-deb", "--field", file, name], capture_output=True,
                          check=True).stdout.decode().strip()


class PackageCase(unittest.TestCase):
    NAME = ""
    NEEDED_BESIDE = ""

    @classmethod
    def setUpClass(cls):
        cls.file = package(cls.NAME)
        cls.must("apt-get", "-q", "-y", "--no-install-recommends", "satisfy",
                 field(cls.file, "Depends") + cls.NEEDED_BESIDE)
        cls.before = DEBIAN.snapshot()
        DEBIAN.bring(cls.file, f"tmp/{cls.file.name}")
        told = cls.must("apt-get", "-q", "-y", "install", f"/tmp/{cls.file.name}")
        if "0 upgraded, 1 newly installed" not in told:
            raise AssertionError(f"its field Depends leaves out what it needs:\n{told}")

    @staticmethod
    def must(*words, codes=(0,), folder="/tmp"):
        done = DEBIAN.run(*words, folder=folder)
        text = done.stdout.decode()
        if done.returncode not in codes:
            raise AssertionError(f"{words} ended with {done.returncode}:\n{text}")
        return text

    def check_it_is_gone(self):
        owned = self.must("dpkg", "-L", self.NAME).splitlines()
        self.assertTrue(any(path.endswith("/copyright") for path in owned))
        self.must("apt-get", "-q", "-y", "purge", self.NAME)
        after = DEBIAN.snapshot()
        changed = {name for name in self.before.keys() | after.keys()
                   if self.before.get(name) != after.get(name)}
        self.assertEqual(changed, set())

    def check_papers(self):
        folder = DEBIAN.root / "usr/share/doc" / self.NAME
        for name in ("copyright", "changelog.gz", "changelog.Debian.gz", "THIRD-PARTY-NOTICES.md",
                     "SECURITY.md"):
            self.assertTrue((folder / name).is_file(), name)


class InstalledProgram(PackageCase):
    """The methods run in the order of their names."""

    NAME = "norvo-playlists"

    def test_1_it_tells_its_version(self):
        version = field(self.file, "Version").rpartition("-")[0]
        text = self.must("norvo-playlists", "--version")
        self.assertRegex(text, rf"^norvo-playlists {re.escape(version)} \(.*Linux \w+\)\n$")

    def test_2_it_moves_the_sample_machine(self):
        for name in ("old", "new"):
            source = "sample-machine" if name == "old" else "sample-new-machine"
            DEBIAN.bring(ROOT / "examples" / source, f"tmp/{name}")
        text = self.must("norvo-playlists", "migrate", "--from", "old", "--to", "new", codes=(0, 1))
        self.assertIn("44 songs", text)
        lists = DEBIAN.root / "tmp/new/C/My Documents/Norvo Media/PlayLists/WinAmp"
        self.assertTrue((lists / "Pop Hits.m3u").is_file())
        text = self.must("norvo-playlists", "verify", "--machine", "new", codes=(0, 1))
        # The old machine's CD does not come along.
        missing = set(re.findall(r": missing: (.*)$", text, re.M))
        self.assertEqual(missing, {"E:\\Track 01.mp3"})
        found = re.search(r"^Playlists: \d+, references checked: \d+, found: (\d+), ", text, re.M)
        self.assertGreater(int(found[1]), 400)

    def test_3_manual_page_completions_and_papers_are_there(self):
        share = DEBIAN.root / "usr/share"
        for name in ("man/man1/norvo-playlists.1.gz",
                     "bash-completion/completions/norvo-playlists",
                     "zsh/vendor-completions/_norvo-playlists",
                     "fish/vendor_completions.d/norvo-playlists.fish"):
            self.assertTrue((share / name).is_file(), name)
        page = gzip.decompress((share / "man/man1/norvo-playlists.1.gz").read_bytes()).decode()
        manual = re.search(r"/usr/share/(\S+/index\.html) ", page.replace("\\-", "-"))[1]
        self.assertTrue((share / manual).is_file(), manual)
        self.check_papers()

    def test_4_nothing_of_it_stays(self):
        self.check_it_is_gone()


class LibrariesAndHeaders(PackageCase):
    """The methods run in the order of their names."""

    NAME = "libnorvoplaylist-dev"
    NEEDED_BESIDE = ", g++, cmake, make, pkg-config"
    DOCUMENTS = "/usr/share/doc/libnorvoplaylist-dev"

    def test_1_an_example_is_built_by_cmake(self):
        self.must("cmake", "-S", f"{self.DOCUMENTS}/examples", "-B", "/tmp/built")
        self.must("cmake", "--build", "/tmp/built")
        DEBIAN.bring(ROOT / "examples/sample-machine", "tmp/source")
        DEBIAN.bring(ROOT / "examples/sample-new-machine", "tmp/target")
        text = self.must("/tmp/built/move_playlists", "/tmp/source", "/tmp/target", codes=(0, 1))
        self.assertIn(ALL_SONGS, text)

    def test_2_an_example_is_built_by_pkg_config(self):
        line = (f"g++ -std=c++20 {self.DOCUMENTS}/examples/PrintPlaylist.cpp "
                "$(pkg-config --cflags --libs norvoplaylist) -o /tmp/print")
        self.must("sh", "-c", line)
        text = self.must("/tmp/print", "/tmp/target",
                         "C:\\My Documents\\Norvo Media\\PlayLists\\WinAmp\\Mix.m3u", codes=(0, 1))
        self.assertIn("Mia Lindqvist - Paper Boats", text)

    def test_3_the_api_reference_and_papers_are_there(self):
        documents = DEBIAN.root / self.DOCUMENTS.strip("/")
        self.assertTrue((documents / "html/index.html").is_file())
        self.check_papers()

    def test_4_nothing_of_it_stays(self):
        self.check_it_is_gone()


def main():
    global OPTIONS, DEBIAN
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--packages", type=Path, required=True)
    OPTIONS, rest = parser.parse_known_args()
    try:
        DEBIAN = BareDebian()
    except CannotBeMade as reason:
        print(f"skipped: the packages were not installed: {reason}")
        sys.exit(77)
    try:
        done = unittest.main(argv=["debian_test", "-v", *rest], exit=False)
    finally:
        DEBIAN.end()
    sys.exit(0 if done.result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
