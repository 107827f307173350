"""Playlists of Winamp."""

from .references import CD, GONE, KEPT, NET, NOMEDIA, NOTPATH, SHARE, SONG, UNREAD
from .shelf import T_NONE, T_WA3, T_WAP
from .syntax import pls


def add_winamp_m3u(add):
    """M3U files of Winamp."""
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


def add_winamp_pls(add):
    """PLS files of Winamp."""
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
        [(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD, SONG)])
