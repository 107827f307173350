"""The two machines as a whole."""

from makers.files import drive_path, place, settle, write
from makers.machine import machine_ini
from makers.playlists import Item, m3u
from makers.text import encoded, joined

from .audio import encode
from .desktop_player import add_desktop_lists
from .losses import add_losses
from .music import make_music
from .musicmatch import add_musicmatch_m3u
from .registry import new_registry, old_registry
from .shelf import Shelf
from .sonique import add_sonique_pls
from .winamp import add_winamp_m3u, add_winamp_pls
from .windows_media_player import add_asx, add_wmp_m3u

DOCUMENTS = "C:\\My Documents"
FOREIGN_SONG = "C/My Documents/Norvo Media/Music/The Harbours/Pop Hits/01 Northern Lights.mp3"
FOREIGN_PLAYLIST = "C/My Documents/Norvo Media/PlayLists/WinAmp/Favorites.m3u"


def make_old_machine(root):
    """Makes the machine in `root`, and gives its playlists."""
    make_music(root)
    write(place(root, "machine.ini"),
          machine_ini(["C=fixed", "D=fixed", "E=cdrom"], DOCUMENTS, end="\n"))
    write(place(root, "registry.reg"), old_registry())
    write(place(root, "C/My Documents/readme.txt"),
          "Not a media file; some playlists name it all the same.\r\n".encode("cp1252"))
    write(place(root, "E/disc.txt"), b"Cover disc 5/2003\r\n")
    make_programs(root, volume=200, folder="C:\\Music")
    playlists = make_playlists(root)
    settle(root)
    return playlists


def make_programs(root, volume, folder):
    """Stand-ins for the players' programs, and Winamp's settings."""
    for program in ("Winamp/Winamp.exe", "Sonique/Sonique.exe",
                    "MusicMatch/MusicMatch Jukebox/mmjb.exe",
                    "Windows Media Player/wmplayer.exe"):
        write(place(root, "C/Program Files/" + program),
              b"Stands for the player's program file.\r\n")
    write(place(root, "C/Program Files/Winamp/Winamp.ini"),
          ("[Winamp]\r\nvolume=%d\r\nshuffle=0\r\ncwd=%s\r\n" % (volume, folder)).encode())


def make_playlists(root):
    shelf = Shelf(root)
    for add_some in (add_asx, add_wmp_m3u, add_winamp_m3u, add_winamp_pls, add_sonique_pls,
                     add_musicmatch_m3u):
        add_some(shelf.add)
    add_desktop_lists(shelf)
    add_losses(shelf.add)
    return shelf.playlists


def make_new_machine(root):
    """A machine with players of its own, and with files where a move would put some."""
    write(place(root, "machine.ini"), machine_ini(["C=fixed"], DOCUMENTS, end="\n"))
    write(place(root, "registry.reg"), new_registry())
    make_programs(root, volume=120, folder=DOCUMENTS)
    encode(place(root, FOREIGN_SONG), 50, 0.2)
    song = Item(drive_path(FOREIGN_SONG), "The Harbours - Northern Lights (Live)", 221)
    write(place(root, FOREIGN_PLAYLIST), encoded(joined(m3u([song]))))
    settle(root)
