"""The registries of both machines, as the registry editor exports them."""

CURRENT_USER = "HKEY_CURRENT_USER\\Software\\"
LOCAL_MACHINE = "HKEY_LOCAL_MACHINE\\SOFTWARE\\"
APP_PATHS = LOCAL_MACHINE + r"Microsoft\Windows\CurrentVersion\App Paths" + "\\"
MUSICMATCH = LOCAL_MACHINE + r"MusicMatch\MusicMatch Jukebox\4.0" + "\\"
SONIQUE = CURRENT_USER + r"MediaScience\Sonique\General Preferences 0.80"
MEDIA_PLAYER = CURRENT_USER + r"Microsoft\MediaPlayer\Player\Settings"

PROGRAMS = "C:\\Program Files\\"


def text_value(name, text):
    escaped = text.replace("\\", "\\\\").replace('"', '\\"')
    return '%s="%s"' % ("@" if name is None else '"%s"' % name, escaped)


def hex_value(name, kind, data):
    """A value of another type as the editor breaks it: lines below 80 characters."""
    line = '"%s"=%s:' % (name, kind)
    out = []
    for i, byte in enumerate(data):
        piece = "%02x" % byte + ("," if i + 1 < len(data) else "")
        if len(line) + len(piece) > 78:
            out.append(line + "\\")
            line = "  "
        line += piece
    return "\r\n".join(out + [line])


def wide(text):
    return (text + "\0").encode("utf-16-le")


def exported(keys):
    """The file's bytes, from pairs of a key and its values."""
    lines = ["Windows Registry Editor Version 5.00", ""]
    for name, values in keys:
        lines += ["[%s]" % name, *values, ""]
    return b"\xff\xfe" + ("\r\n".join(lines) + "\r\n").encode("utf-16-le")


def file_types():
    """Where Sonique and Winamp are found."""
    return [
        (r"HKEY_CLASSES_ROOT\Sonique.File\shell\open\command",
         [text_value(None, PROGRAMS + r'Sonique\Sonique.exe "%1"')]),
        (r"HKEY_CLASSES_ROOT\Winamp.File",
         [text_value(None, "Winamp media file"), '"EditFlags"=dword:00010000']),
        (r"HKEY_CLASSES_ROOT\Winamp.File\shell\open\command",
         [text_value(None, PROGRAMS + r'Winamp\Winamp.exe "%1"')]),
    ]


def app_paths():
    """Where MusicMatch Jukebox and Windows Media Player are found."""
    return [(APP_PATHS + program, [text_value(None, PROGRAMS + folder + "\\" + file),
                                   text_value("Path", PROGRAMS + folder)])
            for program, folder, file in (
                ("MMJB.EXE", r"MusicMatch\MusicMatch Jukebox", "mmjb.exe"),
                ("wmplayer.exe", "Windows Media Player", "wmplayer.exe"))]


def foreign_program():
    return [(CURRENT_USER + "Example Mixer", [
        text_value(None, "A foreign program's key"),
        text_value("Skin", PROGRAMS + r"Example Mixer\Skins\Grün [dark].skn"),
        '"Volume"=dword:000000c8',
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
                   '"AlwaysOnTop"=dword:00000001']),
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
