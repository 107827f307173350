#!/usr/bin/env python3
"""Makes the pictures of the manual, and the blocks of its pages that show a run, from real runs. What
belongs to a program that is not named stays as it is.

    scripts/make-manual-pictures.py --program build/release/src/cli/norvo-playlists
        [--windows-program build/windows-x64/src/cli/norvo-playlists.exe]   runs under Wine, too
        [--page]    photographs the report page, too, with chromium; for when that has changed
        [--check]   changes nothing, and ends with 1 where something is not as it would be made
"""

import argparse
import subprocess
import sys
import tempfile
from pathlib import Path

from manual_runs import stories
from manual_runs.pages import shown_runs, with_runs
from manual_runs.pictures import svg, without_middle

ROOT = Path(__file__).resolve().parents[1]
MANUAL = ROOT / "docs/manual"
PICTURES = MANUAL / "pictures"


def all_screens(options):
    screens = {}
    if options.program:
        program = str(Path(options.program).resolve())
        screens |= stories.sample(program) | stories.linux(program)
    if options.windows_program:
        sys.path.append(str(ROOT / "tests/end_to_end"))  # where the PCs that Wine makes are
        from windows_machine import Machine
        screens |= stories.windows(Path(options.windows_program).resolve(), Machine)
    return screens


def made_files(screens):
    """What the files of the manual should hold, by their paths; those that no screen concerns are
    left out."""
    files = {}
    if "sample" in screens:
        screen = screens["sample"]
        lines = without_middle(screen, 11, "What did not come over, or not as it was")
        files[PICTURES / "sample.svg"] = svg("A move of the sample machine", screen.command, lines)
    if "move" in screens:
        screen = screens["move"]
        files[PICTURES / "move.svg"] = svg("A move from one mounted disk to another",
                                           screen.command, screen.lines)
    for page in sorted(MANUAL.glob("*.md")):
        text = page.read_text(encoding="utf-8")
        if set(shown_runs(text)) & set(screens):
            files[page] = with_runs(text, screens)
    return files


def photograph(options):
    """The top of the sample machine's report page."""
    with tempfile.TemporaryDirectory(prefix="norvo-page-") as folder:
        page = Path(folder) / "move.html"
        stories.sample(str(Path(options.program).resolve()), str(page))
        subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu",
                        "--hide-scrollbars", "--window-size=1000,760",
                        f"--user-data-dir={folder}/profile",
                        f"--screenshot={PICTURES / 'page.png'}", page.as_uri()],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program")
    parser.add_argument("--windows-program")
    parser.add_argument("--page", action="store_true")
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()
    if options.page and not options.program:
        parser.error("--page needs --program")
    files = made_files(all_screens(options))
    stale = [path for path, text in files.items()
             if not path.exists() or path.read_text(encoding="utf-8") != text]
    if options.check:
        for path in stale:
            print(f"{path.relative_to(ROOT)} is not what the program shows. "
                  "Run scripts/make-manual-pictures.py.")
        return 1 if stale else 0
    for path in stale:
        path.parent.mkdir(exist_ok=True)
        path.write_text(files[path], encoding="utf-8")
        print("made", path.relative_to(ROOT))
    if options.page:
        photograph(options)
    return 0


if __name__ == "__main__":
    sys.exit(main())
