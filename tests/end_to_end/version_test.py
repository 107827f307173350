#!/usr/bin/env python3
"""Holds everything that tells the project's version against the one place where it stands, the
project() of CMakeLists.txt. What the Windows package tells is looked at by tests/com."""

import argparse
import re
import subprocess
import unittest
from datetime import date
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
OPTIONS = None


def project_version():
    text = (ROOT / "CMakeLists.txt").read_text()
    return re.search(r"^project\(\w+ VERSION (\d+\.\d+\.\d+)", text, re.M)[1]


def git(*words):
    done = subprocess.run(["git", "-C", ROOT, *words], capture_output=True, check=False)
    return done.stdout.decode().strip() if done.returncode == 0 else ""


class VersionTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.version = project_version()

    def told_by(self, name, pattern):
        """What a file of the build says in all places."""
        found = set(re.findall(pattern, (OPTIONS.build / name).read_text(), re.M))
        self.assertEqual(len(found), 1, f"{name}: {found}")
        return found.pop()

    def told(self, *words):
        return subprocess.run([OPTIONS.program, *words], capture_output=True, timeout=60,
                              check=True).stdout.decode()

    def test_the_program_tells_version_commit_and_platform(self):
        text = self.told("--version")
        self.assertEqual(text, self.told("-V"))
        parts = re.fullmatch(r"norvo-playlists (\S+) \((?:([0-9a-f]{10,}), )?(\w+ \w+)\)\n", text)
        self.assertIsNotNone(parts, text)
        self.assertEqual(parts[1], self.version)
        system = subprocess.run(["uname", "-sm"], capture_output=True, check=True).stdout.decode()
        self.assertEqual(parts[3], system.strip())
        if git("rev-parse", "--show-cdup") == "" and git("rev-parse", "HEAD"):
            # Of when it was built: the commit itself, or one before it.
            self.assertIsNotNone(parts[2], "built from a repository, it tells no commit")
            self.assertTrue(git("rev-parse", parts[2] + "^{commit}").startswith(parts[2]))
        else:
            self.assertIsNone(parts[2])

    def test_what_is_installed_tells_it(self):
        self.assertEqual(self.told_by("NorvoPlayListConfigVersion.cmake",
                                      r'^set\(PACKAGE_VERSION "(.*)"\)$'), self.version)
        for name in ("norvoplaylist", "norvoplaylist-move"):
            self.assertEqual(self.told_by(name + ".pc", r"^Version: (.*)$"), self.version)
        self.assertEqual(self.told_by("norvoplaylist-move.pc", r"^Requires: norvoplaylist = (.*)$"),
                         self.version)
        self.assertEqual(self.told_by("src/cli/reference/norvo-playlists.1",
                                      r'^\.TH .* "norvo\\-playlists (\S+)" '), self.version)

    def test_the_manual_of_the_automation_library_names_its_assembly(self):
        text = (ROOT / "docs/automation.md").read_text()
        named = re.findall(r'name="NorvoPlayList" version="([\d.]+)"', text)
        self.assertEqual(set(named), {self.version + ".0"})

    def test_the_changelog_begins_with_it_and_its_day(self):
        text = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
        first = re.search(r"^## (.*)$", text, re.M)[1]
        version, _, day = first.partition(" ")
        self.assertEqual(version, self.version)
        date.fromisoformat(day.strip("()"))

    def test_no_file_of_the_sources_spells_it(self):
        spelt = re.compile(rf"(?<![\d.]){re.escape(self.version)}(?![\d])")
        looked_at = 0
        for folder in ("src", "cmake", "packaging", "scripts"):
            for path in (ROOT / folder).rglob("*"):
                if not path.is_file() or path.suffix == ".pyc":
                    continue
                looked_at += 1
                self.assertIsNone(spelt.search(path.read_text(encoding="latin-1")), path)
        self.assertGreater(looked_at, 300)


class CommitOfSourcesTest(unittest.TestCase):
    """What the build is told of the sources that it is made from."""

    def commit_of(self, source):
        header = OPTIONS.build / "version-test" / "NorvoCommit.h"
        subprocess.run(["cmake", "-D", f"SOURCE={source}", "-D", f"HEADER={header}",
                        "-P", ROOT / "cmake" / "WriteCommit.cmake"], check=True)
        return re.fullmatch(r'#define NORVO_COMMIT "(\w*)"\n', header.read_text())[1]

    def test_a_folder_that_is_no_repository_has_none(self):
        self.assertEqual(self.commit_of("/"), "")

    def test_a_folder_in_somebody_elses_repository_has_none(self):
        self.assertEqual(self.commit_of(ROOT / "src"), "")

    def test_a_repository_has_its_own(self):
        head = git("rev-parse", "HEAD")
        commit = self.commit_of(ROOT)
        self.assertTrue(head.startswith(commit), commit)
        self.assertEqual(bool(head), bool(commit))


def main():
    global OPTIONS
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--build", type=Path, required=True)
    OPTIONS, rest = parser.parse_known_args()
    unittest.main(argv=["version_test", *rest])


if __name__ == "__main__":
    main()
