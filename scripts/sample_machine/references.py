"""What a playlist of the old machine lists: what the library's readers make of each reference, and
what a move must bring of it. Both are told by hand, from the rules of the readers, and from what a
person sees who opens the playlist."""

import ntpath
from dataclasses import dataclass

from makers.files import drive_path

from .music import songs_by_path

KEPT = "kept"
CD = "kept unchecked: CD-ROM drive"
SHARE = "kept unchecked: network share"
NET = "kept unchecked: internet address"
GONE = "dropped: missing"
NODRIVE = "dropped: no such drive"
NOMEDIA = "dropped: not a media file"
EMPTY = "dropped: empty reference"
NOTPATH = "dropped: taken for a reference, nothing of that name"
UNREAD = "not read"
FAILED = "dropped: the read of the playlist fails behind it"

# What a move brings.
SONG = "song"  # the one that the reference means by the plain rules of Windows
ADDRESS = "address"
NOTHING = ""

SKIPPED_FOLDERS = ("RECYCLE", "Temporary Internet Files")


@dataclass
class Reference:
    text: str  # as the playlist has it, or words in brackets that stand for it
    outcome: str  # one of the constants above, some with a remark
    moved: str  # path of a song in the machine's folder, ADDRESS or NOTHING

    def is_kept(self):
        return self.outcome.startswith("kept")


@dataclass
class Playlist:
    rel: str
    kind: str  # type in words
    odd: str  # what is odd about it
    references: list

    def is_skipped(self):
        return any(folder in self.rel for folder in SKIPPED_FOLDERS)

    def kept(self):
        return sum(reference.is_kept() for reference in self.references)

    def addresses(self):
        return sum(reference.moved == ADDRESS for reference in self.references)

    def songs(self):
        return sum(reference.moved not in (ADDRESS, NOTHING) for reference in self.references)


def described(rel, kind, odd, rows):
    """A playlist from rows of (reference, outcome[, what is moved]). What is moved needs telling
    where the readers lose what is there: SONG, ADDRESS, or a song's path in the machine's
    folder."""
    references = []
    for text, outcome, *told in rows:
        moved = told[0] if told else moved_as_kept(outcome)
        if moved == SONG:
            moved = song_of(rel, text)
        references.append(Reference(text, outcome, moved))
    return Playlist(rel, kind, odd, references)


def moved_as_kept(outcome):
    if outcome.startswith("kept unchecked"):
        return ADDRESS
    return SONG if outcome.startswith(KEPT) else NOTHING


def song_of(rel, text):
    """The song that a reference means by the plain rules of Windows."""
    path = ntpath.normpath(ntpath.join(ntpath.dirname(drive_path(rel)), text))
    return songs_by_path()[path.upper()]
