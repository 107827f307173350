#!/usr/bin/env python3
"""Writes the manual's pages and follows every link in them. Ends with 77 without cmark-gfm."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from html.parser import HTMLParser
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]


class Page(HTMLParser):
    """Names and links of a page."""

    def __init__(self, path):
        super().__init__()
        self.names = []
        self.links = []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.names += [values["id"]] if "id" in values else []
        self.links += [values[name] for name in ("href", "src") if name in values]


class ManualPagesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="norvo-manual-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        subprocess.run([ROOT / "scripts/make-manual-pages.py", cls.folder / "pages"], check=True)
        cls.pages = {path: Page(path) for path in (cls.folder / "pages").rglob("*.html")}

    def test_each_text_for_people_is_a_page(self):
        texts = {path.relative_to(ROOT).with_suffix(".html")
                 for path in [ROOT / "README.md", ROOT / "docs/automation.md",
                              *(ROOT / "docs/manual").rglob("*.md")]}
        found = {path.relative_to(self.folder / "pages") for path in self.pages}
        self.assertLessEqual(texts, found)

    def test_every_link_leads_somewhere(self):
        followed = 0
        for path, page in self.pages.items():
            for link in page.links:
                if re.match(r"\w+:", link):
                    continue
                with self.subTest(page=path.name, link=link):
                    target, _, name = link.partition("#")
                    place = (path.parent / target).resolve() if target else path
                    self.assertTrue(place.is_file())
                    if name:
                        self.assertEqual(self.pages[place].names.count(name), 1)
                    followed += 1
        self.assertGreater(followed, 10)

    def test_programs_and_schema_come_along(self):
        pages = self.folder / "pages"
        for name in ("examples/automation/ListSongs.vbs", "examples/automation/Repair.ps1",
                     "examples/cpp/PrintPlaylist.cpp", "docs/json-output.schema.json"):
            self.assertEqual((pages / name).read_bytes(), (ROOT / name).read_bytes())
        scripts = self.pages[pages / "docs/manual/scripts.html"]
        self.assertIn("../../examples/automation/ListSongs.vbs", scripts.links)


if __name__ == "__main__":
    if not shutil.which("cmark-gfm"):
        print("cmark-gfm is not installed: the pages are not written")
        sys.exit(77)
    unittest.main()
