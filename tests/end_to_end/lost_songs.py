"""Where a reference leads that leads nowhere: to the one media file that shares most of the end of
its path, whatever folder or drive that has come to. Decided here from the rule alone, to be held
against what the program finds."""

import unicodedata

from native_playlists import upper


def names(path):
    """The names of a full path without its drive, as they are compared here: last one first."""
    return [unicodedata.normalize("NFC", upper(name))
            for name in reversed(path[3:].split("\\"))]


def shared(one, other):
    """How many names the ends of two paths share."""
    count = 0
    for left, right in zip(names(one), names(other)):
        if left != right:
            break
        count += 1
    return count


def candidates(path, songs):
    """The songs with the longest end of that path; none when no song has its name."""
    ends = [(shared(path, song.path), song) for song in songs]
    longest = max((count for count, _ in ends), default=0)
    return [song for count, song in ends if count == longest] if longest else []

