"""Reads native playlists as a simple-minded player does, finds the files that they name in a
machine's folder, and judges whether a path could stand on a Windows disk. It shares nothing with
the program, so that it can bear witness against it."""

import os
import re
from functools import lru_cache
from pathlib import Path

PLAYER_FOLDERS = {"Windows Media Player": ".asx", "WinAmp": ".m3u", "MusicMatch Jukebox": ".m3u",
                  "Sonique": ".pls"}

LONGEST_PATH = 259
LONGEST_NAME = 255
FORBIDDEN = set('<>:"/\\|?*') | {chr(code) for code in range(32)}
DEVICES = {"CON", "PRN", "AUX", "NUL"} | {f"{port}{n}" for port in ("COM", "LPT")
                                          for n in range(1, 10)}
UNASSIGNED = {0x81, 0x8D, 0x8F, 0x90, 0x9D}  # of code page 1252; they stand for themselves
# Where code page 1252 is not Latin-1.
OWN_CHARACTERS = {byte: bytes([byte]).decode("cp1252")
                  for byte in range(0x80, 0xA0) if byte not in UNASSIGNED}


class Malformed(Exception):
    """The file is no playlist of its kind."""


@lru_cache(maxsize=1 << 16)
def upper(text):
    """Upper case as Windows compares names: one character for one, nothing that grows."""
    return "".join(map(upper_character, text))


def upper_character(character):
    other = character.upper()
    grows = len(other) != 1 or ord(other) > 0xFFFF
    leaves_its_block = ord(character) >= 0x80 > ord(other[0])
    if grows or leaves_its_block or ord(character) > 0xFFFF or character == "\u00b5":
        return character
    return other


def utf16_units(text):
    return len(text.encode("utf-16-le")) // 2


# ------------------------------------------------------------------ the three syntaxes ----


def decoded(raw):
    return raw.decode("latin-1").translate(OWN_CHARACTERS)


def lines_of(text):
    """The lines, each of which has to end in CR LF."""
    *lines, rest = text.split("\r\n")
    if rest:
        raise Malformed(f"the last line has no CR LF: {rest!r}")
    for line in lines:
        if "\r" in line or "\n" in line:
            raise Malformed(f"a line end that is no CR LF: {line!r}")
    return lines


def read_asx(text):
    text = "\n".join(lines_of(text))
    if not re.match(r"\s*<ASX\b", text, re.I) or not re.search(r"</ASX>\s*$", text, re.I):
        raise Malformed("no <ASX> element around it")
    references = []
    entry = re.compile(r"<Entry\s*>(.*?)</Entry\s*>", re.I | re.S)
    ref = re.compile(r'<Ref\s+href\s*=\s*"([^"]*)"\s*/>', re.I)
    for block in entry.findall(text):
        found = ref.findall(block)
        if len(found) != 1:
            raise Malformed(f"an entry with {len(found)} Ref elements: {block!r}")
        references += found
    if re.search(r"<(Ref|/?Entry)\b", entry.sub("", text), re.I):
        raise Malformed("an element of an entry stands outside entries")
    return references


def read_winamp_m3u(text):
    lines = lines_of(text)
    if not lines or lines[0] != "#EXTM3U":
        raise Malformed("the first line is not #EXTM3U")
    return [line.split("\0")[0] for line in lines if line and not line.startswith("#")]


def read_musicmatch_m3u(text):
    references = []
    for line in lines_of(text):
        reference, nul, rest = line.partition("\0")
        if not nul or rest:
            raise Malformed(f"a line that does not end in one NUL: {line!r}")
        if reference.startswith("#"):
            raise Malformed(f"a line that is no reference: {reference!r}")
        if reference:
            references.append(reference)
    return references


def read_pls(text):
    lines = lines_of(text)
    if not lines or lines[0] != "[playlist]":
        raise Malformed("the first line is not [playlist]")
    values = {}
    for line in lines[1:]:
        key, equals, value = line.partition("=")
        if not equals or key.lower() in values:
            raise Malformed(f"no key with a value, or one that stands there twice: {line!r}")
        values[key.lower()] = value
    if values.get("version") != "2":
        raise Malformed("no Version=2")
    count = int(values.get("numberofentries", "-1"))
    numbers = [key for key in values if re.fullmatch(r"file\d+", key)]
    if count != len(numbers) or any(f"file{n}" not in values for n in range(1, count + 1)):
        raise Malformed(f"{count} entries are told, there are {sorted(numbers)}")
    return [values[f"file{n}"] for n in range(1, count + 1)]


READERS = {"Windows Media Player": read_asx, "WinAmp": read_winamp_m3u,
           "MusicMatch Jukebox": read_musicmatch_m3u, "Sonique": read_pls}


def read_native(player, raw):
    """The references of one native playlist of a player, in order; Malformed when it is none."""
    return READERS[player](decoded(raw))


# ----------------------------------------------------------------------- machine paths ----


def is_local(reference):
    return re.match(r"[A-Za-z]:", reference) is not None


def path_fault(path):
    """Why a full path could not stand on a Windows disk; None when it could."""
    if not re.match(r"[A-Za-z]:\\", path):
        return "no drive and root"
    if utf16_units(path) > LONGEST_PATH:
        return f"{utf16_units(path)} units long"
    for name in path[3:].split("\\"):
        fault = name_fault(name)
        if fault:
            return f"{name!r}: {fault}"
    return None


def name_fault(name):
    if not name:
        return "an empty name"
    if set(name) & FORBIDDEN:
        return "characters that no name may hold"
    if name[-1] in ". ":
        return "ends in a point or a blank"
    if upper(re.split(r"[.:]", name)[0].rstrip(" ")) in DEVICES:
        return "the name of a device"
    if utf16_units(name) > LONGEST_NAME:
        return "too long a name"
    return None


def reference_fault(path):
    """Why an 8-bit playlist could not name that file; None when it could."""
    return path_fault(path) or (None if fits_code_page(path) else
                                "characters that the 8-bit page lacks")


def fits_code_page(text):
    try:
        "".join(c for c in text if ord(c) not in UNASSIGNED).encode("cp1252")
    except UnicodeEncodeError:
        return False
    return True


def drives_of(machine):
    """Letter to folder, as machine.ini names them; without it every folder of one letter."""
    machine = Path(machine)
    settings = machine / "machine.ini"
    drives, section = {}, ""
    if not settings.is_file():
        return {path.name.upper(): path for path in machine.glob("[A-Za-z]") if path.is_dir()}
    for line in settings.read_text(encoding="utf-8-sig").splitlines():
        if line.startswith("["):
            section = line.strip("[] ").lower()
        elif section == "drives" and "=" in line:
            letter, value = (part.strip() for part in line.split("=", 1))
            place = value.partition(",")[2].strip()
            drives[letter.upper()] = machine / (place or letter)
    return drives


def find_on_machine(machine, path):
    """The file of this system that a machine path names, whatever its case; None when there is
    none, or when a link on the way leads out of its drive."""
    if not re.match(r"[A-Za-z]:\\", path):
        return None
    root = drives_of(machine).get(path[0].upper())
    if root is None:
        return None
    place = str(root)
    for name in path[3:].split("\\"):
        place = step(place, name)
        if place is None:
            return None
    inside = real_folder(str(root)) + os.sep
    return Path(place) if os.path.realpath(place).startswith(inside) else None


@lru_cache
def real_folder(drive):
    return os.path.realpath(drive)


def step(folder, name):
    if name in ("", ".", ".."):
        return None
    exact = os.path.join(folder, name)
    if os.path.lexists(exact):
        return exact
    wanted = upper(name)
    try:
        found = [other for other in os.listdir(folder) if upper(other) == wanted]
    except OSError:
        return None
    return os.path.join(folder, found[0]) if found else None
