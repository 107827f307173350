#!/usr/bin/env python3
"""Writes the manual as pages for a browser: the project's texts for people, each a page beside which
the others stand as in the sources, with the links among them. Needs cmark-gfm.

    scripts/make-manual-pages.py FOLDER
"""

import html
import re
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TEXTS = ["README.md", "CHANGELOG.md", "SECURITY.md", "docs/THIRD-PARTY-NOTICES.md",
         "docs/automation.md", *sorted(str(path.relative_to(ROOT))
                                       for path in (ROOT / "docs/manual").rglob("*.md"))]
# What pages lead to and that comes along as it is, where a page leads to it.
CARRIED = ("examples/", "docs/json-output.schema.json")
HEADING = re.compile(r"<h([1-6])>(.*?)</h\1>", re.S)
LINK = re.compile(r'<a href="([^"]*)">(.*?)</a>', re.S)
PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<style>
body {{ font: 16px/1.5 sans-serif; max-width: 46em; margin: 2em auto; padding: 0 1em;
  color: #222; background: #fff; }}
h1, h2, h3 {{ line-height: 1.2; margin-top: 1.6em; }}
pre {{ background: #f3f4f5; padding: 0.8em; overflow: auto; }}
code {{ font: 0.9em monospace; }}
table {{ border-collapse: collapse; }}
td, th {{ border: 1px solid #bbb; padding: 0.3em 0.6em; text-align: left; vertical-align: top; }}
img {{ max-width: 100%; }}
</style>
</head>
<body>
{body}</body>
</html>
"""


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup))


def with_anchors(body):
    """Headings get the names that links to them use: words in lower case, joined by hyphens."""
    def named(found):
        words = re.sub(r"[^\w\- ]", "", plain(found[2]).lower()).replace(" ", "-")
        return f'<h{found[1]} id="{words}">{found[2]}</h{found[1]}>'
    return HEADING.sub(named, body)


def copy_to(folder, path):
    copy = folder / path.relative_to(ROOT)
    copy.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(path, copy)


def with_links(body, text, folder):
    """Links lead to the other pages; what does not come along is only named."""
    def led(found):
        target, _, anchor = found[1].partition("#")
        if not target or ":" in target:
            return found[0]
        path = (ROOT / text).parent.joinpath(target).resolve()
        name = str(path.relative_to(ROOT)) if path.is_relative_to(ROOT) else ""
        if name.startswith(CARRIED) and path.is_file() and path.suffix != ".md":
            copy_to(folder, path)
            return found[0]
        if name not in TEXTS:
            return found[2]
        page = target.removesuffix(".md") + ".html" + ("#" + anchor if anchor else "")
        return f'<a href="{page}">{found[2]}</a>'
    return LINK.sub(led, body)


def write_page(text, folder):
    body = subprocess.run(["cmark-gfm", "--extension", "table", ROOT / text], check=True,
                          capture_output=True).stdout.decode()
    title = html.escape(plain(HEADING.search(body)[2]))
    body = with_links(with_anchors(body), text, folder)
    page = (folder / text).with_suffix(".html")
    page.parent.mkdir(parents=True, exist_ok=True)
    page.write_text(PAGE.format(title=title, body=body), encoding="utf-8")


def main():
    folder = Path(sys.argv[1])
    shutil.rmtree(folder, ignore_errors=True)
    for text in TEXTS:
        write_page(text, folder)
    for path in (ROOT / "docs/manual").rglob("*"):
        if path.is_file() and path.suffix != ".md":
            copy_to(folder, path)


if __name__ == "__main__":
    main()
