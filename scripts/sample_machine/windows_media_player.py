"""Playlists of Windows Media Player: ASX files, and ASX elements under another extension."""

from makers.playlists import asx, asx_entry

from .music import POP
from .references import (CD, EMPTY, GONE, KEPT, NET, NODRIVE, NOMEDIA, SHARE, SONG, UNREAD)
from .shelf import T_ASX, T_NONE, T_WMP3, WMP


def add_asx(add):
    """ASX files."""
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
        [(r"C:\Music\Root Song.mp3", UNREAD, SONG)])

    add("C/WINDOWS/Temporary Internet Files/Content.IE5/A1B2C3D4/stream[1].asx", T_ASX,
        "In the browser's cache: the scan never lists it.",
        ['<ASX version="3.0">', "<ENTRY>", '<REF HREF="http://radio.example.com/live/party.asf"/>',
         "</ENTRY>", "</ASX>"],
        [("http://radio.example.com/live/party.asf", UNREAD)])


def add_wmp_m3u(add):
    """M3U files of Windows Media Player: ASX elements under another extension."""
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
