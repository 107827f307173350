"""Where a machine's registry tells of the players and of their playlists."""

from .registry import CLASSES, CURRENT_USER, LOCAL_MACHINE, text_value

APP_PATHS = LOCAL_MACHINE + r"Microsoft\Windows\CurrentVersion\App Paths" + "\\"
MUSICMATCH = LOCAL_MACHINE + r"MusicMatch\MusicMatch Jukebox\4.0" + "\\"
SONIQUE = CURRENT_USER + r"MediaScience\Sonique\General Preferences 0.80"
MEDIA_PLAYER = CURRENT_USER + r"Microsoft\MediaPlayer\Player\Settings"


def opens_files(player, program, classes=CLASSES):
    """The key of a player, Sonique or Winamp, that is found by the files that it opens."""
    return (classes + player + r".File\shell\open\command", [text_value(None, program + ' "%1"')])


def app_path(program, file=None, folder=None):
    """The key of a player that is found by its program's name, such as MMJB.EXE."""
    return (APP_PATHS + program, [text_value(name, value) for name, value in
                                  ((None, file), ("Path", folder)) if value is not None])
