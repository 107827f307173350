"""The playlists of the old machine, which are written and described one by one."""

from makers.files import place, write
from makers.text import encoded, joined

from .references import described

T_ASX = "ASX (Windows Media Player)"
T_WMP3 = "M3U of Windows Media Player"
T_WA3 = "M3U of Winamp"
T_WAP = "PLS of Winamp"
T_SO = "PLS of Sonique"
T_MM = "M3U of MusicMatch Jukebox"
T_NONE = "none: not recognised"

WMP = "C/My Documents/My Music/My Playlists/"
MMJB = "C/Program Files/MusicMatch/MusicMatch Jukebox/Playlist/"


class Shelf:
    def __init__(self, root):
        self.root = root
        self.playlists = []

    def add(self, rel, kind, odd, lines, rows, end="\r\n", charset="cp1252", last_end=True):
        """Writes a playlist of these lines, and describes it by rows as described() takes them."""
        text = joined(lines, end, last_end) if lines else ""
        write(place(self.root, rel), encoded(text, charset))
        self.describe(rel, kind, odd, rows)

    def describe(self, rel, kind, odd, rows):
        """Describes a playlist that is there."""
        self.playlists.append(described(rel, kind, odd, rows))
