"""The registries of both machines."""

from makers.players import MEDIA_PLAYER, MUSICMATCH, SONIQUE, app_path, opens_files
from makers.registry import CLASSES, CURRENT_USER, exported, hex_value, number_value, text_value

PROGRAMS = "C:\\Program Files\\"


def wide(text):
    return (text + "\0").encode("utf-16-le")


def file_types():
    """Where Sonique and Winamp are found."""
    return [
        opens_files("Sonique", PROGRAMS + r"Sonique\Sonique.exe"),
        (CLASSES + "Winamp.File",
         [text_value(None, "Winamp media file"), number_value("EditFlags", 0x10000)]),
        opens_files("Winamp", PROGRAMS + r"Winamp\Winamp.exe"),
    ]


def app_paths():
    """Where MusicMatch Jukebox and Windows Media Player are found."""
    return [app_path(program, PROGRAMS + folder + "\\" + file, PROGRAMS + folder)
            for program, folder, file in (
                ("MMJB.EXE", r"MusicMatch\MusicMatch Jukebox", "mmjb.exe"),
                ("wmplayer.exe", "Windows Media Player", "wmplayer.exe"))]


def foreign_program():
    return [(CURRENT_USER + "Example Mixer", [
        text_value(None, "A foreign program's key"),
        text_value("Skin", PROGRAMS + r"Example Mixer\Skins\Grün [dark].skn"),
        number_value("Volume", 200),
        text_value("Empty", ""),
        hex_value("Window", "hex", bytes(range(40))),
        hex_value("Folder", "hex(2)", wide(r"%USERPROFILE%\My Documents\Mixer")),
        hex_value("Recent", "hex(7)", wide("one") + wide("two words") + wide("drei") + b"\0\0"),
        hex_value("Played", "hex(b)", (1 << 40).to_bytes(8, "little")),
        '"None"=hex(0):'])]


def players_of_user(playlists, open_folder, save_folder):
    """Settings of Sonique and Windows Media Player."""
    return [
        (SONIQUE, [text_value("DefaultFilesDirectory", playlists),
                   number_value("AlwaysOnTop", 1)]),
        (MEDIA_PLAYER, [text_value("OpenDir", open_folder),
                        text_value("SaveAsDir", save_folder)]),
    ]


def musicmatch(playlists):
    return [(MUSICMATCH + "MMDB_DLL", [text_value("PlayList Path", playlists)]),
            (MUSICMATCH + "MainApp", [text_value("PlayListPath", playlists)])]


def old_registry():
    return exported(
        file_types() + foreign_program() +
        players_of_user(PROGRAMS + r"Sonique\Playlists", r"C:\My Documents\My Music",
                        r"C:\My Documents\My Music\My Playlists") +
        app_paths() + musicmatch(PROGRAMS + r"MusicMatch\MusicMatch Jukebox\Playlist"))


def new_registry():
    return exported(
        file_types() + foreign_program() +
        players_of_user(PROGRAMS + r"Sonique\Playlists", r"C:\My Documents", r"C:\My Documents") +
        app_paths() + musicmatch(PROGRAMS + r"MusicMatch\MusicMatch Jukebox\Playlist"))
