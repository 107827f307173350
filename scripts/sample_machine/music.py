"""The music of the old machine and its tags."""

from makers.files import drive_path, place, write

from .audio import encode, write_wav
from .tags import lame_tags, tag_id3v2, tag_mutagen

POP = "C/Music/Pop Hits [2003]/"
JAZZ = "C/Music/Jazz and Blues/Live (1999)/"
UML = "C/Music/Ärzte und Söhne/Übermut/"
FOLK = "C/Music/O'Hara's Reel/"
MINE = "C/My Documents/My Music/"
SUITE = "D/Musik/Klassik/Suite Nr. 1/"
ELEC = "D/Musik/Électronique [12 inch]/"
PLAYS = "D/Hörspiele/Teil 1/"
DEEP = "D/Archive/Deep/er/than most folders/"
TWINS = "C/Music/Twins/"
ODD = "C/Music/Odd tags/"
KINDS = "C/Music/Other kinds/"
BELL = "C/Music/Sounds/bell.wav"


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

# Songs that a move has to take care of. Very short, to keep the machine small.
ODD_MP3S = [
    (TWINS + "First Pressing/Same Song.mp3", "v1",
     tags("The Twins", "Double", "Same Song", year=2001, genre=13)),
    (TWINS + "Second Pressing/Same Song.mp3", "v1",
     tags("The Twins", "Double", "Same Song", year=2001, genre=13)),
    ("C/My Documents/Norvo Media/Music/Nobody/Loose Ends/Root Song.mp3", "v1",
     tags("Nobody", "Loose Ends", "Root Song", year=2000, genre=12)),
    ("C/Music/Česká hudba/Příliš žluťoučký kůň.mp3", "none", None),
    ("C/Music/Песни/Песня о друге.mp3", "utf16",
     tags("Голоса", "Песни", "Песня о друге", year=1996, genre="Other")),
    ("C/Music/日本の歌/さくら.mp3", "v1",
     tags("Sakura Ensemble", "Spring", "Sakura", year=1994, genre=48)),
    (ODD + "Fuse Box.mp3", "v1", tags("AC/DC", "Power Cut", "Fuse Box", year=1990, genre=17)),
    (ODD + "Who Knows.mp3", "v1", tags("Who?", "Questions", "Who Knows", year=1991, genre=17)),
    (ODD + "Point.mp3", "v1", tags("Full Stop.", "Sentences...", "Point", year=1992, genre=17)),
    (ODD + "Way Out.mp3", "v1",
     tags(r"..\..\Windows", "System", "Way Out", year=1993, genre=17)),
    (ODD + "Other Drive.mp3", "v1",
     tags("Wanderer", r"D:\Elsewhere", "Other Drive", year=1994, genre=17)),
    (ODD + "Console.mp3", "v1", tags("CON", "Devices", "Console", year=1995, genre=17)),
    (ODD + "Endless.mp3", "latin",
     tags("The Very Long Orchestra " * 9 + "and Friends",
          "An Album That Has No End " * 9 + "At All", "Endless", year=1996, genre="Rock")),
]

# Songs that are not media to the library; nothing looks into them.
STAND_INS = [
    (KINDS + "Field Recording.ogg", "Stands for an Ogg file."),
    (KINDS + "Voice Memo.m4a", "Stands for an MPEG-4 audio file."),
]

TAG_WORDS = {
    "both": "ID3v1 and ID3v2.3 (id3v2)",
    "v2": "ID3v2.3 (id3v2)",
    "v1": "ID3v1 (id3v2)",
    "none": "none",
    "latin": "ID3v2.3; its texts end in NUL (mutagen)",
    "encoder": "ID3v2.3, written by the encoder; `TLEN` is the clip's real length",
    "picture": "ID3v2.3 with a small attached picture; its texts end in NUL (mutagen)",
    "utf16": "ID3v2.3 with UTF-16 text: the frames come through as raw bytes (mutagen)",
    "titleonly": "ID3v2.3, title frame only; the text ends in NUL (mutagen)",
}


def make_mp3(root, number, entry, seconds):
    rel, kind, t = entry
    path = place(root, rel)
    encode(path, number + 1, seconds, lame_tags(t) if kind == "encoder" else ())
    if kind == "both":
        tag_id3v2(path, "both", t)
    elif kind == "v2":
        tag_id3v2(path, 2, t)
    elif kind == "v1":
        tag_id3v2(path, 1, t)
    elif kind == "latin":
        tag_mutagen(path, t)
    elif kind == "picture":
        tag_mutagen(path, t, picture=True)
    elif kind == "utf16":
        tag_mutagen(path, t, encoding=1)
    elif kind == "titleonly":
        tag_mutagen(path, t)


def make_music(root):
    for number, entry in enumerate(MP3S):
        make_mp3(root, number, entry, 0.4 + 0.1 * (number % 4))
    for number, entry in enumerate(ODD_MP3S, len(MP3S)):
        make_mp3(root, number, entry, 0.2)
    write_wav(place(root, BELL), 7, 0.25)
    for rel, words in STAND_INS:
        write(place(root, rel), (words + "\r\n").encode())


def described_music():
    """Path and a word on the tags of every song, in the order of the description."""
    for rel, kind, _ in MP3S:
        yield rel, TAG_WORDS[kind]
    for rel, kind, t in ODD_MP3S:
        words = TAG_WORDS[kind]
        if t:
            words += ": " + ", ".join(f"{key} `{shown(t[key])}`" for key in ("artist", "album"))
        yield rel, words
    yield BELL, "none"
    for rel, _ in STAND_INS:
        yield rel, "none; a stand-in, since nothing looks into it"


def shown(text):
    """A text, of a long one the start."""
    most = 40
    return text if len(text) <= most else text[:most] + "…"


def songs_by_path():
    """All songs by their machine paths in upper case, as Windows compares them."""
    return {drive_path(rel).upper(): rel for rel, _ in described_music()}
