"""Makes an old machine, and often something on the new one, from a seed, and tells what its
playlists list. Everything is decided here, before the program runs: what is expected of it is
known by construction."""

import ntpath
import os
import random
import re
import struct
from dataclasses import dataclass, field
from pathlib import Path
from urllib.parse import quote

from native_playlists import (LONGEST_PATH, PLAYER_FOLDERS, drives_of, fits_code_page, upper,
                              utf16_units)

STAMP = 1052907120  # 14 May 2003: older than any birth time on this disk
GROUP_ROOT = "C:\\My Documents\\Norvo Media\\"
LONGEST_HOST_NAME = 255  # bytes
FURTHER = 1000000  # how far the seeds of further machines are away

# ------------------------------------------------------------------------ words to choose ----

LATIN = ["Song", "Track 01", "Root Song", "Don't Look Back", "Kraft & Stoff", "Demo #3",
         "100% pure", "50%20off", "a; b", "Pop Hits [2003]", "x=y", "one, two", "Hey!", "{take 2}",
         "v1.2.final", "Mr. Big feat. R.E.M", "..and so on", ".hidden", "a  b", "~tmp", "(live)",
         "+1", "@home", "$$$", "_underscore_", "- dash -", "EXTINF story", "file", "http", "C", "1",
         "1999", "007 - Agent - Theme", "Artist - Title", "Très bien", "Grüße aus Köln", "Straße",
         "Ärzte", "Señor", "Øresund", "Žižka", "€uro “quoted” – dash", "it’s", "SHOUT", "ÀÉÎÕÜ",
         "ß", "ÿ", "été", "Song (2)", "Song_", "____", "Lodz", "Song.mp3"]
WIDE = ["Příliš žluťoučký kůň", "Žluté čtvrtky", "Łódź", "Ελληνικά τραγούδια", "ΣΊΣΥΦΟΣ",
        "Песня о друге", "Москва", "さくら さくら", "東京", "أغنية", "שיר", "노래", "🎵🎶", "a🎸b",
        "e\u0301te\u0301", "n\u0303", "ﬁn", "Ǆ", "İstanbul", "ıssız", "½ → ∞",
        "\u200fمرحبا\u200e"]
DEVICE_NAMES = ["con", "aux ", "NUL", "com1", "lpt9.x"]
SONG_ENDINGS = [".mp3"] * 8 + [".MP3", ".Mp3", ".ogg", ".m4a", ".flac", ".wma", ".wav", ".WAV"]
PLAYER_PLACES = ["Program Files\\Winamp", "Program Files\\Sonique\\Playlists",
                 "Program Files\\MusicMatch\\MusicMatch Jukebox\\Playlist", "WinAmp",
                 "Windows Media Player", "My Documents\\My Music\\My Playlists", "My Documents"]
SKIPPED_PLACES = ["RECYCLED", "RECYCLER\\S-1-5-21", "System Volume Information",
                  "System Volume Information.old\\x",
                  "WINDOWS\\Temporary Internet Files\\Content.IE5"]
PLAYLIST_NAMES = ["Mix"] * 6 + ["a.b", "a.c", "a", "Favorites", "Party Mix", "x=y; z", "100%",
                                "...!", "!!!", "()[]", ".start", "con", "aux ", "Old.m3u list",
                                "mix.pls", "Straße & Süden", "it's", "1999", "-", "PlayLists",
                                "SubNames", "MediaList", "{}~`'", "v1.2.3", "#1 hits", "a  b",
                                "Grüße", "’", "Mix1", "Mix12", "Mix (2)", "Mix 2", "Mix!", "mix"]
WIDE_PLAYLIST_NAMES = ["Сборник", "プレイリスト", "قائمة", "Žluté", "🎵", "Łódź mix", "ΜΟΥΣΙΚΗ"]

TITLES = ["Northern Lights", "Don't Stop (Live)", "", "Signal", "Ärger", "12", "a=b;c", "<b>",
          "x" * 90]
ARTISTS = ["The Harbours", "Zoë", "AC/DC", "Kraft & Stoff", "O'Hara", "Music", "PlayLists", "KVs"]
ALBUMS = ["Pop Hits", "Live 1999", "Übermut", "Greatest: Hits?", "Norvo Media"]
ODD_TEXTS = ["/ \\ : * ? \" < > |", "..\\..\\x", "..", ".", "C:\\x", "D:\\boom",
             "\\\\server\\share", "trailing.", "trailing ", "trailing. . .", "...", " ", "CON",
             "nul", "com1", "aux.x", "A" * 200, "long " * 50, "tab\there", "line\r\nend",
             "bell\x07\x1b", "nul\x00inside", "C:\\My Documents\\Norvo Media\\", "%", "#", "a/b/c",
             "\x81\x90\xa0", "GET_SHELL_FOLDER,5,", "[Entry 1 Properties]", "=", ";", "'", "`^~",
             "~1", "PROGRA~1"]

ADDRESSES = ["http://radio.example.com:8000/", "http://radio.example.com/live.mp3",
             "HTTP://Radio.example.com/Live?a=1;b=#x", "mms://media.example.com/night/show.wma",
             "ftp://files.example.org/pub/a b.mp3", "https://secure.example.com/live/stream.ogg",
             "rtsp://media.example.com/one.rm", "mms://media.example.com/100%25.asf",
             "\\\\server\\share\\x.mp3", "\\\\server\\share\\Jazz & Blues\\Slow Train.mp3",
             "https://example.com/x", "http://example.com/it's"]
MISSING = ["Q:\\No\\drive.mp3", "A:\\Music\\floppy.mp3", "C:\\Music\\no such song.mp3", "gone.mp3",
           "gone\\gone.mp3", "..\\gone too.mp3", "\\gone.mp3", ".\\gone.ogg", "C:/gone/far.mp3",
           "file:///C:/gone%20far.mp3", "..\\..\\..\\..\\..\\..\\..\\up.mp3"]

# ------------------------------------------------------------------------- the description ----


@dataclass(frozen=True)
class Song:
    path: str  # on the old machine
    content: bytes


@dataclass(frozen=True)
class Item:
    """What one place of a playlist lists: a song, an address, or nothing that exists."""
    kind: str  # "song", "address", "missing"
    song: Song = None
    address: str = ""


@dataclass
class Playlist:
    path: str
    items: list
    skipped: bool  # stands where nobody looks for playlists
    what: str  # how it is written, for messages

    def kept(self):
        return [item for item in self.items if item.kind != "missing"]

    def is_expected(self):
        return not self.skipped and any(item.kind == "song" for item in self.items)

    def is_left_open(self):
        """Addresses alone: nothing to move, but a playlist all the same."""
        return not self.skipped and not self.is_expected() and bool(self.kept())


@dataclass
class GeneratedMachine:
    folder: Path
    songs: list = field(default_factory=list)
    playlists: list = field(default_factory=list)
    group_root: str = GROUP_ROOT  # of the new machine
    documents: str = "C:\\My Documents\\"  # of the new machine
    is_disk: bool = False  # handed over as the bare drive C of the old machine
    has_work: bool = False  # with a folder of its own for what the product writes
    number: str = ""  # of a further old machine beside the first one
    links: bool = False  # songs may become links
    maker: object = None

    def grow(self):
        """Adds songs and playlists to the old machine, as time goes on there."""
        self.maker.make_songs(self.maker.random.randrange(0, 3))
        self.maker.make_playlists(self.maker.random.randrange(1, 4))

    @property
    def old(self):
        return self.folder / ("old" + self.number)

    @property
    def new(self):
        return self.folder / "new"

    def arguments(self):
        """What the program is told."""
        source = self.old / "C" if self.is_disk else self.old
        work = ["--work", str(self.folder / ("work" + self.number))] if self.has_work else []
        links = ["--link"] if self.links else []
        return ["migrate", "--from", str(source), "--to", str(self.new), *work, *links, "--quiet"]

    def parts(self):
        """The folders beside the new machine that belong to this one, but for its work folder."""
        return "old" + self.number, "disk-d" + self.number

    def another(self):
        """A further old machine, to be moved to the same new one."""
        maker = Maker(self.maker.seed + FURTHER, self.folder)
        maker.made.number = "-2"
        maker.names = [ntpath.basename(each.path) for each in self.playlists]
        maker.made.group_root, maker.made.documents = self.group_root, self.documents
        maker.make_old()
        return maker.made

    def must_stay_whole(self):
        """Nothing at all may be written to the old machine."""
        return self.is_disk or self.has_work


# ----------------------------------------------------------------------------------- tags ----


def frame(name, text):
    body = b"\0" + text.encode("latin-1")
    return name + struct.pack(">I", len(body)) + b"\0\0" + body


def id3v2(title, artist, album):
    frames = b"".join(frame(name, text) for name, text in
                      ((b"TIT2", title), (b"TPE1", artist), (b"TALB", album)) if text is not None)
    size = len(frames)
    return b"ID3\3\0\0" + bytes((size >> shift) & 0x7F for shift in (21, 14, 7, 0)) + frames


def id3v1(title, artist, album):
    def text(value):
        return (value or "").encode("latin-1")[:30].ljust(30, b"\0")

    return b"TAG" + text(title) + text(artist) + text(album) + b"1999" + b"\0" * 30 + b"\x0c"


# -------------------------------------------------------------------------------- the maker ----


class Maker:
    def __init__(self, seed, folder):
        self.random = random.Random(seed)
        self.seed = seed
        self.made = GeneratedMachine(Path(folder), maker=self)
        self.letters = "C"
        self.taken = set()  # upper-case paths of the old machine's files
        self.folders = set()  # and of its folders
        self.pairs = []  # artists and albums that songs share
        self.tags = {}  # artist and album of each song, by its content
        self.names = []  # of playlists of an earlier machine
        self.files = 0

    def often(self, probability):
        return self.random.random() < probability

    def one(self, choices):
        return self.random.choice(choices)

    def make(self):
        self.make_old()
        self.make_new_machine()
        return self.made

    def make_old(self):
        self.make_old_machine()
        self.make_songs(self.random.randrange(3, 21))
        self.make_playlists(self.random.randrange(2, 9))
        self.made.is_disk = self.letters == "C" and self.often(0.2)
        self.made.has_work = self.often(0.2)
        # Links to the songs change the old disk, which counts them.
        self.made.links = not self.made.must_stay_whole() and self.often(0.1)

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
        place.write_bytes(content)
        os.utime(place, (STAMP, STAMP))

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
            lines = ["[Drives]", "C=fixed"]
            if has_second:
                lines.append(self.one(["D=fixed", "D=fixed,../disk-d" + self.made.number]))
            if self.often(0.5):
                lines += ["[ShellFolders]", "5=" + self.one(
                    ["C:\\My Documents", "C:\\Documents and Settings\\Anna\\My Documents"])]
            self.put_host(old / "machine.ini", "\r\n".join(lines + [""]).encode())
        for letter in self.letters:
            (drives_of(old).get(letter) or old / letter).mkdir(parents=True, exist_ok=True)
        if self.often(0.4):
            self.install_players(old)
        self.put(old, "C:\\My Documents\\readme.txt", b"no song\r\n")

    def install_players(self, machine):
        programs = "C:\\Program Files\\"
        lines = ["Windows Registry Editor Version 5.00", ""]
        for key, value in (
                ("HKEY_CLASSES_ROOT\\Sonique.File\\shell\\open\\command",
                 "Sonique\\Sonique.exe \"%1\""),
                ("HKEY_CLASSES_ROOT\\Winamp.File\\shell\\open\\command",
                 "Winamp\\Winamp.exe \"%1\""),
                ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths"
                 "\\MMJB.EXE", "MusicMatch\\mmjb.exe")):
            text = (programs + value).replace("\\", "\\\\").replace('"', '\\"')
            lines += [f"[{key}]", f'@="{text}"', ""]
        lines += ["[HKEY_CURRENT_USER\\Software\\Example Mixer]", '"Volume"=dword:000000c8',
                  '"Skin"="Gr\u00fcn"', ""]
        self.put_host(machine / "registry.reg", "\r\n".join(lines).encode(
            self.one(["utf-16", "utf-8-sig"])))
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
        base = self.one(["", "", "Music\\", "My Documents\\My Music\\"])
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
        if ending.lower() != ".mp3":
            return body
        kind, texts = self.one(["none", "v1", "v2", "v2", "v2", "both"]), self.tag_texts()
        if kind in ("v2", "both"):
            body = id3v2(*texts) + body
        if kind in ("v1", "both"):
            body += id3v1(*texts)
        if kind != "none":
            self.tags[body] = texts[1:]
        return body

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
            if not self.settle(path):
                continue
            same = songs and self.often(0.08)
            content = self.one(songs).content if same else self.content(ntpath.splitext(path)[1])
            songs.append(Song(path, content))
            self.put(self.made.old, path, content)

    # ---- playlists ----

    def make_playlists(self, count):
        for _ in range(count):
            PlaylistMaker(self).make()

    # ---- what stands on the new machine already ----

    def make_new_machine(self):
        kind = self.random.random()
        if kind < 0.15:
            return
        new = self.made.new
        new.mkdir()
        if kind < 0.25:
            return
        (new / "C").mkdir()
        if self.often(0.3):
            self.install_players(new)
        elif self.often(0.3):
            self.choose_group_root()
        if self.often(0.3):
            self.made.documents = self.one(
                ["C:\\My Documents\\", "C:\\Documents and Settings\\Anna\\My Documents\\"])
            self.put_host(new / "machine.ini",
                          f"[Drives]\r\nC=fixed\r\n[ShellFolders]\r\n5={self.made.documents[:-1]}"
                          "\r\n".encode())
        for way, probability in ((self.occupy_natural_places, 0.6),
                                 (self.occupy_old_addresses, 0.4),
                                 (self.occupy_playlists, 0.4), (self.leave_settings, 0.2),
                                 (self.grow_deep_tree, 0.2)):
            if self.often(probability):
                way()

    def choose_group_root(self):
        self.made.group_root = "C:\\Kept Here\\Media\\"
        escaped = self.made.group_root.replace("\\", "\\\\")
        key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS"
        text = ('Windows Registry Editor Version 5.00\r\n\r\n'
                f'[{key}]\r\n"mode"=dword:00000001\r\n\r\n'
                f'[{key}\\KVMediaPlayLists]\r\n"SubGroupRootName"="{escaped}"\r\n')
        self.put_host(self.made.new / "registry.reg", text.encode("utf-16"))

    def put_foreign(self, path, content):
        """A file of the new machine that is not ours; nothing where it cannot stand."""
        try:
            if not drives_of(self.made.new).get(path[0]):
                return
            self.put(self.made.new, path, content)
        except OSError:
            pass

    def occupy_natural_places(self):
        """Files, and rarely a file for a folder, where songs would naturally go."""
        for song in self.random.sample(self.made.songs, min(6, len(self.made.songs))):
            artist, album = self.tags.get(song.content, (None, None))
            parts = [text for text in (artist, album)
                     if text and not set(text) & set('<>:"/\\|?*') and min(text) >= " "]
            folder = "".join(part.rstrip(". ") + "\\" for part in parts if part.rstrip(". "))
            place = self.made.group_root + "Music\\" + folder
            if self.often(0.3):
                place = place.upper()
            if folder and self.often(0.08):
                self.put_foreign(place.rstrip("\\"), b"a file where a folder would be")
            content = song.content if self.often(0.4) else b"foreign " + song.path.encode()
            self.put_foreign(place + ntpath.basename(song.path), content)

    def occupy_old_addresses(self):
        for song in self.random.sample(self.made.songs, min(4, len(self.made.songs))):
            path = song.path if self.often(0.5) else song.path.upper()
            content = song.content if self.often(0.3) else b"another " + song.path.encode()
            self.put_foreign(path, content)

    def occupy_playlists(self):
        root = self.made.group_root + "PlayLists\\"
        for playlist in self.random.sample(self.made.playlists, min(3, len(self.made.playlists))):
            base = ntpath.basename(playlist.path).split(".")[0] or "x"
            for player, ending in [*PLAYER_FOLDERS.items(), ("winamp", ".M3U")]:
                if self.often(0.4):
                    self.put_foreign(root + player + "\\" + base + ending, b"foreign list\r\n")

    def leave_settings(self):
        """Settings files in the documents folder that are no playlists."""
        for name in ("desktop.ini", "Norvo PlayLists\\desktop.ini", "x\\Mix.ini"):
            self.put_foreign(self.made.documents + name,
                             b"[Global Properties]\r\nPlayListName=Mix\r\n")

    def grow_deep_tree(self):
        path = "C:\\" + "deep\\" * self.random.randrange(20, 45)
        self.put_foreign(path + "down.mp3", b"far below")
        self.put_foreign("C:\\" + "x" * 200 + "\\down.mp3", b"not so far")


class PlaylistMaker:
    """Writes one playlist of the old machine."""

    ENCODINGS = ["cp1252"] * 10 + ["utf-8-sig"] * 4 + ["utf-8"] * 4 + ["utf-16-le"] * 4 + [
        "utf-16-be"]

    def __init__(self, maker):
        self.maker = maker
        self.random = maker.random
        self.often = maker.often
        self.one = maker.one
        self.encoding = self.one(self.ENCODINGS)
        self.syntax = self.one(["m3u", "m3u", "asx", "pls"])
        self.form = {}
        self.folder = ""

    def make(self):
        path = self.place()
        if path is None:
            return
        self.folder = ntpath.dirname(path).rstrip("\\") + "\\"
        write = {"m3u": self.m3u, "asx": self.asx, "pls": self.pls}[self.syntax]
        self.choose_form()
        chosen = self.items()
        text = write(chosen)
        raw = self.encoded(text)
        if self.encoding == "cp1252" and self.looks_like_utf8(raw):
            self.encoding = "utf-8-sig"
            raw = self.encoded(text)
        what = f"{self.syntax} {self.encoding} {self.form}"
        skipped = any(re.search(r"recycle|temporary internet files|^system volume", name, re.I)
                      for name in path[3:].split("\\")[:-1])
        self.maker.made.playlists.append(
            Playlist(path, [item for item, _ in chosen], skipped, what))
        self.maker.put(self.maker.made.old, path, raw)

    def encoded(self, text):
        if self.encoding.startswith("utf-16"):
            return ("\ufeff" + text).encode(self.encoding)
        return text.encode(self.encoding, errors="replace")

    @staticmethod
    def looks_like_utf8(raw):
        if raw.isascii():
            return False
        try:
            raw.decode("utf-8")
        except UnicodeDecodeError:
            return False
        return True

    def place(self):
        """A path that is free; nothing after some trials."""
        for _ in range(10):
            kind = self.random.random()
            if kind < 0.08:
                folder = "C:\\" + self.one(SKIPPED_PLACES) + "\\"
            elif kind < 0.35:
                folder = self.one(self.maker.letters) + ":\\" + self.one(PLAYER_PLACES) + "\\"
            elif kind < 0.8:
                folder = ntpath.dirname(self.one(self.maker.made.songs).path).rstrip("\\") + "\\"
            else:
                folder = self.maker.folder()
            name = self.one(PLAYLIST_NAMES if self.often(0.85) else WIDE_PLAYLIST_NAMES)
            if self.often(0.05):
                name = "long name " * self.random.randrange(8, 21)
            if self.maker.names and self.often(0.5):
                name = ntpath.splitext(self.one(self.maker.names))[0]
            ending = self.syntax
            if self.syntax == "asx" and self.often(0.3):
                ending = "m3u"
            if self.often(0.25):
                ending = self.one([ending.upper(), ending.title()])
            path = folder + name + "." + ending
            if self.maker.settle(path):
                return path
        return None

    # ---- what it lists ----

    def choose_form(self):
        if self.syntax == "asx":
            self.form = {"quote": self.one(['"', '"', '"', "'"]), "per_line": self.often(0.25),
                         "escaped": self.often(0.4), "comments": self.often(0.15),
                         "blanks": self.often(0.2), "attribute": self.often(0.1),
                         "broken": self.often(0.1), "closed": self.often(0.1),
                         "end": self.one(["\r\n", "\r\n", "\n"])}
        elif self.syntax == "pls":
            self.form = {"tail": self.one(["Version=2", "Version=2", "", "Version=3"]),
                         "equals": self.one(["=", "=", "=", " = "]), "small": self.often(0.1),
                         "comment": self.often(0.1),
                         "cached": self.often(0.15), "count": self.often(0.85),
                         "gaps": self.often(0.2), "end": self.one(["\r\n", "\r\n", "\r\n", "\n"])}
            self.form["gaps"] = self.form["gaps"] and self.form["count"]
        else:
            self.form = {"kind": self.one(["header", "header", "header", "bare", "bare", "comments",
                                           "relative"]),
                         "end": self.one(["\r\n"] * 4 + ["\n", "\r"]), "lead": self.often(0.1),
                         "last_title": self.often(0.1), "nul": self.often(0.1),
                         "trail": self.often(0.1)}
            self.form["nul"] = self.form["nul"] and self.form["kind"] == "bare"

    def items(self):
        """The items, each with the text that names it."""
        chosen = []
        for _ in range(self.one([0, 1, 2, 3, 4, 5, 8, 12])):
            kind = self.random.random()
            if kind < 0.7:
                song = self.one(self.maker.made.songs)
                if chosen and self.often(0.1):
                    song = self.one(chosen)[0].song or song
                reference = self.reference_to(song.path)
                if reference is not None:
                    chosen.append((Item("song", song=song), reference))
            elif kind < 0.85:
                address = self.one(ADDRESSES)
                if self.can_hold(address) and not (self.form.get("escaped") and "&" in address):
                    chosen.append((Item("address", address=address), address))
            else:
                reference = self.one(MISSING + ["C:\\My Documents\\readme.txt", "C:\\My Documents"])
                chosen.append((Item("missing"), reference))
        return chosen

    def can_hold(self, text):
        if self.encoding == "cp1252" and not fits_code_page(text):
            return False
        if self.syntax == "asx" and self.form["quote"] == "'" and not self.form["escaped"]:
            return "'" not in text
        return not (self.syntax == "m3u" and text.startswith("#"))

    def reference_to(self, path):
        """One of the ways to name a song in this playlist; nothing when there is none."""
        fitting = [text for text in self.spellings(path) if self.can_hold(text)]
        return self.one(fitting) if fitting else None

    def spellings(self, path):
        yield path
        yield self.other_case(path)
        yield path.replace("\\", "/")
        yield path[:3] + "nowhere\\..\\" + path[3:]
        # A cp1252 list does not name by the back door what its page lacks.
        if self.encoding != "cp1252" or fits_code_page(path):
            yield "file:///" + path[:2] + quote(path[2:].replace("\\", "/"))
        if not set(path) & set("%#?"):
            yield "file:///" + path.replace("\\", "/")
        if upper(path[0]) != upper(self.folder[0]):
            return
        yield path[2:]
        relative = ntpath.relpath(path, self.folder)
        for _ in range(2):
            yield relative if self.often(0.7) else self.other_case(relative)
        yield relative.replace("\\", "/")
        if not relative.startswith(".."):
            yield ".\\" + relative
            yield "./" + relative.replace("\\", "/")

    def other_case(self, text):
        """Another spelling that Windows takes for the same name."""
        result = []
        for character in text:
            other = self.one([character, character.lower(), character.upper()])
            same = len(other) == 1 and upper(other) == upper(character)
            result.append(other if same and ord(character) != 0xB5 else character)
        return "".join(result)

    def title(self):
        return self.one(TITLES + ["Artist - Title", "a, b - c", "Grüße / Köln", "x - ", "Песня"])

    # ---- the syntaxes ----

    def m3u(self, items):
        kind = self.form["kind"]
        if kind == "bare" and items and not re.match(r".:\\", items[0][1]):
            kind = self.form["kind"] = "relative"
        lines = ["#EXTM3U"] if kind == "header" else []
        if kind == "comments":
            lines = [self.one(["# made by hand", "", "#", "# x"])
                     for _ in range(self.random.randrange(4, 8))]
        for _, reference in items:
            if kind in ("header", "comments") and self.often(0.6):
                lines.append(f"#EXTINF:{self.one(['215', '-1', '1234', ''])}"
                             f"{self.one([',', ',', ',', ''])}{self.title()}")
                lines += self.one([[]] * 8 + [["#EXTINF:12,again"], [""], ["# remark"]])
            nul = "\0" if self.form["nul"] and self.encoding == "cp1252" else ""
            lines.append(("  " if self.form["lead"] else "") + reference + nul +
                         ("  " if self.form["trail"] else ""))
            if self.often(0.05):
                lines.append("")
        if self.form["last_title"] and kind == "header":
            lines.append("#EXTINF:100,Nobody - Nothing")
        return self.form["end"].join(lines) + (self.form["end"] if self.often(0.9) else "")

    def pls(self, items):
        lines, number, equals = [], 0, self.form["equals"]
        if self.form["cached"]:
            lines.append("CachedInfo=1")
        for _, reference in items:
            number += self.one([1, 1, 2]) if self.form["gaps"] else 1
            lines.append(f"{'file' if self.form['small'] else 'File'}{number}{equals}{reference}")
            if self.often(0.6):
                lines.append(f"Title{number}{equals}{self.title()}")
                lines.append(f"Length{number}{equals}{self.one(['-1', '215'])}")
        if self.form["count"]:
            lines.insert(self.one([0, len(lines)]), f"NumberOfEntries{equals}{number}")
        lines += [self.form["tail"]] if self.form["tail"] else []
        lines.insert(0, "[Playlist]" if self.form["small"] else "[playlist]")
        if self.form["comment"]:
            lines = ["; written by hand", ""] + lines
        return self.form["end"].join(lines + [""])

    def attribute(self, value):
        quote_mark = self.form["quote"]
        if self.form["escaped"]:
            value = value.replace("&", self.one(["&amp;", "&amp;", "&#38;", "&#x26;"]))
            value = value.replace("'", "&apos;" if quote_mark == "'" else "'")
        return quote_mark + value + quote_mark

    def parameter(self, name, values):
        """A Param element, sometimes, of a text that fits into it."""
        value = self.one(values)
        fits = not set(value) & set("<>\"'\r\n\0") and (self.encoding != "cp1252"
                                                       or fits_code_page(value))
        if not fits or not self.often(0.3):
            return []
        return [f"<Param Name = {self.attribute(name)} Value = {self.attribute(value)} />"]

    def asx_entry(self, reference, gap):
        entry = [self.one(["<Entry>", "<ENTRY>", "<entry>"])]
        if self.form["attribute"]:
            entry = ['<Entry ClientSkip="no">']
        entry += self.parameter("Artist", ARTISTS + ODD_TEXTS)
        entry += self.parameter("Album", ALBUMS + ODD_TEXTS)
        if self.often(0.3):
            entry.append(f"<Title>{self.one(['Signal', 'Night', 'x y'])}</Title>")
        ref, href = self.one(["Ref", "REF", "ref"]), self.one(["href", "HREF", "Href"])
        equals, end = self.one([" = ", "="]), self.one(["/>", " />"])
        if self.form["closed"]:
            end = f"></{ref}>"
        if self.form["broken"]:
            gap = self.form["end"]
        entry.append(f"<{ref}{gap}{href}{equals}{self.attribute(reference)}{end}")
        return entry + ["</Entry>"]

    def asx(self, items):
        gap = "  " if self.form["blanks"] else " "
        version = self.one(["Version", "version", "VERSION"])
        lines = ["<!-- by hand", "one", "two", "three", "-->"] if self.form["comments"] else []
        lines.append(f"<ASX{gap}{version} = {self.attribute('3.0')}>")
        lines += self.parameter("Name", ["Party", "..\\x", "C:\\x", "Mix.m3u", "Mix", "a:b",
                                         "Mix.asx"])
        for _, reference in items:
            entry = self.asx_entry(reference, gap)
            lines += [" ".join(entry)] if self.form["per_line"] else entry + self.one([[], [""]])
        return self.form["end"].join(lines + ["</ASX>", ""])


def make_machine(seed, folder):
    """Makes `folder`/old, often something on `folder`/new, and tells what is listed there."""
    return Maker(seed, folder).make()
