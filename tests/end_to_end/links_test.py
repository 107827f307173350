#!/usr/bin/env python3
"""Follows the links of all texts for people: each one to a file of the project leads to one that is
there, and each anchor to a heading of it."""

import re
import unittest
from pathlib import Path
from urllib.parse import unquote

ROOT = Path(__file__).resolve().parents[2]
PAGES = [*sorted(ROOT.glob("*.md")), *sorted((ROOT / "docs").rglob("*.md")),
         *sorted((ROOT / "examples").rglob("*.md"))]
CODE = re.compile(r"^(`{3,}).*?^\1$|^(?:    |\t).*?$|`[^`\n]+`", re.M | re.S)
LINK = re.compile(r"!?\[(?:[^\[\]]|\[[^\]]*\])*\]\(\s*<?([^)\s>]+)>?(?:\s+\"[^\"]*\")?\s*\)")
REFERENCE = re.compile(r"^\[[^\]]+\]:\s+(\S+)", re.M)
HEADING = re.compile(r"^#{1,6} +(.*?) *#*$", re.M)
FENCE = re.compile(r"^(`{3,}).*?^\1$", re.M | re.S)
ELSEWHERE = re.compile(r"[a-z][a-z0-9+.-]*:", re.I)


def links(text):
    """The targets of a page's links; what is code is none."""
    text = CODE.sub("", text)
    return LINK.findall(text) + REFERENCE.findall(text)


def anchor(heading):
    """As the sites that show such pages make it."""
    heading = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    heading = re.sub(r"[^\w\- ]", "", heading.replace("`", "").lower())
    return heading.replace(" ", "-")


def anchors(text):
    """A heading that comes again gets a number."""
    seen, found = {}, set()
    for heading in HEADING.findall(FENCE.sub("", text)):
        name = anchor(heading)
        count = seen.get(name, 0)
        seen[name] = count + 1
        found.add(f"{name}-{count}" if count else name)
    return found


def fault(page, target):
    """What is wrong with a link of a page; nothing when it leads somewhere."""
    path, _, name = unquote(target).partition("#")
    file = (page.parent / path).resolve() if path else page
    if ROOT not in [file, *file.parents]:
        return "leads out of the project"
    if not file.exists():
        return "leads to nothing"
    if name and (file.suffix != ".md" or name not in anchors(file.read_text(encoding="utf-8"))):
        return "has no such heading"
    return None


class Links(unittest.TestCase):
    def test_every_link_leads_somewhere(self):
        count = 0
        for page in PAGES:
            for target in links(page.read_text(encoding="utf-8")):
                if ELSEWHERE.match(target):
                    continue
                count += 1
                with self.subTest(page=page.relative_to(ROOT).as_posix(), link=target):
                    self.assertIsNone(fault(page, target))
        self.assertGreater(count, 60)

    def test_every_page_of_the_manual_is_reached_from_its_index(self):
        index = ROOT / "docs/manual/index.md"
        reached, ahead = {index}, [index]
        while ahead:
            page = ahead.pop()
            for target in links(page.read_text(encoding="utf-8")):
                file = (page.parent / unquote(target).partition("#")[0]).resolve()
                if file.suffix == ".md" and file.is_file() and file not in reached:
                    reached.add(file)
                    ahead.append(file)
        self.assertEqual(set((ROOT / "docs/manual").glob("*.md")) - reached, set())
        self.assertIn(index, [(ROOT / target).resolve() for target in
                              links((ROOT / "README.md").read_text(encoding="utf-8"))])

    def test_what_leads_nowhere_is_found(self):
        for target in ("docs/gone.md", "docs/automation.md#gone", "../elsewhere.md", "#gone"):
            self.assertIsNotNone(fault(ROOT / "README.md", target), target)
        self.assertIsNone(fault(ROOT / "README.md", "docs/automation.md#codes"))

    def test_links_are_told_from_code(self):
        self.assertEqual(links("[a](b.md) `[c](d.md)` ![e](f.svg)\n\n    [g](h.md)\n"),
                         ["b.md", "f.svg"])
        self.assertEqual(anchors("# A `b` c!\n## x\n## x\n```\n# no\n```\n"), {"a-b-c", "x", "x-1"})


if __name__ == "__main__":
    unittest.main()
