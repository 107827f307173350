"""What the tests put on a machine: the product's registry keys, four players, songs and playlists;
and what a collecting and a restoring product make of them."""

import struct

KEY = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Migration\\KVS"
OLD_ROOT = "C:\\My Documents\\Norvo Media\\"
NEW_ROOT = "C:\\Norvo Media\\"
OLD_AREA = "My Documents/Norvo Media/KVs"
NATIVE = "Norvo Media/PlayLists"
PLAYER_KEY = "HKEY_CURRENT_USER\\Software\\Microsoft\\MediaPlayer\\Player\\Settings"
SONIQUE_KEY = "HKEY_CURRENT_USER\\Software\\MediaScience\\Sonique\\General Preferences 0.80"
MUSICMATCH_KEY = "HKEY_LOCAL_MACHINE\\SOFTWARE\\MusicMatch\\MusicMatch Jukebox\\4.0\\"
APP_PATHS = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\"
ENTRY_CLASS = "{8EBB6401-6BC6-4589-A380-4D5734B6D533}"
CLASSES = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\"

# ------------------------------------------------------------------------------- the registry ----


def section(key, **values):
    """A key with its values as a registry file has them."""
    lines = [f"[{key}]"]
    for name, value in values.items():
        shown = f"dword:{value:08x}" if isinstance(value, int) else quoted(value)
        lines.append(f"{quoted(name) if name else '@'}={shown}")
    return "\n".join(lines) + "\n\n"


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def group_key(root):
    return f"HKEY_LOCAL_MACHINE\\{root}KVs\\KVMediaPlayLists"


def product(mode, root):
    return (section(KEY, mode=mode) + section(KEY + "\\KVMediaPlayLists", SubGroupRootName=root) +
            section(group_key(root)))


def surroundings():
    """Where the log and the documents are; and no screen, so that a message box returns at once."""
    shell = "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
    return (section("HKEY_CURRENT_USER\\Software\\Wine\\Drivers", Graphics="null") +
            section(shell + "User Shell Folders", Personal="C:\\My Documents") +
            section(KEY.removesuffix("\\KVS"), ProductFolder="C:\\Norvo\\") +
            section("HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo\\Debug", VBDebugOut=3))


def players():
    programs = "C:\\Programs\\"
    return (section(APP_PATHS + "MMJB.EXE", Path=programs + "MusicMatch") +
            section(MUSICMATCH_KEY + "MMDB_DLL") + section(MUSICMATCH_KEY + "MainApp") +
            section(APP_PATHS + "wmplayer.exe", Path=programs + "WMP") + section(PLAYER_KEY) +
            section(CLASSES + "Sonique.File\\shell\\open\\command",
                    **{"": programs + 'Sonique\\Sonique.exe "%1"'}) + section(SONIQUE_KEY) +
            section(CLASSES + "Winamp.File\\shell\\open\\command",
                    **{"": programs + 'Winamp\\Winamp.exe "%1"'}))


PLAYER_FILES = {"Programs/MusicMatch/mmjb.exe": "x", "Programs/Sonique/Sonique.exe": "x",
                "Programs/WMP/wmplayer.exe": "x",
                "Programs/Winamp/Winamp.ini": "[Winamp]\nvolume=90\ncwd=C:\\old\n"}

# Registry value of a player: its folder as the value has it.
PLAYER_SETTINGS = {
    (PLAYER_KEY, "OpenDir"): NEW_ROOT + "PlayLists\\Windows Media Player",
    (PLAYER_KEY, "SaveAsDir"): NEW_ROOT + "PlayLists\\Windows Media Player",
    (SONIQUE_KEY, "DefaultFilesDirectory"): NEW_ROOT + "PlayLists\\Sonique",
    (MUSICMATCH_KEY + "MMDB_DLL", "PlayList Path"): NEW_ROOT + "PlayLists\\MusicMatch JukeBox",
    (MUSICMATCH_KEY + "MainApp", "PlayListPath"): NEW_ROOT + "PlayLists\\MusicMatch JukeBox",
}
WINAMP_INI = f"[Winamp]\nvolume=90\ncwd={NEW_ROOT}PlayLists\\Winamp\n"


def sub_names(*names):
    keys = ["SzID001", "SzID002", "SzID003", "SzID004", "szID005", "szID006"]
    return "[PlayListStrings]\n" + "".join(f"{k}={n}\n" for k, n in zip(keys, names))


OLD_NAMES = sub_names("Music", "Music", "Music", "Music", "PlayLists", "")
NEW_NAMES = sub_names("Both", "Artist", "Album", "Neither", "PlayLists", "")

# --------------------------------------------------------------------------- what is collected ----


def tagged(song, artist, album):
    """A song of 228 bytes with a tag at its end."""
    rock = 17
    return b"x" * 100 + struct.pack("<3s30s30s30s4s30sB", b"TAG", song, artist, album, b"1999", b"",
                                    rock)


SONG = tagged(b"Song One", b"Some Artist", b"Some Album")
PLAIN = b"x" * 200
ASX = """<Asx Version="3.0">
<Title>Best of</Title>
<Author>Me</Author>
<Param Name="AllowShuffle" Value="yes" />
<Entry>
<Title>Song One</Title>
<Author>Writer</Author>
<Ref Href="C:\\Music\\One.mp3" />
<Duration value="00:03:35.000" />
<Param Name="Artist" Value="Some Artist" />
<Param Name="Bitrate" Value="128000" />
</Entry>
</Asx>
"""
PLS = """[playlist]
File1=C:\\Music\\One.mp3
Title1=Some Artist - Song One
Length1=215
File2=http://host/live
NumberOfEntries=2
"""
MUSIC_FILES = {
    "Music/One.mp3": SONG,
    "Music/Two.mp3": PLAIN,
    "Music/Best.m3u.asx": ASX,
    "Music/Window.m3u": ASX,
    "Music/Road Trip.m3u": "#EXTM3U\n#EXTINF:215,Some Artist - Song One\nC:\\Music\\One.mp3\n"
                           "Two.mp3\n",
    "Music/Amp.pls": PLS + "Version=2\n",
    "Music/Sonic.pls": PLS + "CachedInfo=1\n",
    "Music/Jukebox.m3u": "C:\\Music\\One.mp3\nC:\\Music\\gone.mp3\nC:\\Music\\Two.mp3\n",
    # A folder that no scan enters.
    "Recycled/Old.m3u": "#EXTM3U\nC:\\Music\\One.mp3\n",
}
MEDIA_BYTES = struct.pack("<d", 6 * len(SONG) + 2 * len(PLAIN)).hex().upper()
# Of two scans and one run of the queue.
COLLECT_LOG = ["Starting Drive Scan...", "Starting Drive Scan...",
               "Retrieving List of PlayLists Found",
               "NVERR_FILE_NOT_FOUND, PLAYLIST::ReadMMJB, File Not Found: C:\\Music\\gone.mp3"]


def media_list():
    music = "My Documents\\Norvo Media\\Music\\"
    rows = [("One.mp3", "Music PlayLists", "Some Artist\\Some Album\\"),
            ("One.mp3", "Media PlayLists", "Some Artist\\Some Album\\"),
            ("", "Music PlayLists", ""), ("Two.mp3", "Music PlayLists", "")]
    return "\ufeff" + "".join(
        f"{label}\tC:\\Music\\{name}\tGET_SHELL_FOLDER,5,{label},C:\\{music}{folder}\n"
        for name, label, folder in rows)


# Stands for the time at which the test wrote the playlist.
NOW = "CreationTime=now\n"


def global_section(name, kind, file):
    return (f"[Global Properties]\nPavaneVersion=1.6\nPlaylistName={name}\nPlaylistType={kind}\n"
            f"OriginalFileName={file}\n{NOW}")


def asx_text(name, file, entry_type):
    return global_section(name, 2, file) + f"""Author=Me
Artist=
Album=
AllowShuffle=yes
Title=Best of
PlayListAttribute=
ASX Version=3.0
TotalSongs=1

[Entry 1 Properties]
ASX_Album=Some Album
ASX_Artist=Some Artist
ASX_Author=Writer
ASX_SongName=Song One
ASX_Title=Song One
ASX_BitRate=128000
ASX_HREF=C:\\Music\\One.mp3
ASX_MediaAttribute=0
ASX_PlayCount=0
Artist=Some Artist
Album=Some Album
Duration=00:03:35.000
EntryType={entry_type}
FileName=One.mp3
FileSize=228
Genre=Rock
HasExtendedInfo=True
SongName=Song One
SongTitle=Some Artist - Song One
SourceURL=C:\\Music\\One.mp3
URLType=0

"""


def tagged_entry(duration):
    return f"""[Entry 1 Properties]
Artist=Some Artist
Album=Some Album
{duration}FileName=One.mp3
FileSize=228
Genre=Rock
HasExtendedInfo=True
SongName=Song One
SongTitle=Some Artist - Song One
SourceURL=C:\\Music\\One.mp3
URLType=0

"""


def second_entry(source, kind, file="", song=""):
    return (f"[Entry 2 Properties]\n{file}HasExtendedInfo=False\n{song}SourceURL={source}\n"
            f"URLType={kind}\n\n")


def pls_text(name, kind):
    return (global_section(name, kind, name + ".pls") + "TotalSongs=2\n\n" +
            tagged_entry("Duration=215\n") +
            second_entry("http://host/live", 9, "FileSize=0\n"))


GENERIC_FILES = {
    "Best.ini": asx_text("Best", "Best.m3u.asx", 1),
    "Window.ini": asx_text("Window", "Window.m3u", 2),
    "Road Trip.ini": global_section("Road Trip", 3, "Road Trip.m3u") + "TotalSongs=2\n\n" +
                     tagged_entry("Duration=215\n") +
                     second_entry("C:\\Music\\Two.mp3", 4, "FileSize=0\n"),
    "Amp.ini": pls_text("Amp", 4),
    "Sonic.ini": pls_text("Sonic", 5),
    "Jukebox.ini": global_section("Jukebox", 6, "Jukebox.m3u") + "TotalSongs=2\n\n" +
                   tagged_entry("") +
                   second_entry("C:\\Music\\Two.mp3", 0, "FileName=Two.mp3\nFileSize=200\n",
                                "SongName=Two\n"),
}

# ---------------------------------------------------------------------------- what is restored ----

# Of two runs of the queue. The song without a file name is asked for its path in each syntax.
RESTORE_LOG = ["Retrieving List of PlayLists Found",
               *4 * ["The FileName Property has not been set"],
               "Retrieving List of PlayLists Found"]
ONE = NEW_ROOT + "Both\\Some Artist\\Some Album\\One.mp3"
TWO = NEW_ROOT + "Neither\\Two.mp3"
LIVE = "http://host/live"
TITLE = "Some Artist - Song One"


def param(name, value):
    return f'<Param Name = "{name}" Value = "{value}" />\n\n'


def asx_head(name):
    return '<ASX Version = "3.0" >\n' + param("Name", name) + param("AllowShuffle", "yes")


def asx_entry(path, middle=""):
    return (f'<Entry>\n<Ref href = "{path}"/>\n\n{middle}' + param("SourceURL", path) +
            "</Entry>\n\n")


def song_params(*more):
    return (param("Name", "Song One") + param("Artist", "Some Artist") +
            param("Album", "Some Album") + param("Genre", "Rock") + "".join(more))


def plain_song(duration):
    return asx_entry(ONE, duration + f"<Title> {TITLE}</Title>\n\n" + song_params())


def from_pls(name):
    clock = '<Duration Value = "00:04:35.000" />\n\n'
    return {
        f"Windows Media Player/{name}.asx":
            asx_head(name) + plain_song(clock) + asx_entry(LIVE) + "</ASX>\n",
        f"WinAmp/{name}.m3u": f"#EXTM3U\n#EXTINF:0,{TITLE}\n{ONE}\n{LIVE}\n",
        f"MusicMatch Jukebox/{name}.m3u": f"{ONE}\0\n{LIVE}\0\n",
        f"Sonique/{name}.pls": f"[playlist]\nLength1=0\nTitle1={TITLE}\nFile1={ONE}\nFile2={LIVE}\n"
                               "NumberOfEntries=2\nVersion=2\n",
    }


# By their paths below the folder of native playlists. Entries of "Best" are of another type than
# the playlist, so that restoring drops them; the relative song of "Road Trip" has no file name.
NATIVE_FILES = from_pls("Amp") | from_pls("Sonic") | {
    "Windows Media Player/Jukebox.asx":
        asx_head("Jukebox") + plain_song("") + asx_entry(TWO, param("Name", "Two")) + "</ASX>\n",
    "WinAmp/Jukebox.m3u": f"#EXTM3U\n#EXTINF:0,{TITLE}\n{ONE}\n{TWO}\n",
    "MusicMatch Jukebox/Jukebox.m3u": f"{ONE}\0\n{TWO}\0\n",
    "Sonique/Jukebox.pls": f"[playlist]\nLength1=0\nTitle1={TITLE}\nFile1={ONE}\nFile2={TWO}\n"
                           "NumberOfEntries=2\nVersion=2\n",
    "Windows Media Player/Road Trip.asx":
        asx_head("Road Trip") + plain_song('<Duration Value = "00:04:35.000" />\n\n') +
        asx_entry("") + "</ASX>\n",
    "WinAmp/Road Trip.m3u": f"#EXTM3U\n#EXTINF:0,{TITLE}\n{ONE}\n\n",
    "MusicMatch Jukebox/Road Trip.m3u": f"{ONE}\0\n\0\n",
    "Sonique/Road Trip.pls": f"[playlist]\nLength1=0\nTitle1={TITLE}\nFile1={ONE}\nFile2=\n"
                             "NumberOfEntries=2\nVersion=2\n",
    "Windows Media Player/Best.asx":
        '<ASX Version = "" >\n' + param("Name", "Best") + "</ASX>\n",
    "WinAmp/Best.m3u": "#EXTM3U\n",
    "MusicMatch Jukebox/Best.m3u": "",
    "Sonique/Best.pls": "[playlist]\nNumberOfEntries=0\nVersion=2\n",
    "Windows Media Player/Window.asx":
        '<ASX Version = "" >\n' + param("Name", "Window") + asx_entry(
            ONE, '<Duration Value = "00:03:35.000" />\n\n<Author > Writer</Author>\n\n'
                 "<Title> Song One</Title>\n\n" +
                 song_params(param("MediaAttribute", 0), param("BitRate", 128000),
                             param("PlayCount", 0))) + "</ASX>\n",
    "WinAmp/Window.m3u": f"#EXTM3U\n#EXTINF:215,{TITLE}\n{ONE}\n",
    "MusicMatch Jukebox/Window.m3u": f"{ONE}\0\n",
    "Sonique/Window.pls": f"[playlist]\nLength1=215\nTitle1={TITLE}\nFile1={ONE}\n"
                          "NumberOfEntries=1\nVersion=2\n",
}

# ----------------------------------------------------------------------- what single tests use ----

# A line with Greek, Chinese, and a character outside the first 65536.
MANY_SCRIPTS = "\u03b1\u4e2d\u6587\U0001d11e\r\n".encode("utf-16")

CLASS_FILES = {
    "Class/Tagged.mp3": SONG,
    "Class/Plain.mp3": PLAIN,
    "Class/Mix.m3u": "#EXTM3U\n#EXTINF:215,Some Artist - Song One\nC:\\Class\\Tagged.mp3\n"
                     "C:\\Class\\Plain.mp3\n",
    "Class/Window.m3u": "\n<ASX Version=\"3.0\">\n",
    "Class/Jukebox.m3u": "C:\\Class\\Plain.mp3\n",
    "Class/Unknown.m3u": "just a name\n",
    "Class/Amp.pls": "[playlist]\nVersion=2\n",
    "Class/Sonic.pls": "[playlist]\nCachedInfo=1\nVersion=2\n",
    "Class/Third.pls": "[playlist]\nVersion=3\n",
}
