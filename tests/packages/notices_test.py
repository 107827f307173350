#!/usr/bin/env python3
"""Holds what the project says of the works that its packages carry against what Debian's packages of
these state. Those that are not installed are passed over; ends with 77 where none is."""

import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DOCUMENTS = Path("/usr/share/doc")
NOTICES = ROOT / "docs/THIRD-PARTY-NOTICES.md"
# Where a work is a part of what a package was made from.
FILES = {"winpthreads": "mingw-w64-libraries/winpthreads/*",
         "7-Zip's LZMA in NSIS": "Source/7zip/*", "jQuery": "jquery/jquery*.js",
         "jQuery UI": "jquery/jquery.ui-*.js", "jQuery PowerTip": "jquery/jquery.powertip*.js",
         "jQuery scrollTo": "jquery/jquery.scrollTo*.js",
         "SmartMenus": "jquery/jquery.smartmenus*.js"}
# What is a part of the packages for Debian, and so in their copyright.
IN_DEBIANS = ("libcli11-dev", "nlohmann-json3-dev", "doxygen")


def words(text):
    """Without what tells nothing: line ends, marks of empty lines, and how a list is set."""
    return " ".join(re.sub(r"^ \.$|[*]", "", text, flags=re.M).split())


def stanzas(text):
    return [dict((name, value.strip("\n")) for name, value in
                 re.findall(r"^([\w-]+):[ \t]*((?:.*\n?)(?:[ \t].*\n?)*)", part, re.M))
            for part in re.split(r"\n\s*\n", text)]


class Work:
    def __init__(self, row):
        self.name, self.package, self.licence, _ = [cell.strip() for cell in row.strip("|").split("|")]
        self.stated = DOCUMENTS / self.package / "copyright"

    def stanza(self):
        wanted = FILES.get(self.name, "*")
        return next(each for each in stanzas(self.stated.read_text(encoding="utf-8"))
                    if each.get("Files", "").strip() == wanted)


WORKS = [Work(row) for row in NOTICES.read_text().splitlines()
         if row.startswith("| ") and not row.startswith("| Work")]
INSTALLED = [work for work in WORKS if work.stated.is_file()]


class NoticesTest(unittest.TestCase):
    def test_every_work_is_there(self):
        self.assertEqual({work.package for work in WORKS},
                         {"libcli11-dev", "nlohmann-json3-dev", "libtag1-dev", "libpugixml-dev",
                          "libutf8proc-dev", "libutfcpp-dev", "mingw-w64-common", "nsis",
                          "doxygen"})

    def test_licences_are_those_that_debian_states(self):
        for work in INSTALLED:
            with self.subTest(work.name):
                stated = work.stanza()["License"].splitlines()[0].strip()
                self.assertEqual(work.licence, stated)

    def test_owners_are_those_that_debian_states(self):
        told = words(NOTICES.read_text(encoding="utf-8").partition("## Copyright")[2])
        for work in INSTALLED:
            if work.name in ("mingw-w64", "NSIS"):
                continue  # too many; the folder of the licences has them
            with self.subTest(work.name):
                self.assertIn(f"- {work.name}: ", told)
                first = work.stanza()["Copyright"].strip().splitlines()[0].strip().rstrip(",")
                self.assertIn(words(re.sub(r" *<.*?>", "", first)), told)

    def test_the_debian_packages_have_the_whole_licences_of_what_they_carry(self):
        ours = stanzas((ROOT / "packaging/debian/copyright").read_text())
        for work in INSTALLED:
            if work.package not in IN_DEBIANS:
                continue
            with self.subTest(work.name):
                owners = words(work.stanza()["Copyright"])
                self.assertTrue(any(owners in words(each["Copyright"])
                                    for each in ours if "Files" in each), owners)
                text = self.licence_text(stanzas(work.stated.read_text()), work.licence)
                self.assertEqual(self.licence_text(ours, work.licence), text)

    @staticmethod
    def licence_text(parts, name):
        texts = [words(each["License"]) for each in parts if "Files" not in each and "License" in each]
        return next(text for text in texts if text.startswith(name + " "))


if __name__ == "__main__":
    if not INSTALLED:
        print("none of the packages is installed")
        sys.exit(77)
    unittest.main()
