#!/usr/bin/python3
"""Makes the sample machine: a small Windows machine held in a folder.

Run it through make-sample-machine.sh, which installs the tools it needs.
"""

import array
import calendar
import math
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import zlib

import gi

gi.require_version("TotemPlParser", "1.0")
from gi.repository import Gio, TotemPlParser  # noqa: E402
from mutagen import id3  # noqa: E402

RATE = 16000
STAMP = calendar.timegm((2003, 5, 14, 10, 12, 0))

# ------------------------------------------------------------------ audio ----


def tone(seed, seconds, rate=RATE):
    """A short arpeggio, different for every seed, as 16-bit samples."""
    scale = (0, 2, 4, 7, 9, 12, 14, 16)
    steps = 4
    length = int(seconds * rate)
    part = length // steps
    out = array.array("h")
    for i in range(length):
        step = min(i // part, steps - 1)
        note = scale[(seed * (step + 3) + step * step) % len(scale)] + seed % 5
        freq = 220.0 * 2.0 ** (note / 12.0)
        at = i - step * part
        fade = min(1.0, at / 80.0, max(0.0, (part - at) / 200.0))
        t = i / rate
        level = math.sin(2 * math.pi * freq * t) + 0.4 * math.sin(4 * math.pi * freq * t)
        out.append(int(9000 * fade * level))
    return out


def wav(data, rate, width):
    """A mono wave file of samples of the given width in bytes."""
    return (b"RIFF" + struct.pack("<I", 36 + len(data)) + b"WAVEfmt "
            + struct.pack("<IHHIIHH", 16, 1, 1, rate, rate * width, width, 8 * width)
            + b"data" + struct.pack("<I", len(data)) + data)


def encode(path, seed, seconds, extra=()):
    raw = tone(seed, seconds)
    if sys.byteorder == "big":
        raw.byteswap()
    subprocess.run(
        ["lame", "--quiet", "-m", "m", "-b", "24", "--resample", "16", *extra, "-", path],
        input=wav(raw.tobytes(), RATE, 2), check=True)


def write_wav(path, seed, seconds):
    data = bytes(128 + (s >> 8) for s in tone(seed, seconds, 8000))
    write(path, wav(data, 8000, 1))


def tiny_png():
    def chunk(kind, body):
        return (len(body).to_bytes(4, "big") + kind + body
                + zlib.crc32(kind + body).to_bytes(4, "big"))
    size = 8
    rows = b"".join(b"\0" + bytes((x * 32, y * 32, 128)[c] for x in range(size) for c in range(3))
                    for y in range(size))
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", size.to_bytes(4, "big") * 2 + bytes((8, 2, 0, 0, 0)))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


# ------------------------------------------------------------------- tags ----


def tag_id3v2(path, mode, t):
    """The command-line tagger; texts as Latin-1 bytes. Mode: 1, 2 or "both"."""
    args = [b"id3v2"]
    if mode in (1, 2):
        args.append(b"-%d" % mode)
    for option, key in (("-t", "title"), ("-a", "artist"), ("-A", "album"),
                        ("-y", "year"), ("-g", "genre"), ("-T", "track"), ("--TLEN", "length")):
        if key in t and not (mode == 1 and key == "length"):
            args += [option.encode(), str(t[key]).encode("latin-1")]
    subprocess.run(args + [os.fsencode(path)], check=True, env=dict(os.environ, LC_ALL="C"),
                   stdout=subprocess.DEVNULL)


def tag_mutagen(path, t, encoding=0, picture=False):
    tags = id3.ID3()
    for frame, key in ((id3.TIT2, "title"), (id3.TPE1, "artist"), (id3.TALB, "album"),
                       (id3.TCON, "genre"), (id3.TYER, "year"), (id3.TRCK, "track"),
                       (id3.TLEN, "length")):
        if key in t:
            tags.add(frame(encoding=encoding, text=str(t[key])))
    if picture:
        tags.add(id3.APIC(encoding=0, mime="image/png", type=3, desc="", data=tiny_png()))
    tags.save(path, v1=0, v2_version=3, padding=lambda info: 64)


def lame_tags(t):
    args = ["--id3v2-only", "--id3v2-latin1"]
    for option, key in (("--tt", "title"), ("--ta", "artist"), ("--tl", "album"),
                        ("--ty", "year"), ("--tg", "genre"), ("--tn", "track")):
        if key in t:
            args += [option, str(t[key])]
    return args


# path, tagger, tags
POP = "C/Music/Pop Hits [2003]/"
JAZZ = "C/Music/Jazz and Blues/Live (1999)/"
UML = "C/Music/Ärzte und Söhne/Übermut/"
FOLK = "C/Music/O'Hara's Reel/"
MINE = "C/My Documents/My Music/"
SUITE = "D/Musik/Klassik/Suite Nr. 1/"
ELEC = "D/Musik/Électronique [12 inch]/"
PLAYS = "D/Hörspiele/Teil 1/"
DEEP = "D/Archive/Deep/er/than most folders/"


def tags(artist, album, title, **more):
    return dict(artist=artist, album=album, title=title, **more)


MP3S = [
    (POP + "01 Northern Lights.mp3", "both",
     tags("The Harbours", "Pop Hits", "Northern Lights", year=2003, genre=13, track="1")),
    (POP + "02 Don't Look Back.mp3", "v2",
     tags("The Harbours", "Pop Hits", "Don't Look Back", year=2003, genre=13, track="2/5")),
    (POP + "03 Paper Boats (Radio Edit).mp3", "v1",
     tags("Mia Lindqvist", "Pop Hits", "Paper Boats", year=2002, genre=13, track="3")),
    (POP + "04 Glass Houses.mp3", "none", None),
    (POP + "05 Seven_Bells.mp3", "both",
     tags("Mia Lindqvist", "Pop Hits", "Seven Bells", year=2003, genre=13, track="5",
          length=215500)),
    (JAZZ + "Blue Quarter - Slow Train.mp3", "none", None),
    (JAZZ + "Blue Quarter - Rain on Tin.mp3", "v1",
     tags("Blue Quarter", "Live 1999", "Rain on Tin", year=1999, genre=8)),
    (JAZZ + "Blue Quarter - After Hours.mp3", "encoder",
     tags("Blue Quarter", "Live 1999", "After Hours", year=1999, genre="Jazz", track="4")),
    (JAZZ + "03 - Blue Quarter - Walking Home.mp3", "none", None),
    (UML + "Grüße aus Köln.mp3", "v2",
     tags("Ärzte und Söhne", "Übermut", "Grüße aus Köln", year=2001, genre=17, track="1")),
    (UML + "Straße nach Süden.mp3", "both",
     tags("Ärzte und Söhne", "Übermut", "Straße nach Süden", year=2001, genre=17, track="2")),
    (UML + "Fön.mp3", "v1",
     tags("Ärzte und Söhne", "Übermut", "Fön", year=2001, genre=17)),
    (FOLK + "The Piper's Chair.mp3", "both",
     tags("O'Hara", "O'Hara's Reel", "The Piper's Chair", year=1998, genre=80, track="1")),
    (FOLK + "Whiskey 'n' Rain.mp3", "v2",
     tags("O'Hara", "O'Hara's Reel", "Whiskey 'n' Rain", year=1998, genre=80, track="2",
          length=187000)),
    ("C/Music/Root Song.mp3", "both",
     tags("Nobody", "Loose Ends", "Root Song", year=2000, genre=12, track="9")),
    (MINE + "Demo {take 2}.mp3", "none", None),
    (MINE + "Demo #3.mp3", "picture",
     tags("Home Recording", "Demos", "Demo No. 3", year=2003, genre="Other", track="3")),
    (MINE + "Zoë/Très bien.mp3", "v1",
     tags("Zoë", "Chansons", "Très bien", year=1997, genre=19)),
    (SUITE + "1. Präludium.mp3", "v2",
     tags("Consort", "Suite Nr. 1", "Präludium", year=1995, genre=32, track="1/4",
          length=93000)),
    (SUITE + "2. Allemande.mp3", "v2",
     tags("Consort", "Suite Nr. 1", "Allemande", year=1995, genre=32, track="2")),
    (SUITE + "3. Courante.mp3", "both",
     tags("Consort", "Suite Nr. 1", "Courante", year=1995, genre=32, track="3")),
    (SUITE + "4. Gigue.mp3", "v1",
     tags("Consort", "Suite Nr. 1", "Gigue", year=1995, genre=32)),
    (ELEC + "Kraft & Stoff - Signal.mp3", "both",
     tags("Kraft & Stoff", "Électronique", "Signal", year=1988, genre=52, track="1",
          length=402000)),
    (ELEC + "Signal (Extended).mp3", "utf16",
     tags("Kraft & Stoff", "Électronique", "Signal Ω", year=1988, genre="Electronic", track="2")),
    (PLAYS + "Kapitel 01.mp3", "none", None),
    (PLAYS + "Kapitel 02.mp3", "titleonly", dict(title="Kapitel 2")),
    (DEEP + "lost tape.mp3", "both",
     tags("Unknown", "Attic", "Lost Tape", year=1979, genre=12)),
    (DEEP + "UPPER CASE.MP3", "v2",
     tags("UPPER", "CASE", "SHOUT", year=1984, genre=9, track="7")),
    ("E/Track 01.mp3", "v1", tags("Sampler", "Cover Disc", "Track 1", year=2003, genre=12)),
]

TAG_WORDS = {
    "both": "ID3v1 and ID3v2.3 (id3v2)",
    "v2": "ID3v2.3 (id3v2)",
    "v1": "ID3v1 (id3v2)",
    "none": "none",
    "encoder": "ID3v2.3, written by the encoder; `TLEN` is the clip's real length",
    "picture": "ID3v2.3 with a small attached picture; its texts end in NUL (mutagen)",
    "utf16": "ID3v2.3 with UTF-16 text: the frames come through as raw bytes (mutagen)",
    "titleonly": "ID3v2.3, title frame only; the text ends in NUL (mutagen)",
}


def make_mp3(root, number, entry):
    rel, kind, t = entry
    path = place(root, rel)
    encode(path, number + 1, 0.4 + 0.1 * (number % 4),
           lame_tags(t) if kind == "encoder" else ())
    if kind == "both":
        tag_id3v2(path, "both", t)
    elif kind == "v2":
        tag_id3v2(path, 2, t)
    elif kind == "v1":
        tag_id3v2(path, 1, t)
    elif kind == "picture":
        tag_mutagen(path, t, picture=True)
    elif kind == "utf16":
        tag_mutagen(path, t, encoding=1)
    elif kind == "titleonly":
        tag_mutagen(path, t)


# -------------------------------------------------------------- playlists ----

KEPT = "kept"
CD = "kept unchecked: CD-ROM drive"
SHARE = "kept unchecked: network share"
NET = "kept unchecked: internet address"
GONE = "dropped: missing"
NODRIVE = "dropped: no such drive"
NOMEDIA = "dropped: not a media file"
EMPTY = "dropped: empty reference"
NOTPATH = "dropped: taken for a reference, nothing of that name"
UNREAD = "not read"

LISTS = []  # (path, type words, what is odd, [(reference, outcome)])


def plist(root, rel, kind, odd, lines, refs, end="\r\n", charset="cp1252"):
    text = end.join(lines) + (end if lines else "")
    write(place(root, rel), text.encode(charset))
    LISTS.append((rel, kind, odd, refs))


def asx_entry(href, name=None, artist=None, album=None, genre=None, seconds=None, index=None,
              title=None):
    out = ["<Entry>"]
    for key, value in (("Name", name), ("Artist", artist), ("Album", album), ("Genre", genre),
                       ("OriginalIndex", index)):
        if value is not None:
            out.append('<Param Name = "%s" Value = "%s" />' % (key, value))
    if name is not None and href is not None:
        out.append('<Param Name = "SourceURL" Value = "%s" />' % href)
        out.append('<Param Name = "MediaType" Value = "audio" />')
        out.append('<Param Name = "Is_Protected" Value = "False" />')
    if title is not None:
        out.append("<Title>%s</Title>" % title)
    if seconds is not None:
        out.append('<Duration value = "00:%02d:%02d.000" />' % divmod(seconds, 60))
    if href is not None:
        out.append('<Ref href = "%s"/>' % href)
    return out + ["</Entry>", ""]


def asx(name, *entries, extra=()):
    out = ['<Asx Version = "3.0" >', '<Param Name = "Name" Value = "%s" />' % name,
           '<Param Name = "AllowShuffle" Value = "yes" />', ""]
    out += list(extra)
    for entry in entries:
        out += entry
    return out + ["</Asx>"]


def pls(items, count=None, tail=("Version=2",), head=()):
    out = ["[playlist]"] + list(head)
    for number, ref, title, length in items:
        out.append("File%d=%s" % (number, ref))
        if title is not None:
            out.append("Title%d=%s" % (number, title))
        if length is not None:
            out.append("Length%d=%s" % (number, length))
    out.append("NumberOfEntries=%d" % (len(items) if count is None else count))
    return out + list(tail)


WMP = "C/My Documents/My Music/My Playlists/"
MMJB = "C/Program Files/MusicMatch/MusicMatch Jukebox/Playlist/"

T_ASX = "ASX (Windows Media Player)"
T_WMP3 = "M3U of Windows Media Player"
T_WA3 = "M3U of Winamp"
T_WAP = "PLS of Winamp"
T_SO = "PLS of Sonique"
T_MM = "M3U of MusicMatch Jukebox"
T_NONE = "none: not recognised"


def make_lists(root):
    def add(rel, kind, odd, lines, refs, **kw):
        plist(root, rel, kind, odd, lines, refs, **kw)

    # ASX files.
    add(WMP + "Party Mix.asx", T_ASX,
        "A banner block in front hides an entry; drive letters and names in other case than on "
        "disk.",
        asx("Party Mix",
            asx_entry(r"C:\Music\Pop Hits [2003]\01 Northern Lights.mp3", "Northern Lights",
                      "The Harbours", "Pop Hits", "Pop", 221, 0),
            asx_entry(r"c:\MUSIC\pop hits [2003]\05 seven_bells.MP3", "Seven Bells",
                      "Mia Lindqvist", "Pop Hits", "Pop", 215, 1),
            asx_entry(r"D:\Musik\Électronique [12 inch]\Kraft & Stoff - Signal.mp3", "Signal",
                      "Kraft & Stoff", "Électronique", None, 402, 2),
            asx_entry(r"C:\Music\Pop Hits [2003]\06 Deleted Scene.mp3", "Deleted Scene",
                      "The Harbours", "Pop Hits", "Pop", 180, 3),
            asx_entry(r"E:\Track 01.mp3", "Track 1", "Sampler", "Cover Disc", None, 60, 4),
            asx_entry("http://radio.example.com/live/party.asf", title="Party Radio"),
            asx_entry("mms://media.example.com/night/show.wma", title="Night Show"),
            extra=['<Banner href = "http://www.example.com/banner.gif">'] +
            asx_entry(r"C:\Music\Root Song.mp3", "Hidden")[:-1] + ["</Banner>", ""]),
        [(r"C:\Music\Root Song.mp3", UNREAD + " (inside the banner)"),
         (r"C:\Music\Pop Hits [2003]\01 Northern Lights.mp3", KEPT),
         (r"c:\MUSIC\pop hits [2003]\05 seven_bells.MP3", KEPT),
         (r"D:\Musik\Électronique [12 inch]\Kraft & Stoff - Signal.mp3", KEPT),
         (r"C:\Music\Pop Hits [2003]\06 Deleted Scene.mp3", GONE),
         (r"E:\Track 01.mp3", CD),
         ("http://radio.example.com/live/party.asf", NET),
         ("mms://media.example.com/night/show.wma", NET)])

    late = asx("Late Night",
               asx_entry(r"..\Demo #3.mp3", "Demo No. 3", "Home Recording", "Demos"),
               asx_entry(r"\Music\Root Song.mp3", "Root Song", "Nobody"),
               asx_entry(r"\Music\Nowhere.mp3", "Nowhere", "Nobody"),
               asx_entry(r"\\server\share\Jazz\Slow Train.mp3", "Slow Train", "Blue Quarter"),
               asx_entry(r"C:\My Documents\readme.txt", "Read me"),
               asx_entry(None, "An entry without a file"),
               asx_entry(r"..\Zoë\Très bien.mp3", "Très bien", "Zoë", "Chansons", "Chanson", 205))
    late[2:2] = ["<Author>Someone’s PC</Author>"]
    late += asx_entry(r"C:\Music\Root Song.mp3", "Too late")[:-1]
    add(WMP + "Late Night.asx", T_ASX,
        "`..` and root-relative references; an entry without a Ref line; an entry after the "
        "closing `</Asx>`; a typographic apostrophe in the author.",
        late,
        [(r"..\Demo #3.mp3", KEPT),
         (r"\Music\Root Song.mp3", KEPT),
         (r"\Music\Nowhere.mp3", GONE),
         (r"\\server\share\Jazz\Slow Train.mp3", SHARE),
         (r"C:\My Documents\readme.txt", NOMEDIA),
         ("(no Ref line)", EMPTY),
         (r"..\Zoë\Très bien.mp3", KEPT),
         (r"C:\Music\Root Song.mp3", UNREAD + " (after the end)")])

    add(WMP + "Old.m3u list.asx", T_ASX,
        "The name holds \".m3u\" in its middle: the queue cuts the playlist's name down to `Old`, "
        "and the Name line of the file, without such an ending, does not change it.",
        asx("Old list",
            asx_entry(r"..\..\..\Music\O'Hara's Reel\The Piper's Chair.mp3", "The Piper's Chair",
                      "O'Hara", "O'Hara's Reel"),
            asx_entry(r"C:\Music\O'Hara's Reel\Whiskey 'n' Rain.mp3", "Whiskey 'n' Rain",
                      "O'Hara", "O'Hara's Reel", "Folk", 187)),
        [(r"..\..\..\Music\O'Hara's Reel\The Piper's Chair.mp3", KEPT),
         (r"C:\Music\O'Hara's Reel\Whiskey 'n' Rain.mp3", KEPT)])

    add(WMP + "Empty.asx", T_ASX, "Header and end, no entry: no generic file is made of it.",
        asx("Empty"), [])

    add("D/Musik/Radio.asx", T_ASX, "Written by hand: small letters, Title elements, no Params.",
        ['<asx version="3.0">', "<title>Radio stations</title>",
         "<entry>", "<title>City FM</title>", "<author>City Broadcasting</author>",
         '<ref href="http://stream.example.org:8000/city"/>', "</entry>",
         "<entry>", "<title>Classic</title>", '<ref href="mms://stream.example.org/classic"/>',
         "</entry>",
         "<entry>", "<title>Own jingle</title>",
         r'<ref href="Klassik\Suite Nr. 1\1. Präludium.mp3"/>', "</entry>", "</asx>"],
        [("http://stream.example.org:8000/city", NET),
         ("mms://stream.example.org/classic", NET),
         (r"Klassik\Suite Nr. 1\1. Präludium.mp3", KEPT)])

    add("C/Music/Commented.asx", T_NONE,
        "Five comment lines in front of `<Asx`: the scan lists it by its extension, the queue "
        "reports that its type is not known.",
        ["<!-- made with an editor", "  one", "  two", "  three", "-->"] +
        asx("Commented", asx_entry(r"C:\Music\Root Song.mp3", "Root Song")),
        [(r"C:\Music\Root Song.mp3", UNREAD)])

    add("C/WINDOWS/Temporary Internet Files/Content.IE5/A1B2C3D4/stream[1].asx", T_ASX,
        "In the browser's cache: the scan never lists it.",
        ['<ASX version="3.0">', "<ENTRY>", '<REF HREF="http://radio.example.com/live/party.asf"/>',
         "</ENTRY>", "</ASX>"],
        [("http://radio.example.com/live/party.asf", UNREAD)])

    # M3U files of Windows Media Player: ASX elements under another extension.
    add(WMP + "Workout.m3u", T_WMP3, "ASX elements in a file named .m3u.",
        asx("Workout",
            asx_entry(r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3", "Don't Look Back",
                      "The Harbours", "Pop Hits", "Pop", 199, 0),
            asx_entry(r"C:\Music\Pop Hits [2003]\03 Paper Boats (Radio Edit).mp3", "Paper Boats",
                      "Mia Lindqvist", "Pop Hits", "Pop", 175, 1),
            asx_entry(r"D:\Archive\Deep\er\than most folders\UPPER CASE.MP3", "SHOUT", "UPPER",
                      "CASE", None, 90, 2),
            asx_entry(r"F:\Removed\Drive.mp3", "Drive", "Removed", None, None, 120, 3)),
        [(r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3", KEPT),
         (r"C:\Music\Pop Hits [2003]\03 Paper Boats (Radio Edit).mp3", KEPT),
         (r"D:\Archive\Deep\er\than most folders\UPPER CASE.MP3", KEPT),
         (r"F:\Removed\Drive.mp3", NODRIVE)])

    add(POP + "Pop Hits.m3u", T_WMP3, "Lies beside its files and names them without a folder.",
        asx("Pop Hits",
            asx_entry("01 Northern Lights.mp3", "Northern Lights", "The Harbours", "Pop Hits"),
            asx_entry("04 Glass Houses.mp3", title="Glass Houses"),
            asx_entry(r".\05 Seven_Bells.mp3", title="Seven Bells"),
            asx_entry("99 Not There.mp3", title="Not There")),
        [("01 Northern Lights.mp3", KEPT), ("04 Glass Houses.mp3", KEPT),
         (r".\05 Seven_Bells.mp3", KEPT), ("99 Not There.mp3", GONE)])

    # M3U files of Winamp.
    add("C/Program Files/Winamp/winamp.m3u", T_WA3,
        "The player's own current list; durations of two, three and four digits and of -1.",
        ["#EXTM3U",
         "#EXTINF:215,Mia Lindqvist - Seven Bells",
         r"C:\Music\Pop Hits [2003]\05 Seven_Bells.mp3",
         "#EXTINF:95,Blue Quarter - Slow Train",
         r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - Slow Train.mp3",
         "#EXTINF:1402,Kraft & Stoff - Signal (Extended)",
         r"D:\Musik\Électronique [12 inch]\Signal (Extended).mp3",
         "#EXTINF:-1,Party Radio – live",
         "http://radio.example.com:8000/",
         "#EXTINF:3,bell",
         r"C:\Music\Sounds\bell.wav"],
        [(r"C:\Music\Pop Hits [2003]\05 Seven_Bells.mp3", KEPT),
         (r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - Slow Train.mp3", KEPT),
         (r"D:\Musik\Électronique [12 inch]\Signal (Extended).mp3",
          KEPT + " (duration text 402: the last three digits)"),
         ("http://radio.example.com:8000/", NET),
         (r"C:\Music\Sounds\bell.wav", KEPT)])

    add("C/Music/All of it.m3u", T_WA3,
        "Relative references, some without a title line; a comment; two title lines in a row; "
        "the header once more in the middle.",
        ["#EXTM3U",
         "#EXTINF:221,The Harbours - Northern Lights",
         r"Pop Hits [2003]\01 Northern Lights.mp3",
         r"Jazz and Blues\Live (1999)\Blue Quarter - Rain on Tin.mp3",
         r"Jazz and Blues\Live (1999)\03 - Blue Quarter - Walking Home.mp3",
         "# the German ones",
         "#EXTINF:180,Ärzte und Söhne - Grüße aus Köln",
         r"Ärzte und Söhne\Übermut\Grüße aus Köln.mp3",
         "#EXTM3U",
         "",
         r"Ärzte und Söhne\Übermut\Fön.mp3",
         "#EXTINF:100,Nobody - First",
         "#EXTINF:101,Nobody - Root Song",
         "Root Song.mp3",
         r"..\My Documents\My Music\Demo {take 2}.mp3",
         r"..\My Documents\readme.txt",
         r"\Music\O'Hara's Reel\The Piper's Chair.mp3",
         r"Pop Hits [2003]\gone.mp3"],
        [(r"Pop Hits [2003]\01 Northern Lights.mp3", KEPT),
         (r"Jazz and Blues\Live (1999)\Blue Quarter - Rain on Tin.mp3", KEPT),
         (r"Jazz and Blues\Live (1999)\03 - Blue Quarter - Walking Home.mp3",
          KEPT + " (artist, song and track from the file name)"),
         ("# the German ones", NOTPATH),
         (r"Ärzte und Söhne\Übermut\Grüße aus Köln.mp3", KEPT),
         (r"Ärzte und Söhne\Übermut\Fön.mp3", KEPT),
         ("#EXTINF:101,Nobody - Root Song", NOTPATH),
         ("Root Song.mp3", KEPT),
         (r"..\My Documents\My Music\Demo {take 2}.mp3", KEPT),
         (r"..\My Documents\readme.txt", NOMEDIA),
         (r"\Music\O'Hara's Reel\The Piper's Chair.mp3", KEPT),
         (r"Pop Hits [2003]\gone.mp3", GONE)])

    add("D/Musik/Klassik/KLASSIK.M3U", T_WA3, "Everything in capitals, unlike the names on disk.",
        ["#EXTM3U",
         "#EXTINF:93,CONSORT - PRÄLUDIUM", r"SUITE NR. 1\1. PRÄLUDIUM.MP3",
         "#EXTINF:120,CONSORT - ALLEMANDE", r"SUITE NR. 1\2. ALLEMANDE.MP3",
         "#EXTINF:110,CONSORT - COURANTE", r"SUITE NR. 1\3. COURANTE.MP3",
         "#EXTINF:130,CONSORT - GIGUE", r"D:\MUSIK\KLASSIK\SUITE NR. 1\4. GIGUE.MP3"],
        [(r"SUITE NR. 1\1. PRÄLUDIUM.MP3", KEPT), (r"SUITE NR. 1\2. ALLEMANDE.MP3", KEPT),
         (r"SUITE NR. 1\3. COURANTE.MP3", KEPT),
         (r"D:\MUSIK\KLASSIK\SUITE NR. 1\4. GIGUE.MP3", KEPT)])

    add("C/Music/Header only.m3u", T_WA3, "An empty playlist: no generic file is made of it.",
        ["#EXTM3U"], [])
    add("C/Music/Nothing.m3u", T_NONE, "0 bytes: the scan does not record it.", [], [])

    add("C/RECYCLED/Dc1.m3u", T_WA3, "In the recycle bin: the scan never lists it.",
        ["#EXTM3U", "#EXTINF:100,Nobody - Root Song", r"C:\Music\Root Song.mp3"],
        [(r"C:\Music\Root Song.mp3", UNREAD)])

    # PLS files of Winamp.
    add("C/My Documents/Streams and more.pls", T_WAP,
        "Streams among files; titles that lose their punctuation.",
        pls([(1, "http://radio.example.com:8000/", "Party Radio", -1),
             (2, r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3",
              "The Harbours - Don't Look Back (Live)", 199),
             (3, r"My Music\Zoë\Très bien.mp3", "Zoë – Très bien", 205),
             (4, r"C:\My Documents\readme.txt", "Read me", 1),
             (5, r"\\server\share\Blue Quarter - Rain on Tin.mp3",
              "Blue Quarter - Rain on Tin", 301),
             (6, r"E:\Track 01.mp3", "Sampler - Track 1", 60),
             (7, r"My Music\gone.mp3", "Gone", 10)]),
        [("http://radio.example.com:8000/", NET),
         (r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3", KEPT),
         (r"My Music\Zoë\Très bien.mp3", KEPT),
         (r"C:\My Documents\readme.txt", NOMEDIA),
         (r"\\server\share\Blue Quarter - Rain on Tin.mp3", SHARE),
         (r"E:\Track 01.mp3", CD), (r"My Music\gone.mp3", GONE)])

    add("D/Musik/Signal.pls", T_WAP,
        "Item 2 is missing, item 5 lies beyond the number of entries, item 3 has no title.",
        pls([(1, r"Électronique [12 inch]\Kraft & Stoff - Signal.mp3", "Kraft & Stoff - Signal",
              402),
             (3, r"Électronique [12 inch]\Signal (Extended).mp3", None, None),
             (4, r"..\Archive\Deep\er\than most folders\lost tape.mp3", "Unknown / Lost Tape", 77),
             (5, r"\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)], count=4),
        [(r"Électronique [12 inch]\Kraft & Stoff - Signal.mp3", KEPT),
         (r"Électronique [12 inch]\Signal (Extended).mp3", KEPT),
         (r"..\Archive\Deep\er\than most folders\lost tape.mp3", KEPT),
         (r"\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD)])

    add("D/RECYCLER/S-1-5-21-1004336348-1177238915-682003330-1003/Dd4.pls", T_WAP,
        "In the recycle bin: the scan never lists it.",
        pls([(1, r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)]),
        [(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD)])

    add("D/Musik/Version 3.pls", T_NONE,
        "A version number that no player writes: the scan does not record it.",
        pls([(1, r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)],
            tail=("Version=3",)),
        [(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD)])

    # PLS files of Sonique.
    add("C/Program Files/Sonique/Playlists/default.pls", T_SO,
        "Has a CachedInfo key, beside Version=2.",
        pls([(1, r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3",
              "Blue Quarter - After Hours", 288),
             (2, r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3",
              "Ärzte und Söhne - Straße nach Süden", 240),
             (3, r"..\..\..\Music\Root Song.mp3", "Nobody - Root Song", 101),
             (4, "http://radio.example.com/live.mp3", "Live", -1),
             (5, r"C:\Music\Sounds\bell.wav", None, 1)],
            head=("CachedInfo=1",)),
        [(r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3", KEPT),
         (r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3", KEPT),
         (r"..\..\..\Music\Root Song.mp3", KEPT),
         ("http://radio.example.com/live.mp3", NET),
         (r"C:\Music\Sounds\bell.wav", KEPT)])

    add("D/Hörspiele/Hörspiele.pls", T_SO, "Without a Version key; an umlaut in its own name.",
        pls([(1, r"Teil 1\Kapitel 01.mp3", "Kapitel 1", 60),
             (2, r"Teil 1\Kapitel 02.mp3", "Kapitel 2", 62),
             (3, r"Teil 1\Kapitel 03.mp3", "Kapitel 3", 64)], tail=()),
        [(r"Teil 1\Kapitel 01.mp3", KEPT), (r"Teil 1\Kapitel 02.mp3", KEPT),
         (r"Teil 1\Kapitel 03.mp3", GONE)])

    add("D/Hörspiele/Leer.pls", T_SO,
        "0 entries, no Version: read, but no generic file is made of it.",
        pls([], tail=()), [])

    # M3U files of MusicMatch Jukebox.
    add(MMJB + "Favorites.m3u", T_MM, "Drive paths, one per line.",
        [r"C:\Music\Pop Hits [2003]\01 Northern Lights.mp3",
         r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - Slow Train.mp3",
         r"C:\My Documents\My Music\Demo {take 2}.mp3",
         r"C:\My Documents\My Music\Demo #3.mp3",
         r"C:\My Documents\My Music\gone too.mp3",
         r"D:\Musik\Klassik\Suite Nr. 1\3. Courante.mp3",
         r"C:\My Documents\readme.txt",
         r"E:\Track 01.mp3"],
        [(r"C:\Music\Pop Hits [2003]\01 Northern Lights.mp3", KEPT),
         (r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - Slow Train.mp3",
          KEPT + " (artist and song from the file name)"),
         (r"C:\My Documents\My Music\Demo {take 2}.mp3", KEPT),
         (r"C:\My Documents\My Music\Demo #3.mp3", KEPT),
         (r"C:\My Documents\My Music\gone too.mp3", GONE),
         (r"D:\Musik\Klassik\Suite Nr. 1\3. Courante.mp3", KEPT),
         (r"C:\My Documents\readme.txt", NOMEDIA),
         (r"E:\Track 01.mp3", CD)])

    add(MMJB + "Straße & Süden.m3u", T_MM,
        "An empty first line; a title line, a blank line and a folder, each taken for a "
        "reference; a relative path.",
        ["", r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3",
         r"C:\Music\Ärzte und Söhne\Übermut\Fön.mp3",
         "#EXTINF:100,Nobody - Root Song",
         r"..\..\..\..\Music\Root Song.mp3",
         "", "C:\\Music\\",
         r"\\server\share\Köln.mp3"],
        [("(empty line)", EMPTY),
         (r"C:\Music\Ärzte und Söhne\Übermut\Straße nach Süden.mp3", KEPT),
         (r"C:\Music\Ärzte und Söhne\Übermut\Fön.mp3", KEPT),
         ("#EXTINF:100,Nobody - Root Song", NOTPATH),
         (r"..\..\..\..\Music\Root Song.mp3", KEPT),
         ("(empty line)", EMPTY),
         ("C:\\Music\\", GONE + " (a folder)"),
         (r"\\server\share\Köln.mp3", SHARE)])

    add("C/Music/No header.m3u", T_NONE,
        "No header, and the first drive path stands in line five: the scan does not record it.",
        ["Root Song.mp3", r"Pop Hits [2003]\01 Northern Lights.mp3",
         r"Pop Hits [2003]\04 Glass Houses.mp3", r"\Music\Root Song.mp3",
         r"C:\Music\Root Song.mp3"],
        [("(all five)", UNREAD)])

    # Lists of the desktop player's playlist writer, kept as it wrote them.
    desktop = [
        ("Archive/Deep/er/than most folders/lost tape.mp3", "Unknown - Lost Tape"),
        ("Musik/Klassik/Suite Nr. 1/2. Allemande.mp3", "Consort - Allemande"),
        ("Hörspiele/Teil 1/Kapitel 01.mp3", "Kapitel 1"),
        ("http://radio.example.com/live.mp3", "Party Radio"),
    ]
    kinds = (
        ("D/Desktop player.pls", TotemPlParser.ParserType.PLS, T_SO,
         "LF line ends, slashes, UTF-8, no Version key (which makes it one of Sonique's).", "/"),
        ("D/Desktop player (DOS).m3u", TotemPlParser.ParserType.M3U_DOS, T_WA3,
         "CR LF and backslashes, but UTF-8; its title lines have no duration (duration text "
         "`NF:`).", "\\"),
        ("D/Desktop player.m3u", TotemPlParser.ParserType.M3U, T_WA3,
         "LF line ends: the whole file is one line with the header in it, so it holds no entry "
         "and no generic file is made of it.", None),
    )
    for rel, kind, words, odd, separator in kinds:
        path = place(root, rel)
        plist_object = TotemPlParser.Playlist()
        for ref, title in desktop:
            uri = ref
            if "://" not in ref:
                uri = Gio.File.new_for_path(os.path.join(root, "D", ref)).get_uri()
            at = plist_object.append()
            plist_object.set_value(at, TotemPlParser.PARSER_FIELD_URI, uri)
            plist_object.set_value(at, TotemPlParser.PARSER_FIELD_TITLE, title)
        parser = TotemPlParser.Parser()
        if not parser.save(plist_object, Gio.File.new_for_path(path), "Desktop player", kind):
            sys.exit("cannot write " + path)
        refs = []
        for ref, _ in desktop:
            if separator is None:
                refs.append((ref, UNREAD))
            elif "://" in ref:
                refs.append((ref, NET))
            else:
                outcome = KEPT if ref.isascii() else \
                    GONE + " (UTF-8 read as 8-bit text names another file)"
                refs.append((ref.replace("/", separator), outcome))
        LISTS.append((rel, words + " (made by the TotemPlParser library)", odd, refs))


# --------------------------------------------------------------- the rest ----


def place(root, rel):
    path = os.path.join(root, rel)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    return path


def write(path, data):
    with open(path, "wb") as out:
        out.write(data)


def reg_hex(data, prefix):
    """A hex value as the registry editor breaks it: lines below 80 characters."""
    line = prefix
    out = []
    for i, byte in enumerate(data):
        piece = "%02x" % byte + ("," if i + 1 < len(data) else "")
        if len(line) + len(piece) > 78:
            out.append(line + "\\")
            line = "  "
        line += piece
    return out + [line]


def registry():
    def wide(text):
        return (text + "\0").encode("utf-16-le")

    app_paths = r"HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\App Paths"
    lines = ["Windows Registry Editor Version 5.00", ""]

    def key(name, *values):
        lines.append("[%s]" % name)
        for value in values:
            if isinstance(value, list):
                lines.extend(value)
            else:
                lines.append(value)
        lines.append("")

    key(r"HKEY_CLASSES_ROOT\Sonique.File\shell\open\command",
        r'@="C:\\Program Files\\Sonique\\Sonique.exe \"%1\""')
    key(r"HKEY_CLASSES_ROOT\Winamp.File", '@="Winamp media file"', '"EditFlags"=dword:00010000')
    key(r"HKEY_CLASSES_ROOT\Winamp.File\shell\open\command",
        r'@="C:\\Program Files\\Winamp\\Winamp.exe \"%1\""')
    key(r"HKEY_CURRENT_USER\Software\Example Mixer",
        '@="A foreign program\'s key"',
        r'"Skin"="C:\\Program Files\\Example Mixer\\Skins\\Grün [dark].skn"',
        '"Volume"=dword:000000c8',
        '"Empty"=""',
        reg_hex(bytes(range(40)), '"Window"=hex:'),
        reg_hex(wide(r"%USERPROFILE%\My Documents\Mixer"), '"Folder"=hex(2):'),
        reg_hex(wide("one") + wide("two words") + wide("drei") + b"\0\0", '"Recent"=hex(7):'),
        reg_hex((1 << 40).to_bytes(8, "little"), '"Played"=hex(b):'),
        '"None"=hex(0):')
    key(r"HKEY_CURRENT_USER\Software\MediaScience\Sonique\General Preferences 0.80",
        r'"DefaultFilesDirectory"="C:\\Program Files\\Sonique\\Playlists"',
        '"AlwaysOnTop"=dword:00000001')
    key(r"HKEY_CURRENT_USER\Software\Microsoft\MediaPlayer\Player\Settings",
        r'"OpenDir"="C:\\My Documents\\My Music"',
        r'"SaveAsDir"="C:\\My Documents\\My Music\\My Playlists"')
    key(app_paths + r"\MMJB.EXE",
        r'@="C:\\Program Files\\MusicMatch\\MusicMatch Jukebox\\mmjb.exe"',
        r'"Path"="C:\\Program Files\\MusicMatch\\MusicMatch Jukebox"')
    key(app_paths + r"\wmplayer.exe",
        r'@="C:\\Program Files\\Windows Media Player\\wmplayer.exe"',
        r'"Path"="C:\\Program Files\\Windows Media Player"')
    key(r"HKEY_LOCAL_MACHINE\SOFTWARE\MusicMatch\MusicMatch Jukebox\4.0\MMDB_DLL",
        r'"PlayList Path"="C:\\Program Files\\MusicMatch\\MusicMatch Jukebox\\Playlist"')
    key(r"HKEY_LOCAL_MACHINE\SOFTWARE\MusicMatch\MusicMatch Jukebox\4.0\MainApp",
        r'"PlayListPath"="C:\\Program Files\\MusicMatch\\MusicMatch Jukebox\\Playlist"')
    return "\r\n".join(lines) + "\r\n"


def make_rest(root):
    write(place(root, "machine.ini"),
          b"[Drives]\nC=fixed\nD=fixed\nE=cdrom\n\n[ShellFolders]\n5=C:\\My Documents\n")
    write(place(root, "registry.reg"), b"\xff\xfe" + registry().encode("utf-16-le"))
    write(place(root, "C/My Documents/readme.txt"),
          "Not a media file; some playlists name it all the same.\r\n".encode("cp1252"))
    write(place(root, "E/disc.txt"), b"Cover disc 5/2003\r\n")
    write_wav(place(root, "C/Music/Sounds/bell.wav"), 7, 0.25)
    for program in ("Winamp/Winamp.exe", "Sonique/Sonique.exe",
                    "MusicMatch/MusicMatch Jukebox/mmjb.exe",
                    "Windows Media Player/wmplayer.exe"):
        write(place(root, "C/Program Files/" + program),
              b"Stands for the player's program file.\r\n")
    write(place(root, "C/Program Files/Winamp/Winamp.ini"),
          b"[Winamp]\r\nvolume=200\r\nshuffle=0\r\ncwd=C:\\Music\r\n")


# ----------------------------------------------------------------- README ----


def cell(text):
    return text.replace("|", "\\|")


def drive_path(rel):
    return rel[0] + ":\\" + rel[2:].replace("/", "\\")


def code(text):
    return text if text.startswith("(") else "`%s`" % cell(text)


def readme():
    out = []
    put = out.append
    put("# Examples")
    put("")
    put("`sample-machine` is a small Windows machine held in a folder: two fixed drives (C, D), a")
    put("CD-ROM drive (E), music with tags of every kind, and the playlists of four players. Run")
    put("the product on a copy of it, since a run writes into the machine's folder.")
    put("")
    put("The folder and this text are made by `scripts/make-sample-machine.sh`. The clips are")
    put("synthesised tones of half a second; tags and playlists tell the lengths that whole songs")
    put("would have. The settings of the product itself are not in the machine's registry: its")
    put("`init` command writes them. `.gitattributes` keeps the line ends of the files as they are.")
    put("")
    put("| File or folder | What it is |")
    put("|---|---|")
    for name, words in (
            ("machine.ini", "drive types, and the documents folder (`C:\\My Documents`)"),
            ("registry.reg", "UTF-16LE; where the four players are installed, their own settings, "
             "and a foreign program's key with values of every type"),
            ("C/Music, D/Musik, D/Hörspiele, D/Archive, E", "the music"),
            ("C/My Documents", "the user's documents: a text file, own recordings, the playlists "
             "of Windows Media Player"),
            ("C/Program Files", "stand-ins for the players' program files; their own playlists"),
            ("C/RECYCLED, D/RECYCLER, C/WINDOWS/Temporary Internet Files",
             "folders that the scan leaves out")):
        put("| %s | %s |" % (", ".join("`%s`" % n for n in name.split(", ")), words))
    put("")
    put("## Playlists")
    put("")
    put("The type is the one that the file's first lines, or keys, tell. An .asx file is listed by")
    put("the scan as ASX whatever it holds; the queue then looks into it and, finding ASX")
    put("elements, gives it the type of an M3U of Windows Media Player, which is read the same way.")
    put("Unless told otherwise line ends are CR LF and text is Windows-1252.")
    put("")
    put("| Playlist | Type | Kept | What is odd about it |")
    put("|---|---|---|---|")
    for rel, kind, odd, refs in LISTS:
        total = sum(1 for _, o in refs if o.startswith("kept"))
        put("| `%s` | %s | %d of %d | %s |" % (cell(drive_path(rel)), kind, total, len(refs), odd))
    put("")
    found = [(rel, kind, refs) for rel, kind, _, refs in LISTS
             if not any(w in rel for w in ("RECYCLE", "Temporary Internet Files"))
             and (kind != T_NONE or rel.endswith(".asx"))]
    filled = [rel for rel, _, refs in found if any(o.startswith("kept") for _, o in refs)]
    put("The scan records %d of the %d: %s." % (
        len(found), len(LISTS), ", ".join("%d %s" % (
            sum(1 for rel, kind, _ in found
                if kind.startswith(word) or (word == T_ASX and kind == T_NONE)), word)
            for word in (T_ASX, T_WMP3, T_WA3, T_WAP, T_SO, T_MM))))
    put("%d of these yield entries. Each gets a generic file, but for the .asx lists whose name "
        "does not hold \".m3u\": the queue finds no name for theirs." % len(filled))
    put("")
    put("## What becomes of each reference")
    put("")
    put("- kept: the file exists and is a media file; it is recorded for the migration.")
    put("- kept unchecked: the reference stays in the playlist, no file is looked for or recorded.")
    put("- dropped: no entry; a line in the log (two for a missing file in an ASX element).")
    put("- not read: the line is never looked at, so nothing is logged.")
    put("")
    put("| Playlist | Reference | Outcome |")
    put("|---|---|---|")
    for rel, _, _, refs in LISTS:
        name = "`%s`" % cell(os.path.basename(rel))
        for ref, outcome in refs:
            put("| %s | %s | %s |" % (name, code(ref), outcome))
            name = ""
    put("")
    put("## Music")
    put("")
    put("| File | Tags |")
    put("|---|---|")
    for rel, kind, _ in MP3S:
        put("| `%s` | %s |" % (cell(drive_path(rel)), TAG_WORDS[kind]))
    put("| `C:\\Music\\Sounds\\bell.wav` | none |")
    put("")
    return "\n".join(out)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make-sample-machine.py EXAMPLES-FOLDER")
    examples = os.path.abspath(sys.argv[1])
    target = os.path.join(examples, "sample-machine")
    if os.path.lexists(target) and not os.path.isfile(os.path.join(target, "machine.ini")):
        sys.exit(target + " is not a sample machine; left alone")
    os.makedirs(examples, exist_ok=True)
    # Built beside the target, so that a failing run leaves the old one in place.
    work = tempfile.mkdtemp(prefix=".sample-machine-", dir=examples)
    try:
        root = os.path.join(work, "sample-machine")
        os.mkdir(root)
        for number, entry in enumerate(MP3S):
            make_mp3(root, number, entry)
        make_rest(root)
        make_lists(root)
        for folder, _, files in os.walk(root, topdown=False):
            for name in files:
                os.chmod(os.path.join(folder, name), 0o644)
                os.utime(os.path.join(folder, name), (STAMP, STAMP))
            os.utime(folder, (STAMP, STAMP))
        if os.path.lexists(target):
            shutil.rmtree(target)
        os.rename(root, target)
    finally:
        shutil.rmtree(work, ignore_errors=True)
    write(os.path.join(examples, "README.md"), readme().encode())
    write(os.path.join(examples, ".gitattributes"), b"sample-machine/** -text\n")


main()
