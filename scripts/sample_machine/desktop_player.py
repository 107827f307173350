"""Lists of a desktop player's playlist writer, kept as it wrote them."""

import os
import sys

import gi

gi.require_version("TotemPlParser", "1.0")
from gi.repository import Gio, TotemPlParser  # noqa: E402

from makers.files import place  # noqa: E402

from .references import ADDRESS, GONE, KEPT, NET, SONG, UNREAD  # noqa: E402
from .shelf import T_SO, T_WA3  # noqa: E402

ITEMS = [
    ("Archive/Deep/er/than most folders/lost tape.mp3", "Unknown - Lost Tape"),
    ("Musik/Klassik/Suite Nr. 1/2. Allemande.mp3", "Consort - Allemande"),
    ("Hörspiele/Teil 1/Kapitel 01.mp3", "Kapitel 1"),
    ("http://radio.example.com/live.mp3", "Party Radio"),
]

# path, kind of the writer, type, what is odd, separator of the paths; none: nothing is read
LISTS = (
    ("D/Desktop player.pls", TotemPlParser.ParserType.PLS, T_SO,
     "LF line ends, slashes, UTF-8, no Version key (which makes it one of Sonique's).", "/"),
    ("D/Desktop player (DOS).m3u", TotemPlParser.ParserType.M3U_DOS, T_WA3,
     "CR LF and backslashes, but UTF-8; its title lines have no duration (duration text "
     "`NF:`).", "\\"),
    ("D/Desktop player.m3u", TotemPlParser.ParserType.M3U, T_WA3,
     "LF line ends: the whole file is one line with the header in it, so it holds no entry "
     "and no generic file is made of it.", None),
)


def save(root, path, kind):
    playlist = TotemPlParser.Playlist()
    for reference, title in ITEMS:
        uri = reference
        if "://" not in reference:
            uri = Gio.File.new_for_path(os.path.join(root, "D", reference)).get_uri()
        at = playlist.append()
        playlist.set_value(at, TotemPlParser.PARSER_FIELD_URI, uri)
        playlist.set_value(at, TotemPlParser.PARSER_FIELD_TITLE, title)
    if not TotemPlParser.Parser().save(playlist, Gio.File.new_for_path(path), "Desktop player",
                                       kind):
        sys.exit("cannot write " + path)


def row(reference, separator):
    is_address = "://" in reference
    if separator is None:
        return reference, UNREAD, ADDRESS if is_address else SONG
    if is_address:
        return reference, NET
    written = reference.replace("/", separator)
    if reference.isascii():
        return written, KEPT
    return written, GONE + " (UTF-8 read as 8-bit text names another file)", SONG


def add_desktop_lists(shelf):
    for rel, kind, words, odd, separator in LISTS:
        save(shelf.root, place(shelf.root, rel), kind)
        shelf.describe(rel, words + " (made by the TotemPlParser library)", odd,
                       [row(reference, separator) for reference, _ in ITEMS])
