"""Where the songs and playlists of generated machines stand, and what the playlists name that is no
song."""

SONG_ENDINGS = [".mp3"] * 8 + [".MP3", ".Mp3", ".ogg", ".m4a", ".flac", ".wma", ".ape", ".wav",
                                ".WAV"]
USER_MUSIC = ["Documents and Settings\\Anna\\My Documents\\My Music\\",
              "Documents and Settings\\Zoë\\My Documents\\", "Users\\Anna\\Music\\",
              "Users\\Юля\\Music\\"]
UNREAD_ENDINGS = [".kpl", ".fpl", ".mpcpl", ".pla"]
PLAYER_PLACES = ["Program Files\\Winamp", "Program Files\\Sonique\\Playlists",
                 "Program Files\\MusicMatch\\MusicMatch Jukebox\\Playlist", "WinAmp",
                 "Windows Media Player", "My Documents\\My Music\\My Playlists", "My Documents"]
SKIPPED_PLACES = ["RECYCLED", "RECYCLER\\S-1-5-21", "$Recycle.Bin\\S-1-5-21",
                  "System Volume Information",
                  "System Volume Information.old\\x",
                  "WINDOWS\\Temporary Internet Files\\Content.IE5"]

ADDRESSES = ["http://radio.example.com:8000/", "http://radio.example.com/live.mp3",
             "HTTP://Radio.example.com/Live?a=1;b=#x", "mms://media.example.com/night/show.wma",
             "ftp://files.example.org/pub/a b.mp3", "https://secure.example.com/live/stream.ogg",
             "rtsp://media.example.com/one.rm", "mms://media.example.com/100%25.asf",
             "\\\\server\\share\\x.mp3", "\\\\server\\share\\Jazz & Blues\\Slow Train.mp3",
             "https://example.com/x", "http://example.com/it's"]
MISSING = ["Q:\\No\\drive.mp3", "A:\\Music\\floppy.mp3", "C:\\Music\\no such song.mp3", "gone.mp3",
           "gone\\gone.mp3", "..\\gone too.mp3", "\\gone.mp3", ".\\gone.ogg", "C:/gone/far.mp3",
           "file:///C:/gone%20far.mp3", "..\\..\\..\\..\\..\\..\\..\\up.mp3"]
