"""The smallest pair of machines whose move does everything once: lists of several kinds, songs that
need one name or two, players to be pointed at their folders, and foreign files in the way."""

import beside  # noqa: F401

from real_machine import ANNA, LISTS, PLAIN, RADIO, SONGS, ZOE, RealMachine, real_lists

from makers.files import place, write_old
from makers.players import MEDIA_PLAYER, SONIQUE, app_path, opens_files
from makers.registry import exported
from makers.real_lists import LibraryList

WORDS = ("joga", "stoff", "wire", "zvezda", "mute")
LIBRARY = ANNA + "iTunes\\iTunes Music Library.xml"
# The lists by their names, and where they are; no name is part of another one.
NAMES = {"morning": ANNA + "morning.m3u", "noon": LISTS + "noon.pls", "dusk": LISTS + "dusk.asx",
         "night": ZOE + "night.xspf", "Всё": LIBRARY}
MEDIA = "C:\\My Documents\\Norvo Media\\"
PROGRAMS = "C:\\Program Files\\"
PLAYERS = {"Sonique\\Sonique.exe": b"MZ", "Winamp\\Winamp.exe": b"MZ",
           "Winamp\\Winamp.ini": b"[Winamp]\r\nvolume=200\r\n", "WMP\\wmplayer.exe": b"MZ"}
KEYS = [opens_files("Sonique", PROGRAMS + "Sonique\\Sonique.exe"), (SONIQUE, []),
        opens_files("Winamp", PROGRAMS + "Winamp\\Winamp.exe"),
        app_path("wmplayer.exe", folder=PROGRAMS + "WMP"), (MEDIA_PLAYER, [])]
FOREIGN = {MEDIA + "Music\\Zoë\\Copper\\Wire.m4a": b"another song of that name",
           MEDIA + "PlayLists\\Sonique\\noon.pls": b"a list that was there before"}


class SmallMachine(RealMachine):
    """The old machine."""

    def put_songs(self):
        for word in WORDS:
            self.put(SONGS[word].path, SONGS[word].content())

    def players(self):
        every = [SONGS[word].entry() for word in WORDS]
        plain = [SONGS[word].entry() for word in WORDS if word in PLAIN]
        self.write(NAMES["morning"], real_lists.winamp_m3u, plain + [RADIO])
        self.write(NAMES["noon"], real_lists.winamp_pls, plain[::-1])
        self.write(NAMES["dusk"], real_lists.media_player_7_asx, plain[:2])
        self.write(NAMES["night"], real_lists.vlc_xspf, every + [RADIO])

    def library(self):
        songs = [SONGS[word].entry() for word in WORDS]
        lists = [LibraryList("Всё", (4, 3, 0, 3))]
        self.add(LIBRARY, real_lists.itunes_xml(songs, lists),
                 [songs[number] for number in lists[0].songs], name=lists[0].name)

    def nothing_more(self):
        """What else a real machine has takes time and makes no other calls."""

    wrong_counts = wrong_endings = loose_texts = several_refs = nothing_more
    compositions = moved_songs = names_of_two = left_places = nothing_more


def put_new(folder):
    """The new machine before the move."""
    files = {PROGRAMS + name: raw for name, raw in PLAYERS.items()} | FOREIGN
    for path, raw in files.items():
        write_old(place(folder, path[0] + "/" + path[3:].replace("\\", "/")), raw)
    write_old(folder / "registry.reg", exported(KEYS))


def make_machines(folder):
    SmallMachine(folder / "old")
    put_new(folder / "new")
