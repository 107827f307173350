"""Playlists of Winamp."""

from makers.playlists import Item, m3u, pls

from .references import CD, GONE, KEPT, NET, NOMEDIA, NOTPATH, SHARE, SONG, UNREAD
from .shelf import T_NONE, T_WA3, T_WAP


def add_winamp_m3u(add):
    """M3U files of Winamp."""
    add("C/Program Files/Winamp/winamp.m3u", T_WA3,
        "The player's own current list; durations of two, three and four digits and of -1.",
        m3u([Item(r"C:\Music\Pop Hits [2003]\05 Seven_Bells.mp3", "Mia Lindqvist - Seven Bells",
                  215),
             Item(r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - Slow Train.mp3",
                  "Blue Quarter - Slow Train", 95),
             Item(r"D:\Musik\Électronique [12 inch]\Signal (Extended).mp3",
                  "Kraft & Stoff - Signal (Extended)", 1402),
             Item("http://radio.example.com:8000/", "Party Radio – live", -1),
             Item(r"C:\Music\Sounds\bell.wav", "bell", 3)]),
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
        m3u([Item(r"SUITE NR. 1\1. PRÄLUDIUM.MP3", "CONSORT - PRÄLUDIUM", 93),
             Item(r"SUITE NR. 1\2. ALLEMANDE.MP3", "CONSORT - ALLEMANDE", 120),
             Item(r"SUITE NR. 1\3. COURANTE.MP3", "CONSORT - COURANTE", 110),
             Item(r"D:\MUSIK\KLASSIK\SUITE NR. 1\4. GIGUE.MP3", "CONSORT - GIGUE", 130)]),
        [(r"SUITE NR. 1\1. PRÄLUDIUM.MP3", KEPT), (r"SUITE NR. 1\2. ALLEMANDE.MP3", KEPT),
         (r"SUITE NR. 1\3. COURANTE.MP3", KEPT),
         (r"D:\MUSIK\KLASSIK\SUITE NR. 1\4. GIGUE.MP3", KEPT)])

    add("C/Music/Header only.m3u", T_WA3, "An empty playlist: no generic file is made of it.",
        m3u([]), [])
    add("C/Music/Nothing.m3u", T_NONE, "0 bytes: the scan does not record it.", [], [])

    add("C/RECYCLED/Dc1.m3u", T_WA3, "In the recycle bin: the scan never lists it.",
        m3u([Item(r"C:\Music\Root Song.mp3", "Nobody - Root Song", 100)]),
        [(r"C:\Music\Root Song.mp3", UNREAD)])


def add_winamp_pls(add):
    """PLS files of Winamp."""
    add("C/My Documents/Streams and more.pls", T_WAP,
        "Streams among files; titles that lose their punctuation.",
        pls([Item("http://radio.example.com:8000/", "Party Radio", -1),
             Item(r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3",
                  "The Harbours - Don't Look Back (Live)", 199),
             Item(r"My Music\Zoë\Très bien.mp3", "Zoë – Très bien", 205),
             Item(r"C:\My Documents\readme.txt", "Read me", 1),
             Item(r"\\server\share\Blue Quarter - Rain on Tin.mp3",
                  "Blue Quarter - Rain on Tin", 301),
             Item(r"E:\Track 01.mp3", "Sampler - Track 1", 60),
             Item(r"My Music\gone.mp3", "Gone", 10)]),
        [("http://radio.example.com:8000/", NET),
         (r"C:\Music\Pop Hits [2003]\02 Don't Look Back.mp3", KEPT),
         (r"My Music\Zoë\Très bien.mp3", KEPT),
         (r"C:\My Documents\readme.txt", NOMEDIA),
         (r"\\server\share\Blue Quarter - Rain on Tin.mp3", SHARE),
         (r"E:\Track 01.mp3", CD), (r"My Music\gone.mp3", GONE)])

    add("D/Musik/Signal.pls", T_WAP,
        "Item 2 is missing, item 5 lies beyond the number of entries, item 3 has no title.",
        pls([Item(r"Électronique [12 inch]\Kraft & Stoff - Signal.mp3", "Kraft & Stoff - Signal",
                  402),
             Item(r"Électronique [12 inch]\Signal (Extended).mp3", number=3),
             Item(r"..\Archive\Deep\er\than most folders\lost tape.mp3", "Unknown / Lost Tape", 77),
             Item(r"\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)], count=4),
        [(r"Électronique [12 inch]\Kraft & Stoff - Signal.mp3", KEPT),
         (r"Électronique [12 inch]\Signal (Extended).mp3", KEPT),
         (r"..\Archive\Deep\er\than most folders\lost tape.mp3", KEPT),
         (r"\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD, SONG)])

    add("D/RECYCLER/S-1-5-21-1004336348-1177238915-682003330-1003/Dd4.pls", T_WAP,
        "In the recycle bin: the scan never lists it.",
        pls([Item(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)]),
        [(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD)])

    add("D/Musik/Version 3.pls", T_NONE,
        "A version number that no player writes: the scan does not record it.",
        pls([Item(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", "Consort - Gigue", 130)],
            tail=("Version=3",)),
        [(r"D:\Musik\Klassik\Suite Nr. 1\4. Gigue.mp3", UNREAD, SONG)])
