"""Makes an old machine, and often something on the new one, from a seed, and tells what its
playlists list. Everything is decided here, before the program runs: what is expected of it is
known by construction."""

import ntpath
import os
import random
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are

from lost_songs import names  # noqa: E402
from machine_addresses import SONG_ENDINGS, USER_MUSIC  # noqa: E402
from machine_description import GeneratedMachine, Song  # noqa: E402
from makers.chance import ByChance  # noqa: E402
from makers.files import write_old  # noqa: E402
from makers.machine import machine_ini  # noqa: E402
from makers.players import app_path, opens_files  # noqa: E402
from makers.registry import CURRENT_USER, exported, number_value, text_value  # noqa: E402
from makers.songs import OTHER, id3v1, id3v2  # noqa: E402
from makers.tagged_songs import KINDS, Tags, tagged_song  # noqa: E402
from makers.words import (ALBUMS, ARTISTS, DEVICE_NAMES, LATIN, ODD_TEXTS, TITLES,  # noqa: E402
                          WIDE)
from native_playlists import LONGEST_PATH, drives_of, upper, utf16_units  # noqa: E402
from new_machine_maker import NewMachineMaker  # noqa: E402
from playlist_maker import PlaylistMaker  # noqa: E402

LONGEST_HOST_NAME = 255  # bytes
FURTHER = 1000000  # how far the seeds of further machines are away


class Maker(ByChance):
    def __init__(self, seed, folder):
        super().__init__(random.Random(seed))
        self.seed = seed
        self.made = GeneratedMachine(Path(folder), maker=self)
        self.letters = "C"
        self.taken = set()  # upper-case paths of the old machine's files
        self.folders = set()  # and of its folders
        self.pairs = []  # artists and albums that songs share
        self.tags = {}  # artist and album of each song, by its content
        self.names = []  # of playlists of an earlier machine
        self.sought = set()  # names of files that playlists name where they are not
        self.files = 0

    def make(self):
        self.make_old()
        NewMachineMaker(self).make()
        return self.made

    def make_old(self):
        self.make_old_machine()
        self.make_songs(self.random.randrange(3, 21))
        self.make_playlists(self.random.randrange(2, 9))
        self.made.is_disk = self.letters == "C" and self.often(0.2)
        self.made.has_work = self.often(0.2)
        # Links to the songs change the old disk, which counts them.
        self.made.links = not self.made.must_stay_whole() and self.often(0.1)

    def make_another(self):
        """A further old machine beside this one."""
        maker = Maker(self.seed + FURTHER, self.made.folder)
        maker.made.number = "-2"
        maker.names = [ntpath.basename(each.path) for each in self.made.playlists]
        maker.made.group_root, maker.made.documents = self.made.group_root, self.made.documents
        maker.make_old()
        return maker.made

    # ---- files ----

    def put(self, machine, path, content):
        """Writes a file of a machine, in the spelling that is there already."""
        place = drives_of(machine).get(path[0]) or machine / path[0]
        *folders, name = path[3:].split("\\")
        for each in folders:
            place.mkdir(parents=True, exist_ok=True)
            same = [other for other in os.listdir(place) if upper(other) == upper(each)]
            place = place / (same[0] if same else each)
        place.mkdir(parents=True, exist_ok=True)
        self.put_host(place / name, content)

    @staticmethod
    def put_host(place, content):
        place.parent.mkdir(parents=True, exist_ok=True)
        write_old(place, content)

    def has(self, path):
        """True when the old machine has that, by whatever composition of its characters."""
        own = names(path)
        return any(names(taken) == own for taken in self.taken | self.folders)

    def keep_found(self, path):
        """What a name leads to now, it leads to later."""
        self.sought.add(names(path)[0])

    def settle(self, path):
        """True when the old machine can hold a file of that path, which it then does."""
        key = upper(path)
        # A disk that was mounted elsewhere may hold longer paths than Windows ever could.
        longest = LONGEST_PATH * 3 if self.often(0.1) else LONGEST_PATH
        if utf16_units(path) > longest or key in self.taken:
            return False
        names = path[3:].split("\\")
        if any(len(name.encode()) > LONGEST_HOST_NAME for name in names):
            return False
        parents = {upper(path[:3] + "\\".join(names[:count])) for count in range(1, len(names))}
        if parents & self.taken or key in self.folders:
            return False
        self.taken.add(key)
        self.folders |= parents
        return True

    # ---- the machine itself ----

    def make_old_machine(self):
        old = self.made.old
        old.mkdir(parents=True)
        has_second = self.often(0.4)
        self.letters = "CD" if has_second else "C"
        if self.often(0.5):
            drives, documents = ["C=fixed"], None
            if has_second:
                drives.append(self.one(["D=fixed", "D=fixed,../disk-d" + self.made.number]))
            if self.often(0.5):
                documents = self.one(
                    ["C:\\My Documents", "C:\\Documents and Settings\\Anna\\My Documents"])
            self.put_host(old / "machine.ini", machine_ini(drives, documents, between=()))
        for letter in self.letters:
            (drives_of(old).get(letter) or old / letter).mkdir(parents=True, exist_ok=True)
        if self.often(0.4):
            self.install_players(old)
        self.put(old, "C:\\My Documents\\readme.txt", b"no song\r\n")

    def install_players(self, machine):
        programs = "C:\\Program Files\\"
        keys = [opens_files("Sonique", programs + "Sonique\\Sonique.exe"),
                opens_files("Winamp", programs + "Winamp\\Winamp.exe"),
                app_path("MMJB.EXE", programs + "MusicMatch\\mmjb.exe"),
                (CURRENT_USER + "Example Mixer",
                 [number_value("Volume", 200), text_value("Skin", "Grün")])]
        charset = self.one(["utf-16-le", "utf-8-sig"])
        self.put_host(machine / "registry.reg", exported(keys, charset, last_line=False))
        for program in ("Sonique\\Sonique.exe", "Winamp\\Winamp.exe", "MusicMatch\\mmjb.exe"):
            self.put(machine, programs + program, b"MZ")
        self.put(machine, programs + "Winamp\\Winamp.ini", b"[Winamp]\r\nvolume=200\r\n")

    # ---- songs ----

    def word(self):
        return self.one(LATIN) if self.often(0.75) else self.one(WIDE)

    def folder_name(self):
        name = self.word() if self.often(0.95) else self.one(DEVICE_NAMES).strip()
        return name.rstrip(". ") or "x"

    def song_name(self):
        kind = self.random.random()
        if kind < 0.06:
            name = self.one(DEVICE_NAMES)
        elif kind < 0.12:
            name = self.one(["long ", "ž", "さ", "ü", "🎵"]) * 240
            name = name[:self.random.randrange(100, 240)]
            while len(name.encode()) > LONGEST_HOST_NAME - 4:
                name = name[:-1]
        else:
            name = self.word()
        return name + self.one(SONG_ENDINGS)

    def folder(self):
        depth = self.one([0, 1, 1, 2, 2, 3, 8, 25])
        base = self.one(["", "", "Music\\", "My Documents\\My Music\\", self.one(USER_MUSIC)])
        return self.one(self.letters) + ":\\" + base + "".join(
            self.folder_name() + "\\" for _ in range(depth))

    def tag_texts(self):
        if self.pairs and self.often(0.5):
            artist, album = self.one(self.pairs)
        else:
            artist, album = (self.one(ODD_TEXTS if self.often(0.3) else plain)
                             if self.often(0.85) else None for plain in (ARTISTS, ALBUMS))
            self.pairs.append((artist, album))
        return self.one(TITLES + ODD_TEXTS[:6]), artist, album

    def content(self, ending):
        self.files += 1
        size = self.random.choices([0, 200, 5000, 70000, 1200000], [5, 70, 20, 4, 1])[0]
        body = b"\xff\xfb" + f"seed {self.seed}, file {self.files}".encode() + bytes(size)
        if self.often(0.02):
            body = b""
        if body and self.often(0.4):
            return self.tagged_content(ending, body[:60])
        if ending.lower() != ".mp3":
            return body
        kind = self.one(["none", "v1", "v2", "v2", "v2", "both"])
        title, artist, album = self.tag_texts()
        if kind in ("v2", "both"):
            body = id3v2(title=title, artist=artist, album=album) + body
        if kind in ("v1", "both"):
            body += id3v1(title, artist, album, genre=OTHER)
        if kind != "none":
            self.tags[body] = artist, album
        return body

    def tagged_content(self, ending, own):
        """A song as players make them, in any script."""
        kinds = [kind for kind, (usual, _) in KINDS.items() if usual == ending.lower()]
        artist, album = (self.one(WIDE + plain) for plain in (ARTISTS, ALBUMS))
        if not kinds:
            return own
        kind = self.one(kinds)
        if kind.endswith(" Latin-1") and "called" not in kind:
            artist, album = self.one(ARTISTS), self.one(ALBUMS)
        tags = Tags(artist, album, self.one(["Signal", "Ärger"]), self.random.randrange(1, 20),
                    self.random.randrange(1, 4000))
        content = tagged_song(kind, tags, own)
        self.tags[content] = artist, album
        self.made.seconds[content] = tags.seconds
        return content

    def make_songs(self, count):
        songs = self.made.songs
        folders = [self.folder() for _ in range(self.random.randrange(1, 6))]
        wanted = len(songs) + count
        for _ in range(count * 3):
            if len(songs) == wanted:
                break
            name = self.song_name()
            if songs and self.often(0.25):
                name = ntpath.basename(self.one(songs).path)
            path = self.one(folders) + name
            if names(path)[0] in self.sought or not self.settle(path):
                continue
            ending = ntpath.splitext(path)[1]
            alike = [song for song in songs if song.path.endswith(ending)]
            same = alike and self.often(0.08)
            content = self.one(alike).content if same else self.content(ending)
            songs.append(Song(path, content))
            self.put(self.made.old, path, content)

    # ---- playlists ----

    def make_playlists(self, count):
        for _ in range(count):
            PlaylistMaker(self).make()


def make_machine(seed, folder):
    """Makes `folder`/old, often something on `folder`/new, and tells what is listed there."""
    return Maker(seed, folder).make()
