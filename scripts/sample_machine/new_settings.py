"""The players' settings of the new machine, and what a move makes of them."""

from makers.players import MEDIA_PLAYER, MUSICMATCH, SONIQUE

DOCUMENTS = "C:\\My Documents"
LISTS = DOCUMENTS + r"\Norvo Media\PlayLists" + "\\"
SONIQUE_LISTS = r"C:\Program Files\Sonique\Playlists"
MUSICMATCH_LISTS = r"C:\Program Files\MusicMatch\MusicMatch Jukebox\Playlist"

# player, place (a registry key or a settings file), name, before, after
PLAYER_SETTINGS = [
    ("MusicMatch Jukebox", MUSICMATCH + "MMDB_DLL", "PlayList Path", MUSICMATCH_LISTS,
     LISTS + "MusicMatch JukeBox"),
    ("MusicMatch Jukebox", MUSICMATCH + "MainApp", "PlayListPath", MUSICMATCH_LISTS,
     LISTS + "MusicMatch JukeBox"),
    ("Sonique", SONIQUE, "DefaultFilesDirectory", SONIQUE_LISTS, LISTS + "Sonique"),
    ("Windows Media Player", MEDIA_PLAYER, "OpenDir", DOCUMENTS, LISTS + "Windows Media Player"),
    ("Windows Media Player", MEDIA_PLAYER, "SaveAsDir", DOCUMENTS, LISTS + "Windows Media Player"),
    ("Winamp", r"C:\Program Files\Winamp\Winamp.ini", "cwd", DOCUMENTS, LISTS + "Winamp"),
]
