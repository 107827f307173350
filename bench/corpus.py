"""A machine folder for measurements: music, playlists and the product's settings. Everything but
the amounts depends on the seed alone."""

import os
import random
import sys
from dataclasses import dataclass
from itertools import cycle, islice
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "scripts"))  # where the makers are

from makers import playlists, songs, words  # noqa: E402
from makers.chance import ByChance  # noqa: E402
from makers.files import drive_path, place, write, write_old  # noqa: E402
from makers.machine import (GROUP_ROOT, SOURCE, machine_ini, product_keys,  # noqa: E402
                            sub_names)
from makers.registry import exported  # noqa: E402
from makers.text import encoded, joined  # noqa: E402

SONG_SIZE = 8192  # bytes, all tags included
PADDING = 1024
SONGS_PER_ALBUM = 20
SONGS_PER_ARTIST = 80
PLAIN_FILES_PER_FOLDER = 100
GROUP_FOLDER = "C/My Documents/Norvo Media/"
# Of the list file.
SECTIONS = ("WMP_ASX", "WMP_M3U", "WINAMP_M3U", "WINAMP_PLS", "MMJB_M3U", "SONIQUE_PLS")


@dataclass(frozen=True)
class Kind:
    """A kind of playlists."""
    section: str
    ending: str
    lines: object  # makes them of the items


KINDS = {"m3u": Kind("WINAMP_M3U", ".m3u", playlists.m3u),
         "pls": Kind("WINAMP_PLS", ".pls", playlists.pls),
         "mmjb": Kind("MMJB_M3U", ".m3u", playlists.bare_m3u)}


def kinds(text):
    """For a command line: several kinds, with commas between."""
    for name in text.split(","):
        if name not in KINDS:
            raise ValueError(f"unknown playlist kind: {name}")
    return text


@dataclass
class Plan:
    """How much of everything; the kinds of playlists take turns."""
    seed: int = 1
    files: int = 1000
    playlists: int = 0
    entries: int = 0
    kinds: str = "m3u"  # or several, as kinds() takes them
    plain_files: int = 0
    folders_depth: int = 3
    writes_list: bool = False


@dataclass
class Song:
    artist: str
    album: str
    title: str
    genre: str
    year: int
    track: int
    seconds: int

    def path(self):
        """In the machine's folder."""
        return f"C/Music/{self.artist}/{self.album}/{self.track:02} {self.title}.mp3"

    def content(self):
        """A small MP3 file with an ID3v2.3 tag, what looks like audio, and an ID3v1 tag."""
        year = str(self.year)
        front = songs.id3v2(PADDING, title=self.title, artist=self.artist, album=self.album,
                            genre=self.genre, year=year, track=str(self.track),
                            length=str(self.seconds * 1000))
        back = songs.id3v1(self.title, self.artist, self.album, year)
        return front + songs.audio(SONG_SIZE - len(front) - len(back)) + back

    def item(self):
        return playlists.Item(drive_path(self.path()), f"{self.artist} - {self.title}",
                              self.seconds)


class Composer(ByChance):
    """Makes up songs in albums of twenty, four albums an artist; no two songs share a path."""

    def plain_name(self):
        return f"{self.one(words.FIRST_WORDS)} {self.one(words.SECOND_WORDS)}"

    def new_name(self, taken):
        """A name that is not among the taken ones; it is from now on."""
        plain = name = self.plain_name()
        number = 1
        while name in taken:
            number += 1
            name = f"{plain} {number}"
        taken.add(name)
        return name

    def compose(self, count):
        artists = set()
        for index in range(count):
            if index % SONGS_PER_ARTIST == 0:
                artist, albums = self.new_name(artists), set()
            if index % SONGS_PER_ALBUM == 0:
                album, genre = self.new_name(albums), self.one(words.GENRES)
                year = self.random.randint(1965, 2003)
            yield Song(artist, album, self.plain_name(), genre, year,
                       index % SONGS_PER_ALBUM + 1, self.random.randint(100, 599))


def dealt(cards, chance):
    """Endlessly, in random order; a card comes again only after all have come."""
    cards = list(cards)
    while cards:
        chance.shuffle(cards)
        yield from cards


def hands(cards, count, chance):
    """Endlessly, so many cards at a time; empty ones when there are no cards at all."""
    deck = dealt(cards, chance)
    while True:
        yield list(islice(deck, count))


def write_settings(root):
    write(place(root, "machine.ini"), machine_ini(["C=fixed"], "C:\\My Documents"))
    write(place(root, "registry.reg"), exported(product_keys(SOURCE, GROUP_ROOT), "ascii"))
    write(place(root, GROUP_FOLDER + "SubNames.txt"), encoded(joined(sub_names())))
    os.makedirs(os.path.join(root, GROUP_FOLDER + "KVs"), exist_ok=True)


def write_playlists(root, plan, deals):
    """Gives section and machine path of each."""
    os.makedirs(os.path.join(root, "C/Playlists"), exist_ok=True)
    for number, name in zip(range(1, plan.playlists + 1), cycle(plan.kinds.split(","))):
        kind = KINDS[name]
        rel = f"C/Playlists/List {number:04}{kind.ending}"
        # Two corpora of one seed have playlists of one time, which the generic files tell.
        write_old(place(root, rel), encoded(joined(kind.lines(next(deals)))))
        yield kind.section, drive_path(rel)


def list_lines(listed):
    """The list file's lines, as a scan that found these playlists would leave them."""
    lines, found = [f"[{GROUP_ROOT}]"], []
    for section in SECTIONS:
        paths = [path for of, path in listed if of == section]
        lines.append(f"{section} Total={len(paths)}")
        if paths:
            found += ["", f"[{section}]"]
            found += [f"File{number}={path}" for number, path in enumerate(paths, 1)]
    return lines + found


def smallest_width(depth, folders):
    """Of a tree that has so many folders at its deepest level."""
    width = 1
    while width ** depth < folders:
        width += 1
    return width


def nested(number, width, depth):
    """The so-manieth of the deepest folders."""
    path = ""
    for _ in range(depth):
        number, at = divmod(number, width)
        path = f"folder {at + 1}/{path}"
    return path


def write_plain_files(root, count, depth):
    """Empty files that are no playlists, a hundred in each of the deepest folders."""
    depth = max(depth, 1)
    width = smallest_width(depth, -(-count // PLAIN_FILES_PER_FOLDER))
    for index in range(count):
        number, at = divmod(index, PLAIN_FILES_PER_FOLDER)
        if at == 0:
            folder = os.path.join(root, "C/Data", nested(number, width, depth))
            os.makedirs(folder, exist_ok=True)
        write(f"{folder}file {index + 1:06}.dat", b"")


def make_corpus(root, plan):
    chance = random.Random(plan.seed)
    write_settings(root)
    composed = list(Composer(chance).compose(plan.files))
    for song in composed:
        write(place(root, song.path()), song.content())
    items = [song.item() for song in composed]
    listed = list(write_playlists(root, plan, hands(items, plan.entries, chance)))
    if plan.writes_list:
        write(place(root, GROUP_FOLDER + "KVs/PlayLists.txt"), encoded(joined(list_lines(listed))))
    write_plain_files(root, plan.plain_files, plan.folders_depth)
