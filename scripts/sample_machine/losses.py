"""Playlists of which a move could lose something: the readers do not take what they list, their
names are taken or say nothing, or their songs have names that cannot stand as they are."""

from makers.playlists import Item, asx, asx_entry, m3u, pls, title_line

from .music import KINDS, MINE, ODD, TWINS
from .references import (ADDRESS, EMPTY, FAILED, GONE, KEPT, NET, NOMEDIA, SONG, UNREAD)
from .shelf import T_ASX, T_MM, T_WA3, T_WAP

ROOT_SONG = r"C:\Music\Root Song.mp3"


def add_losses(add):
    add_torn_lists(add)
    add_lists_of_one_name(add)
    add_lists_of_same_songs(add)
    add_odd_names(add)
    add_other_scripts(add)
    add_odd_references(add)
    add_odd_asx(add)


def add_torn_lists(add):
    """Lines that the reader does not find, or of which it finds one too few."""
    mac = ["Root Song.mp3", r"Pop Hits [2003]\04 Glass Houses.mp3"]
    add("C/Music/Old Mac.m3u", T_WA3,
        "CR line ends: the whole file is one line with the header in it, so it holds no entry.",
        m3u([Item(mac[0], "Nobody - Root Song", 100), Item(mac[1])]),
        [(reference, UNREAD, SONG) for reference in mac], end="\r")

    cut = ["Root Song.mp3", r"Pop Hits [2003]\02 Don't Look Back.mp3"]
    add("C/Music/Cut off.m3u", T_WA3,
        "Ends in a title line: the read fails there, and the queue goes on without the entries "
        "before it.",
        m3u([Item(cut[0], "Nobody - Root Song", 100), Item(cut[1])],
            tail=[title_line("Nobody - Nothing", 120)]),
        [(reference, FAILED, SONG) for reference in cut], last_end=False)


def add_lists_of_one_name(add):
    """Playlists whose neutral files have one name."""
    mix = [r"Pop Hits [2003]\01 Northern Lights.mp3", r"Sounds\bell.wav"]
    add("C/Music/Mix.m3u", T_WA3, "One of four named Mix: their generic files have one name.",
        m3u(map(Item, mix)), [(reference, KEPT) for reference in mix])
    add("C/Music/Mix.pls", T_WAP, "Named Mix too.",
        pls([Item(r"Pop Hits [2003]\02 Don't Look Back.mp3", "The Harbours - Don't Look Back", 199),
             Item("Root Song.mp3", "Nobody - Root Song", 101)]),
        [(r"Pop Hits [2003]\02 Don't Look Back.mp3", KEPT), ("Root Song.mp3", KEPT)])
    add("C/Music/Mix.asx", T_ASX, "Named Mix too.",
        asx("Mix", asx_entry(r"Pop Hits [2003]\03 Paper Boats (Radio Edit).mp3", "Paper Boats",
                             "Mia Lindqvist", "Pop Hits"),
            asx_entry("http://radio.example.com/live.mp3", title="Live")),
        [(r"Pop Hits [2003]\03 Paper Boats (Radio Edit).mp3", KEPT),
         ("http://radio.example.com/live.mp3", NET)])
    demos = ["Demo {take 2}.mp3", "Demo #3.mp3"]
    add(MINE + "Mix.m3u", T_WA3, "Named Mix too, in another folder.",
        m3u(map(Item, demos)), [(reference, KEPT) for reference in demos])

    points = "A name with a point inside: the generic file of `%s` is called `a.ini` as well."
    gigue, allemande = (r"Klassik\Suite Nr. 1\4. Gigue.mp3",
                        r"Klassik\Suite Nr. 1\2. Allemande.mp3")
    add("D/Musik/a.b.m3u", T_WA3, points % "a.c.m3u", m3u([Item(gigue)]), [(gigue, KEPT)])
    add("D/Musik/a.c.m3u", T_WA3, points % "a.b.m3u", m3u([Item(allemande)]), [(allemande, KEPT)])


def add_lists_of_same_songs(add):
    """Different songs that would have one place on the new machine, and one song that would have
    several."""
    twins = [r"C:\Music\Twins\First Pressing\Same Song.mp3",
             r"C:\Music\Twins\Second Pressing\Same Song.mp3"]
    add(TWINS + "Twins.m3u", T_MM,
        "Two songs of the same artist, album and file name, which are not the same.",
        twins, [(reference, KEPT) for reference in twins])

    hours = ["Live (1999)\\Blue Quarter - After Hours.mp3",
             r"C:\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3",
             r"..\JAZZ AND BLUES\live (1999)\blue quarter - after hours.MP3",
             r"\Music\Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3"]
    titles = ["Blue Quarter - After Hours", "The Blue Quarter of New Orleans - After Hours, encore",
              "BQ / after hours", "After Hours"]
    add("C/Music/Jazz and Blues/Four times.m3u", T_WA3,
        "One song, named in four ways, with other artists in the titles.",
        m3u(Item(reference, title, 288) for reference, title in zip(hours, titles)),
        [(reference, KEPT) for reference in hours])
    add("C/Music/Once more.pls", T_WAP, "The same song under still another title.",
        pls([Item(r"Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3",
                  "Blue Quarter & Friends - After Hours", 288)]),
        [(r"Jazz and Blues\Live (1999)\Blue Quarter - After Hours.mp3", KEPT)])

    ends = [ROOT_SONG, r"C:\My Documents\Norvo Media\Music\Nobody\Loose Ends\Root Song.mp3"]
    add("C/My Documents/Loose ends.m3u", T_MM,
        "The second song stands where, on the new machine, the first one's place will be.",
        ends, [(reference, KEPT) for reference in ends])


def add_odd_names(add):
    """Tags that are no names of folders, and names of playlists that leave none."""
    songs = ["Fuse Box.mp3", "Who Knows.mp3", "Point.mp3", "Way Out.mp3", "Other Drive.mp3",
             "Console.mp3", "Endless.mp3"]
    add(ODD + "Odd tags.m3u", T_WA3,
        "The songs' artists and albums can be no folders as they are (see the music below).",
        m3u(map(Item, songs)), [(reference, KEPT) for reference in songs])

    loud = ["Root Song.mp3", r"Pop Hits [2003]\04 Glass Houses.mp3"]
    add("C/Music/!!!.m3u", T_WA3, "Its name is nothing but characters that a new name loses.",
        m3u(map(Item, loud)), [(reference, KEPT) for reference in loud])
    tape = r"Deep\er\than most folders\lost tape.mp3"
    add("D/Archive/OLD DISK.PLS", T_WAP, "The extension is in capitals.",
        pls([Item(tape, "Unknown - Lost Tape", 77)]), [(tape, KEPT)])


def add_other_scripts(add):
    """Names that the 8-bit page lacks."""
    horse = r"Česká hudba\Příliš žluťoučký kůň.mp3"
    friend = r"Песни\Песня о друге.mp3"
    sakura = r"日本の歌\さくら.mp3"
    add("C/Music/World tour.m3u", T_WA3,
        "UTF-16 with a byte order mark; file names that the 8-bit page lacks.",
        m3u([Item(horse, "Neznámý - Příliš žluťoučký kůň", 181),
             Item(friend, "Голоса - Песня о друге", 182), Item("C:\\Music\\" + sakura)]),
        [(horse, KEPT), (friend, KEPT), ("C:\\Music\\" + sakura, KEPT)], charset="utf-16-le")
    add("C/Music/Far away.pls", T_WAP, "UTF-8 with a byte order mark; such names too.",
        pls([Item("C:\\Music\\" + horse, "Příliš žluťoučký kůň", 181), Item(sakura, "さくら", 183),
             Item(r"..\music\ПЕСНИ\песня о друге.mp3", "Песня о друге", 182)]),
        [("C:\\Music\\" + horse, KEPT), (sakura, KEPT),
         (r"..\music\ПЕСНИ\песня о друге.mp3", KEPT)], charset="utf-8-sig")
    add("C/Music/Сборник.m3u", T_WA3,
        "Its own name in a script that the 8-bit page lacks; UTF-8 with a byte order mark.",
        m3u([Item(friend), Item("Root Song.mp3")]), [(friend, KEPT), ("Root Song.mp3", KEPT)],
        charset="utf-8-sig")


def add_odd_references(add):
    """Spellings that other programs write."""
    rows = [("file:///C:/Music/Root%20Song.mp3", GONE, "C/Music/Root Song.mp3"),
            ("C:/Music/Pop Hits [2003]/01 Northern Lights.mp3", GONE, SONG),
            (r"Pop%20Hits%20[2003]\04%20Glass%20Houses.mp3", GONE,
             "C/Music/Pop Hits [2003]/04 Glass Houses.mp3"),
            (r"c:\music\POP HITS [2003]\05 SEVEN_BELLS.mp3", KEPT),
            ("https://radio.example.com/live.mp3", GONE, ADDRESS),
            ("rtsp://media.example.com/night/show.rm", GONE, ADDRESS),
            (r"Other kinds\Field Recording.ogg", NOMEDIA, KINDS + "Field Recording.ogg"),
            (r"Other kinds\Voice Memo.m4a", NOMEDIA, KINDS + "Voice Memo.m4a")]
    add("C/Music/Spellings.m3u", T_WA3,
        "A file: URL, slashes, percent signs, other kinds of addresses and of songs.",
        m3u(Item(row[0]) for row in rows), rows)
    radio = [("https://radio.example.com/live.mp3", GONE, ADDRESS),
             ("http://radio.example.com:8000/", NET),
             ("rtsp://media.example.com/night/show.rm", GONE, ADDRESS)]
    add("C/Music/Web radio.m3u", T_WA3, "Lists no file at all.",
        m3u(Item(row[0]) for row in radio), radio)


def add_odd_asx(add):
    """ASX files that are not written one element per line, or not in double quotes."""
    ampersand = r"D:\Musik\Électronique [12 inch]\Kraft &amp; Stoff - Signal.mp3"
    add("C/Music/Ampersand.asx", T_ASX, "An entity in a reference.",
        asx("Kraft &amp; Stoff", asx_entry(ampersand, title="Signal"),
            asx_entry(ROOT_SONG, title="Root Song")),
        [(ampersand, GONE, "D/Musik/Électronique [12 inch]/Kraft & Stoff - Signal.mp3"),
         (ROOT_SONG, KEPT)])

    bells = r"C:\Music\Pop Hits [2003]\05 Seven_Bells.mp3"
    city = "http://stream.example.org:8000/city"
    add("C/Music/One line.asx", T_ASX,
        "A whole entry on a line: of each line the reader takes one element, and no entry ends.",
        ['<ASX version="3.0"><TITLE>One line</TITLE>',
         '<ENTRY><TITLE>Seven Bells</TITLE><REF HREF="%s"/></ENTRY>' % bells,
         '<ENTRY><TITLE>City FM</TITLE><REF HREF="%s"/></ENTRY>' % city,
         '<ENTRY><REF HREF="Root Song.mp3"/></ENTRY></ASX>'],
        [(bells, UNREAD, SONG), (city, UNREAD, ADDRESS), ("Root Song.mp3", UNREAD, SONG)])

    chair = r"O&apos;Hara&apos;s Reel\The Piper&apos;s Chair.mp3"
    add("C/Music/Single quotes.asx", T_ASX,
        "Attributes in single quotes, of which the reader takes none.",
        ["<asx version='3.0'>", "<entry>", "<ref href='%s'/>" % ROOT_SONG, "</entry>",
         "<entry>", "<ref href='%s'/>" % chair, "</entry>", "</asx>"],
        [(ROOT_SONG, EMPTY, SONG), (chair, EMPTY, "C/Music/O'Hara's Reel/The Piper's Chair.mp3")])

    add("C/Music/Closed banner.asx", T_ASX,
        "A banner element that closes itself: to the reader it never ends, and hides all that "
        "follows.",
        ['<Asx Version = "3.0" >', '<Banner href = "http://www.example.com/banner.gif" />',
         *asx_entry(ROOT_SONG, title="Root Song"), "</Asx>"],
        [(ROOT_SONG, UNREAD, SONG)])
