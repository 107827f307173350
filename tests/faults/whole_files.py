"""Which files a move leaves on the new machine, and whether one of them is whole."""

import re
from pathlib import PurePosixPath

import beside  # noqa: F401

from native_playlists import READERS, Malformed, find_on_machine, is_local, read_native
from told_details import MODERN_FOLDER, read_modern

from small_machine import SONGS, WORDS

PRODUCT = "C/My Documents/Norvo Media"
MUSIC, LISTS = f"new/{PRODUCT}/Music/", f"new/{PRODUCT}/PlayLists/"
NEUTRAL = "new/C/My Documents/Norvo PlayLists/"
LEDGER = f"new/{PRODUCT}/KVs/Restored.txt"
COPIES = f"new/{PRODUCT}/KVs/RestoredCopies.txt"
# What only a run that is still going leaves beside its files.
PASSING = re.compile(r"(.*/)?(\.norvo-\d+\.tmp|\.norvo-playlists\.lock)")
CONTENTS = {SONGS[word].content(): SONGS[word] for word in WORDS}


def text_of(raw):
    return raw.decode("utf-16") if raw[:2] in (b"\xff\xfe", b"\xfe\xff") else raw.decode("latin-1")


def is_settings(path):
    return PurePosixPath(path).name in ("registry.reg", "Winamp.ini")


def values_of(raw):
    """The section and line of each value; sections without any tell nothing."""
    section, values = "", set()
    for line in text_of(raw).splitlines():
        if line.startswith("["):
            section = line
        elif "=" in line:
            values.add((section, line))
    return values


def lost_values(wanted, found):
    """The names of values that one settings file has and another has not."""
    return sorted(re.match(r'"?(.*?)"?=', line)[1]
                  for _, line in values_of(wanted) - values_of(found))


def neutral_fault(raw):
    text = text_of(raw)
    told = re.search(r"^TotalSongs=(\d+)\r$", text, re.M)
    held = len(re.findall(r"^\[Entry \d+ Properties\]\r$", text, re.M))
    if not told or int(told[1]) != held or not text.endswith("\r\n"):
        return f"a neutral file with {held} entries"
    return None


def lines_fault(raw):
    """Of a text of lines, each with its end."""
    text = text_of(raw)
    return None if text and text.endswith("\n") and "\0" not in text else "no whole lines"


def references_of(path, raw):
    player = PurePosixPath(path).parent.name
    if player == MODERN_FOLDER:
        return [told.reference for told in read_modern(raw)]
    name = next(name for name in READERS if name.lower() == player.lower())
    return read_native(name, raw)


def list_fault(path, raw, machine):
    """Of a native playlist: it is whole, and so is every song that it names and that is there."""
    try:
        references = references_of(path, raw)
    except (Malformed, UnicodeDecodeError, StopIteration) as error:
        return f"no playlist of its kind: {error!r}"
    for reference in filter(is_local, references):
        found = find_on_machine(machine, reference)
        if found and found.read_bytes() not in CONTENTS:
            return f"it names {reference}, which is another song"
    return None


def torn(path, raw, machine):
    """Why a file of the new machine that is not as an undisturbed move leaves it is not whole."""
    if path.startswith(MUSIC):
        return None if raw in CONTENTS else "a torn song"
    if path.startswith(LISTS):
        return list_fault(path, raw, machine)
    if path.startswith(NEUTRAL):
        return neutral_fault(raw)
    if path in (LEDGER, COPIES) or is_settings(path) or PurePosixPath(path).name == "SubNames.txt":
        return lines_fault(raw)
    return "a file that nobody expects"
