"""What the tests put on a machine: the product's registry keys, four players, songs and playlists;
and what a collecting and a restoring product make of them."""

import struct

from makers.machine import PRODUCT, sub_names
from makers.players import MEDIA_PLAYER, MUSICMATCH, SONIQUE, app_path, opens_files
from makers.playlists import Item, bare_m3u, m3u, pls
from makers.registry import CURRENT_USER, LOCAL_MACHINE, number_value, text_value
from makers.songs import id3v1
from makers.text import joined

OLD_ROOT = "C:\\My Documents\\Norvo Media\\"
NEW_ROOT = "C:\\Norvo Media\\"
OLD_AREA = "My Documents/Norvo Media/KVs"
NATIVE = "Norvo Media/PlayLists"
ENTRY_CLASS = "{8EBB6401-6BC6-4589-A380-4D5734B6D533}"
CLASSES = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\"

# ------------------------------------------------------------------------------- the registry ----


def surroundings():
    """Where the log and the documents are; and no screen, so that a message box returns at once."""
    shell = CURRENT_USER + "Microsoft\\Windows\\CurrentVersion\\Explorer\\"
    return [(CURRENT_USER + "Wine\\Drivers", [text_value("Graphics", "null")]),
            (shell + "User Shell Folders", [text_value("Personal", "C:\\My Documents")]),
            (PRODUCT, [text_value("ProductFolder", "C:\\Norvo\\")]),
            (LOCAL_MACHINE + "Norvo\\Debug", [number_value("VBDebugOut", 3)])]


def players():
    programs = "C:\\Programs\\"
    return [app_path("MMJB.EXE", folder=programs + "MusicMatch"),
            (MUSICMATCH + "MMDB_DLL", []), (MUSICMATCH + "MainApp", []),
            app_path("wmplayer.exe", folder=programs + "WMP"), (MEDIA_PLAYER, []),
            opens_files("Sonique", programs + "Sonique\\Sonique.exe", CLASSES), (SONIQUE, []),
            opens_files("Winamp", programs + "Winamp\\Winamp.exe", CLASSES)]


PLAYER_FILES = {"Programs/MusicMatch/mmjb.exe": "x", "Programs/Sonique/Sonique.exe": "x",
                "Programs/WMP/wmplayer.exe": "x",
                "Programs/Winamp/Winamp.ini": "[Winamp]\nvolume=90\ncwd=C:\\old\n"}

# Registry value of a player: its folder as the value has it.
PLAYER_SETTINGS = {
    (MEDIA_PLAYER, "OpenDir"): NEW_ROOT + "PlayLists\\Windows Media Player",
    (MEDIA_PLAYER, "SaveAsDir"): NEW_ROOT + "PlayLists\\Windows Media Player",
    (SONIQUE, "DefaultFilesDirectory"): NEW_ROOT + "PlayLists\\Sonique",
    (MUSICMATCH + "MMDB_DLL", "PlayList Path"): NEW_ROOT + "PlayLists\\MusicMatch JukeBox",
    (MUSICMATCH + "MainApp", "PlayListPath"): NEW_ROOT + "PlayLists\\MusicMatch JukeBox",
}
WINAMP_INI = f"[Winamp]\nvolume=90\ncwd={NEW_ROOT}PlayLists\\Winamp\n"


def text(lines):
    """With plain line ends; the machine's are those of its system."""
    return joined(lines, "\n")


OLD_NAMES = text(sub_names())
NEW_NAMES = text(sub_names("Both", "Artist", "Album", "Neither"))

# --------------------------------------------------------------------------- what is collected ----


# A song of 228 bytes with a tag at its end, and one without.
SONG = b"x" * 100 + id3v1("Song One", "Some Artist", "Some Album")
PLAIN = b"x" * 200
TITLED = Item("C:\\Music\\One.mp3", "Some Artist - Song One", 215)
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
PLS = [TITLED, Item("http://host/live")]
MUSIC_FILES = {
    "Music/One.mp3": SONG,
    "Music/Two.mp3": PLAIN,
    "Music/Best.m3u.asx": ASX,
    "Music/Window.m3u": ASX,
    "Music/Road Trip.m3u": text(m3u([TITLED, Item("Two.mp3")])),
    "Music/Amp.pls": text(pls(PLS)),
    "Music/Sonic.pls": text(pls(PLS, tail=["CachedInfo=1"])),
    "Music/Jukebox.m3u": text(bare_m3u([TITLED, Item("C:\\Music\\gone.mp3"),
                                        Item("C:\\Music\\Two.mp3")])),
    # A folder that no scan enters.
    "Recycled/Old.m3u": text(m3u([Item("C:\\Music\\One.mp3")])),
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
    "Class/Mix.m3u": text(m3u([Item("C:\\Class\\Tagged.mp3", "Some Artist - Song One", 215),
                               Item("C:\\Class\\Plain.mp3")])),
    "Class/Window.m3u": "\n<ASX Version=\"3.0\">\n",
    "Class/Jukebox.m3u": text(bare_m3u([Item("C:\\Class\\Plain.mp3")])),
    "Class/Unknown.m3u": "just a name\n",
    "Class/Amp.pls": text(pls([], count=None)),
    "Class/Sonic.pls": text(pls([], count=None, head=["CachedInfo=1"])),
    "Class/Third.pls": text(pls([], count=None, tail=["Version=3"])),
}
