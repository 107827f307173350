#!/usr/bin/env python3
"""Fresh prefixes of Wine. Making one takes Wine seven seconds, copying one a tenth of a second: the
first is made once, kept in the user's cache folder, and copied.

    wine_template.py PREFIX      makes that one, with this system's disk as drive Z; nothing is done
                                 when it is there
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SECONDS = 240
# What programs change in place; the rest, which is the system's own, is the same for all copies.
CHANGING = ("system.reg", "user.reg", "userdef.reg", "drive_c/users", "drive_c/ProgramData",
            "drive_c/windows/temp")


def version():
    """Of Wine, as a file name."""
    told = subprocess.run(["wine", "--version"], capture_output=True, check=True).stdout.decode()
    return re.sub(r"[^\w.~+-]+", "-", told.strip())


def without_this_system(prefix):
    """Leaves drive C alone: Wine makes links to the folders of its user, and drives of its disks."""
    for link in [path for path in (prefix / "drive_c").glob("users/*/*") if path.is_symlink()]:
        link.unlink()
        link.mkdir()
    for drive in (prefix / "dosdevices").iterdir():
        if drive.name != "c:":
            drive.unlink()


def make(prefix):
    environment = {**os.environ, "WINEPREFIX": str(prefix), "HOME": str(prefix), "WINEDEBUG": "-all",
                   "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe=", "DISPLAY": ""}
    for words in (["wineboot", "--init"], ["wineserver", "--kill"], ["wineserver", "--wait"]):
        subprocess.run(words, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=SECONDS, check=words[0] == "wineboot")
    without_this_system(prefix)


def template():
    """The kept prefix, made when there is none. Of several that are made at once the first stays."""
    caches = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache")
    kept = caches / "norvo-playlists" / "wine" / version()
    if not (kept / "system.reg").is_file():
        kept.parent.mkdir(parents=True, exist_ok=True)
        with tempfile.TemporaryDirectory(prefix="new-", dir=kept.parent) as folder:
            made = Path(folder) / "prefix"
            made.mkdir()
            make(made)
            try:
                made.rename(kept)
            except OSError:
                if not (kept / "system.reg").is_file():
                    raise
    return kept


def make_prefix(prefix):
    """A fresh prefix in a folder that does not exist yet, with drive C alone. Nothing runs in it."""
    kept = template()
    prefix = Path(prefix)
    prefix.parent.mkdir(parents=True, exist_ok=True)
    # Second names of the same files, where the disk is the same.
    linked = subprocess.run(["cp", "-a", "--link", kept, prefix], capture_output=True, check=False)
    if linked.returncode == 0:
        for name in CHANGING:
            if not (kept / name).exists():
                continue
            subprocess.run(["rm", "-rf", prefix / name], check=True)
            subprocess.run(["cp", "-a", kept / name, prefix / name], check=True)
        return
    shutil.rmtree(prefix, ignore_errors=True)
    subprocess.run(["cp", "-a", kept, prefix], check=True)


if __name__ == "__main__":
    if not Path(sys.argv[1]).exists():
        make_prefix(sys.argv[1])
        (Path(sys.argv[1]) / "dosdevices" / "z:").symlink_to("/")
