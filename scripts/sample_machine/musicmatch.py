"""Playlists of MusicMatch Jukebox."""

from .references import CD, EMPTY, GONE, KEPT, NOMEDIA, NOTPATH, SHARE, SONG, UNREAD
from .shelf import MMJB, T_MM, T_NONE


def add_musicmatch_m3u(add):
    """M3U files of MusicMatch Jukebox."""
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

    bare = ["Root Song.mp3", r"Pop Hits [2003]\01 Northern Lights.mp3",
            r"Pop Hits [2003]\04 Glass Houses.mp3", r"\Music\Root Song.mp3",
            r"C:\Music\Root Song.mp3"]
    add("C/Music/No header.m3u", T_NONE,
        "No header, and the first drive path stands in line five: the scan does not record it.",
        bare, [(reference, UNREAD, SONG) for reference in bare])
