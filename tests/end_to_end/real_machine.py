"""An old machine with songs in every container and script, and with the playlists that players
wrote for them; and what of it must be told and found after a move."""

import sys
import unicodedata
from dataclasses import dataclass, field, replace
from functools import cache
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[2] / "scripts"))  # where the makers are

from makers import playlists, real_lists  # noqa: E402
from makers.files import place, write_old  # noqa: E402
from makers.markup_lists import Entry, LibraryList  # noqa: E402
from makers.tagged_songs import Tags, tagged_song  # noqa: E402
from makers.text import encoded, joined  # noqa: E402

ANNA = "C:\\Documents and Settings\\Anna\\My Documents\\My Music\\"
ZOE = "C:\\Documents and Settings\\Zoë\\My Documents\\My Music\\"
SECOND = "D:\\Music\\"
LISTS = ANNA + "My Playlists\\"


def composed(text):
    return unicodedata.normalize("NFC", text)


def decomposed(text):
    return unicodedata.normalize("NFD", text)


@dataclass(frozen=True)
class OldSong:
    path: str
    tags: Tags  # of a song without any, what playlists tell of it
    kind: str  # of the makers; None for a song that tells nothing of itself

    @cache
    def content(self):
        own = self.path.encode()
        if self.kind is None:
            return b"nothing that a reader of tags knows: " + own + bytes(200)
        return tagged_song(self.kind, self.tags, own)

    def entry(self):
        return Entry(self.path, self.tags.title, self.tags.artist, self.tags.album,
                     self.tags.seconds)


def song(path, kind, artist, album, title, track, seconds):
    return OldSong(path, Tags(artist, album, title, track, seconds), kind)


# By a word for each; the first group has names that the 8-bit page holds.
PLAIN = {
    "joga": song(ANNA + "Björk\\Homogenic\\02 Jóga.mp3", "ID3v2.3 Latin-1",
                 "Björk", "Homogenic", "Jóga", 2, 305),
    "hunter": song(ANNA + "Björk\\Homogenic\\01 Hunter.mp3", "ID3v2.2 Latin-1",
                   "Björk", "Homogenic", "Hunter", 1, 255),
    "pagan": song(ANNA + "Björk\\Vespertine\\08 Pagan Poetry.mp3", "ID3v2.2 UTF-16",
                  "Björk", "Vespertine", "Pagan Poetry", 8, 314),
    "svefn": song(ANNA + "svefn.mp3", "ID3v2.3 UTF-8 called Latin-1",
                  "Sigur Rós", "Ágætis byrjun", "Svefn-g-englar", 2, 601),
    "stoff": song(SECOND + "Kraft & Stoff\\Strom #1\\100% pure.mp3", "ID3v2.4 UTF-8",
                  "Kraft & Stoff", "Strom #1", "100% pure", 4, 199),
    "night": song(SECOND + "The Harbours\\Late\\Night; Rain.ogg", "Ogg Vorbis",
                  "The Harbours", "Late", "Night; Rain", 5, 242),
    "straße": song(SECOND + "Straße\\Nach Süden.flac", "FLAC",
                   "Ärzte", "Straße", "Nach Süden", 7, 187),
    "wire": song(ZOE + "Wire.m4a", "MP4", "Zoë", "Copper", "Wire", 3, 61),
    "drops": song(ZOE + "Drops.wma", "ASF", "Zoë", "Copper", "Drops", 4, 75),
    "monk": song(SECOND + "Monk.ape", "APE", "Quiet Monk", "One", "Bell", 1, 431),
    "clip": song(ZOE + "My Videos\\Clip 1.avi", None, "Nobody", None, "Moving", 0, 130),
    "mute": song(ANNA + "Track 01.mp3", None, "Nobody", None, "Untold", 0, 77),
}
WIDE = {
    "zvezda": song(ANNA + "Кино\\Группа крови\\02 Звезда.mp3", "ID3v2.3 UTF-16",
                   "Кино", "Группа крови", "Звезда", 2, 227),
    "thalassa": song(ANNA + "Ελλάδα\\Θάλασσα.mp3", "ID3v2.4 UTF-8",
                     "Χάρις", "Ελλάδα", "Θάλασσα", 6, 206),
    "sakura": song(SECOND + "東京\\さくら.mp3", "ID3v2.4 UTF-16BE",
                   "東京楽団", "春", "さくら", 1, 333),
    "emoji": song(SECOND + "🎵🎶\\a🎸b.flac", "FLAC", "🎸 Band", "🎵🎶", "a🎸b", 2, 91),
    "marks": song(ZOE + decomposed("Žluťoučký kůň") + "\\" + decomposed("Příliš.m4a"), "MP4",
                  "Žluťoučký kůň", "Příliš", "Úpěl", 9, 118),
    "lodz": song(ZOE + "Łódź.ogg", "Ogg Vorbis", "Łódź", "Miasto", "Dzień", 3, 140),
    "pesnya": song(ZOE + "Песня.wma", "ASF", "Хор", "Поле", "Песня", 1, 163),
    "mouse": song(SECOND + "Чайка\\Ветер.ape", "APE", "Чайка", "Море", "Ветер", 1, 271),
}
SONGS = {**PLAIN, **WIDE}
UNLISTED = {"alone": song(SECOND + "Nobody lists me.mp3", "ID3v2.3 Latin-1",
                          "Lone", "Some", "Alone", 1, 100),
            "binned": song(ANNA + "Deleted list only.mp3", "ID3v2.3 Latin-1",
                           "Lone", "Some", "Deleted", 2, 101)}
RADIO = Entry("http://radio.example.com:8000/live", "Night Show", "Radio Norvo")


@dataclass(frozen=True)
class Wanted:
    """What one place of a new playlist must be."""
    song: OldSong = None
    address: str = None
    titles: tuple = ()  # any of them; nothing is demanded without one
    seconds: int = None


@dataclass
class OldList:
    """A playlist of the old machine and what must become of it."""
    path: str
    raw: bytes
    wanted: list
    name: str = ""  # its own, where a file holds several
    elsewhere: int = 0  # songs that are not where it says
    gone: list = field(default_factory=list)  # references to what exists nowhere


def wanted_of(entry):
    known = next((each for each in SONGS.values() if composed(each.path) == composed(
        entry.reference)), None)
    titles = (entry.line(),) if entry.line() else ()
    if known:
        return Wanted(song=known, titles=titles, seconds=entry.seconds)
    return Wanted(address=entry.reference, titles=titles)


class RealMachine:
    """Makes the machine in a folder."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.lists = []
        self.skipped = []  # paths of playlists that nobody takes
        self.put_songs()
        for make in (self.players, self.library, self.wrong_counts, self.wrong_endings,
                     self.loose_texts, self.several_refs, self.compositions, self.moved_songs,
                     self.names_of_two, self.left_places):
            make()
        for each in self.lists:
            self.put(each.path, each.raw)

    def put(self, path, raw):
        write_old(place(self.folder, path[0] + "/" + path[3:].replace("\\", "/")), raw)

    def put_songs(self):
        for each in (*SONGS.values(), *UNLISTED.values()):
            self.put(each.path, each.content())

    def add(self, path, raw, entries, **more):
        self.lists.append(OldList(path, raw, [wanted_of(each) for each in entries], **more))

    def write(self, path, writer, entries, titles=True, swapped=False):
        """A list of a player; what it does not tell of a song, the song's own tags do."""
        folder = path[:path.rindex("\\") + 1]
        self.add(path, writer(folder, entries), entries)
        for wanted in self.lists[-1].wanted if not titles or swapped else ():
            at = self.lists[-1].wanted.index(wanted)
            told = tuple(" - ".join(reversed(title.split(" - "))) for title in wanted.titles)
            if not titles and (wanted.address or wanted.song.kind is None):
                changed = replace(wanted, titles=(), seconds=None)
            else:
                changed = replace(wanted, titles=wanted.titles + told if swapped else
                                  wanted.titles)
            self.lists[-1].wanted[at] = changed

    # ---- what the players write ----

    def players(self):
        plain = [each.entry() for each in PLAIN.values()]
        every = plain + [each.entry() for each in WIDE.values()]
        every = every[::2] + every[1::2]
        self.write(ANNA + "winamp 2.m3u", real_lists.winamp_m3u, plain + [RADIO])
        self.write(SECOND + "winamp 5.m3u8", real_lists.winamp_m3u8, every + [RADIO])
        self.write(LISTS + "winamp.pls", real_lists.winamp_pls, plain[::-1] + [RADIO])
        self.write(LISTS + "winamp 3.b4s", real_lists.winamp_b4s, every + [RADIO])
        self.write(LISTS + "media player 6.asx", real_lists.media_player_6_asx, plain[2:10])
        self.write(LISTS + "media player 7.asx", real_lists.media_player_7_asx, plain + [RADIO])
        self.write(LISTS + "redirect.wax", real_lists.media_player_7_asx, plain[:2])
        self.write(LISTS + "video.wvx", real_lists.media_player_7_asx, plain[9:])
        self.write(LISTS + "media player 9.m3u", real_lists.media_player_9_m3u, plain,
                   titles=False)
        self.lists[-1].wanted = [replace(each, titles=()) for each in self.lists[-1].wanted]
        self.write(LISTS + "media player 11.wpl", real_lists.media_player_wpl, every,
                   titles=False)
        self.write(LISTS + "Сборник 12.wpl", real_lists.media_player_12_wpl, every[::-1],
                   titles=False)
        self.write(LISTS + "zune.zpl", real_lists.zune_zpl, every)
        self.write(ANNA + "itunes.m3u", real_lists.itunes_m3u, plain, swapped=True)
        self.write(ANNA + "itunes 7.m3u8", real_lists.itunes_m3u8, every, swapped=True)
        self.write(SECOND + "foobar.m3u8", real_lists.foobar_m3u8, every)
        self.write(SECOND + "foobar early.m3u8", real_lists.foobar_old_m3u8, every, titles=False)
        self.write(SECOND + "foobar.m3u", real_lists.foobar_m3u, plain, titles=False)
        self.write(ZOE + "vlc.xspf", real_lists.vlc_xspf, every + [RADIO])
        self.write(ZOE + "vlc.m3u8", real_lists.vlc_m3u8, every + [RADIO])
        self.write(ZOE + "vlc options.m3u", real_lists.vlc_m3u, plain)
        self.write("C:\\Program Files\\MusicMatch\\MusicMatch Jukebox\\Playlist\\Morning.m3u",
                   real_lists.musicmatch_m3u, plain, titles=False)
        self.write("C:\\Program Files\\Sonique\\Playlists\\default.pls", real_lists.sonique_pls,
                   plain + [RADIO])

    def library(self):
        songs = list(SONGS.values())
        lists = [LibraryList("Всё", tuple(range(len(songs)))),
                 LibraryList("Rückwärts & more", tuple(reversed(range(len(songs))))),
                 LibraryList("Twice", (3, 12, 3)),
                 LibraryList("Top rated", (1, 15), (("Smart Info", "<data>AQEAAwAAAAI=</data>"),
                                                    ("Smart Criteria", "<data>U0xzdAAB</data>")))]
        raw = real_lists.itunes_xml([each.entry() for each in songs], lists)
        path = ANNA + "iTunes\\iTunes Music Library.xml"
        for each in lists:
            self.add(path, raw, [songs[number].entry() for number in each.songs], name=each.name)

    # ---- what people and bad programs make of them ----

    def three(self, first=0):
        return [each.entry() for each in list(PLAIN.values())[first:first + 3]]

    def wrong_counts(self):
        for name, count in (("small", 2), ("minus", -1), ("half", "2.5"), ("none", None),
                            ("great", 99999999999), ("words", "three")):
            lines = playlists.pls(real_lists.items("", self.three(1)), count=count)
            self.add(f"{LISTS}count {name}.pls", encoded(joined(lines)), self.three(1))

    def wrong_endings(self):
        for writer, ending in ((real_lists.foobar_m3u8, "pls"), (real_lists.winamp_m3u, "asx"),
                               (real_lists.sonique_pls, "m3u"),
                               (real_lists.media_player_7_asx, "pls"),
                               (real_lists.vlc_xspf, "m3u"), (real_lists.zune_zpl, "wpl"),
                               (real_lists.media_player_7_asx, "wpl"),
                               (real_lists.winamp_b4s, "pls")):
            self.write(f"{SECOND}in truth {writer.__name__}.{ending}", writer, self.three(2))
        self.write(ANNA + "party.txt", real_lists.winamp_m3u, self.three(4))
        self.write(ANNA + "more.list", real_lists.winamp_pls, self.three(5))

    def loose_texts(self):
        """Marks behind blanks, separators behind references, UTF-8 that does not say so."""
        plain, wide = self.three(3), [each.entry() for each in WIDE.values()]
        for name, writer in (("m3u", real_lists.winamp_m3u), ("pls", real_lists.sonique_pls),
                             ("asx", real_lists.media_player_7_asx)):
            self.add(f"{SECOND}blanks in front.{name}", b" \t" + writer(SECOND, plain), plain)
        trailing = [replace(each, reference=each.reference + end)
                    for each, end in zip(plain, ("\\", "/", "\\\\"), strict=True)]
        self.add(SECOND + "separators.m3u", real_lists.foobar_m3u("", trailing), plain)
        lines = playlists.m3u(real_lists.items("", wide))
        self.add(SECOND + "no mark.m3u", encoded(joined(lines), "utf-8"), wide)
        lines = playlists.pls(real_lists.items("", wide))
        self.add(SECOND + "no mark.pls", encoded(joined(lines), "utf-8"), wide)

    def several_refs(self):
        """The first one that exists is the song."""
        song_of, gone = self.three(), "C:\\gone\\far.mp3"
        lines = ['<asx version="3.0">']
        for number, each in enumerate(song_of):
            refs = [gone] * number + [each.reference, RADIO.reference]
            lines += ["<entry>", f"<title>{each.title}</title>", f"<author>{each.artist}</author>",
                      *(f'<ref href="{ref}"/>' for ref in refs), "</entry>"]
        self.add(LISTS + "several.asx", encoded(joined(lines + ["</asx>"])), song_of)

    def compositions(self):
        """Names that differ from the disk's by composition alone."""
        both = [WIDE["marks"].entry(), PLAIN["joga"].entry()]
        changed = [replace(both[0], reference=composed(both[0].reference)),
                   replace(both[1], reference=decomposed(both[1].reference))]
        for writer, ending in ((real_lists.foobar_m3u8, "m3u8"), (real_lists.vlc_xspf, "xspf")):
            self.add(f"{ZOE}other composition.{ending}", writer(ZOE, changed), both)

    def moved_songs(self):
        """On another drive; below another folder; anywhere; and nowhere."""
        joga, stoff, wire, monk = (PLAIN[name].entry() for name in
                                   ("joga", "stoff", "wire", "monk"))
        changed = [replace(stoff, reference="E" + stoff.reference[1:]),
                   replace(joga, reference="C:\\MP3\\Björk\\Homogenic\\02 Jóga.mp3"),
                   replace(wire, reference="E:\\Old Disk\\wire.M4A"),
                   replace(wire, reference="C:\\No such\\nowhere at all.mp3")]
        self.add(SECOND + "moved.m3u8", real_lists.foobar_m3u8("", changed + [monk]),
                 [stoff, joga, wire, monk], elsewhere=3, gone=[changed[3].reference])

    def names_of_two(self):
        """Lists of one name and of several kinds."""
        for number, (writer, ending) in enumerate((
                (real_lists.winamp_m3u, "m3u"), (real_lists.foobar_m3u8, "m3u8"),
                (real_lists.winamp_pls, "pls"), (real_lists.media_player_7_asx, "asx"),
                (real_lists.vlc_xspf, "xspf"), (real_lists.zune_zpl, "zpl"))):
            self.write(f"{SECOND}Mix.{ending}", writer, self.three(number))

    def left_places(self):
        """Lists in bins and in the browser's store."""
        entries = [UNLISTED["binned"].entry()]
        for folder in ("C:\\RECYCLER\\S-1-5-21-1\\", "D:\\Recycled\\", "D:\\$Recycle.Bin\\S-1\\",
                       "C:\\Documents and Settings\\Anna\\Local Settings\\"
                       "Temporary Internet Files\\Content.IE5\\A\\"):
            path = folder + "Old.m3u8"
            self.put(path, real_lists.foobar_m3u8("", entries))
            self.skipped.append(path)


def doubtful_machine(folder):
    """A machine of which something must stay behind: kinds that nobody reads, and a song that may
    be one of two. Gives the paths of the lists of those kinds, the list with the doubt and its
    candidates."""
    folder = Path(folder)

    def put(path, raw):
        write_old(place(folder, path[0] + "/" + path[3:].replace("\\", "/")), raw)

    candidates = [SECOND + "One\\Twin.mp3", SECOND + "Two\\Twin.mp3"]
    for path in candidates:
        put(path, tagged_song("ID3v2.3 Latin-1", Tags("A", path, "Twin", 1, 9), path.encode()))
    joga = PLAIN["joga"]
    put(joga.path, joga.content())
    doubt = SECOND + "doubt.m3u8"
    put(doubt, real_lists.foobar_m3u8("", [Entry("C:\\Gone\\Twin.mp3", "Twin", "A", None, 9),
                                           joga.entry()]))
    unread = [SECOND + "player." + ending for ending in ("kpl", "fpl", "mpcpl", "pla")]
    for path in unread:
        put(path, b"\x00\x01 a list that its own player alone can read \xff\xfe")
    return unread, doubt, candidates
