"""Reads what new playlists tell of their songs, as simple-minded players do: titles and lengths.
Like native_playlists.py it shares nothing with the program."""

import html
import re
from dataclasses import dataclass

from native_playlists import Malformed, decoded

MODERN_FOLDER, MODERN_ENDING = "Modern Players", ".m3u8"


@dataclass(frozen=True)
class Told:
    """What a playlist tells of one song."""
    reference: str
    title: str = None  # None where it has none
    seconds: int = None  # of a length that is told, also where that is 0 or -1


def extended_lines(text):
    """M3U: a title line may stand in front of a reference."""
    told, pending = [], (None, None)
    lines = text.split("\r\n") if "\r\n" in text else text.split("\n")
    if lines[0] != "#EXTM3U":
        raise Malformed("the first line is not #EXTM3U")
    for line in lines[1:]:
        mark = re.fullmatch(r"#EXTINF:(-?\d+),(.*)", line)
        if mark:
            pending = mark[2], int(mark[1])
        elif line.startswith("#"):
            raise Malformed(f"a line of no known kind: {line!r}")
        elif line:
            told.append(Told(line, *pending))
            pending = None, None
    return told


def read_modern(raw):
    """A playlist for players of today: UTF-8 with its mark."""
    if not raw.startswith(b"\xef\xbb\xbf"):
        raise Malformed("no byte order mark in front")
    text = raw[3:].decode("utf-8")
    if "\r" in text.replace("\r\n", ""):
        raise Malformed("a line end of CR alone")
    return extended_lines(text)


def read_pls_details(text):
    values = dict(line.partition("=")[::2] for line in text.split("\r\n")[1:] if line)
    told = []
    for number in range(1, int(values["NumberOfEntries"]) + 1):
        seconds = values.get(f"Length{number}")
        told.append(Told(values[f"File{number}"], values.get(f"Title{number}"),
                         None if seconds is None else int(seconds)))
    return told


def read_asx_details(text):
    """Artist and title are parameters of an entry, its length an element."""
    told = []
    for block in re.findall(r"<Entry\s*>(.*?)</Entry\s*>", text, re.I | re.S):
        params = dict(re.findall(r'<Param Name = "([^"]*)" Value = "([^"]*)" />', block))
        clock = re.search(r'<Duration\s+Value\s*=\s*"(\d+):(\d+):(\d+)[^"]*"', block, re.I)
        seconds = None
        if clock:
            hours, minutes, rest = map(int, clock.groups())
            seconds = hours * 3600 + minutes * 60 + rest
        texts = [html.unescape(params[name]) for name in ("Artist", "Name") if params.get(name)]
        reference = re.search(r'<Ref\s+href\s*=\s*"([^"]*)"', block, re.I)[1]
        told.append(Told(reference, " - ".join(texts) or None, seconds))
    return told


# The lists of MusicMatch Jukebox tell references alone.
TELLING_PLAYERS = {"Windows Media Player": read_asx_details, "WinAmp": extended_lines,
                   "Sonique": read_pls_details}


def read_told(player, raw):
    """What one playlist of a player tells, one of those that tell something."""
    return TELLING_PLAYERS[player](decoded(raw))
